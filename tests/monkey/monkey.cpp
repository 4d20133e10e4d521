// tavimo-monkey: random mouse and keys over all screens and puzzles, in virtual time.
//
//     tavimo-monkey [--frames N] [--seed N] [--thread] [--soak]
//
// A life is a game folder of its own and some runs of the program in it; its seed decides all that happens, but for
// what a real render thread (--thread) does to the order of events. A failure names the seed of its life: the same
// program with that seed fails again.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "monkey/monkey.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

static constexpr long LIFE_FRAMES = 25000, RUN_FRAMES = 10000;

static bool live(monkey_plan run, unsigned seed, long frames) {
    const whole_game game;
    const long end = report->frames + frames;
    for (run.seed = seed * 1000; report->frames < end; ++run.seed) {
        run.frames = run.soak ? frames : std::min(end - report->frames, RUN_FRAMES);
        const int exit_code = monkey_run(run);
        if (exit_code == 0 && std::ranges::count(report->saved, report->runs) == 2)
            continue;
        std::fprintf(stderr, "FAILED: --seed %u --frames %ld%s%s, run %u, frame %ld of that run, code %d\n%s", seed,
                     frames, run.render_thread ? " --thread" : "", run.soak ? " --soak" : "", run.seed % 1000,
                     report->run_frames, exit_code, game.log_text().c_str());
        return false;
    }
    return true;
}

static void print_report() {
    const auto [play, title, study, dialog, scores, credits, splash] = report->screens;
    std::printf("%ld frames, %ld runs, %ld lists played\n", report->frames, report->runs, report->lists_played);
    std::printf("frames of play %ld, title %ld, study %ld, dialogs %ld, scores %ld, credits %ld, splash %ld\n", play,
                title, study, dialog, scores, credits, splash);
    std::printf("boards of each puzzle that were completed:");
    for (const long finished : report->finished)
        std::printf(" %ld", finished);
}

int main(int count, char **arguments) {
    monkey_plan run = {.frames = 20000, .move = monkey_move};
    for (int i = 1; i < count; ++i) {
        const std::string word = arguments[i];
        const long number = i + 1 < count ? std::atol(arguments[i + 1]) : 0;
        if (word == "--frames")
            run.frames = number;
        else if (word == "--seed")
            run.seed = static_cast<unsigned>(number);
        run.render_thread |= word == "--thread";
        run.soak |= word == "--soak";
    }
    // What the allocator keeps for each thread's next block would count as in use.
    if (run.soak && std::getenv("GLIBC_TUNABLES") == nullptr) {
        setenv("GLIBC_TUNABLES", "glibc.malloc.tcache_count=0", 1);
        execv("/proc/self/exe", arguments);
    }
    bool well = true;
    for (unsigned seed = run.seed; well && report->frames < run.frames; ++seed)
        well = live(run, seed, std::min(run.frames - report->frames, run.soak ? run.frames : LIFE_FRAMES));
    print_report();
    std::printf("\n%s\n", well ? "No fault found" : "A fault found");
    return well ? 0 : 1;
}
