// tavimo-monkey: random mouse and keys over all screens and puzzles, in virtual time.
//
//     tavimo-monkey [--frames N] [--seed N] [--thread] [--soak]
//
// A life is a game folder of its own and some runs of the program in it; its seed decides all that happens, but for
// what a render thread of its own (--thread) does to the order of events. A failure names the seed of its life: the
// same program with that seed fails again.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "monkey/monkey.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr long LIFE_FRAMES = 25000, RUN_FRAMES = 10000;

struct wishes {
    long frames = 20000;
    unsigned seed = 1;
    bool render_thread = false, soak = false;
};

wishes read_arguments(int count, char **arguments) {
    wishes w;
    for (int i = 1; i < count; ++i) {
        const std::string word = arguments[i];
        const bool has_value = i + 1 < count;
        if (word == "--frames" && has_value)
            w.frames = std::atol(arguments[++i]);
        else if (word == "--seed" && has_value)
            w.seed = static_cast<unsigned>(std::atol(arguments[++i]));
        else if (word == "--thread")
            w.render_thread = true;
        else if (word == "--soak")
            w.soak = true;
    }
    return w;
}

bool live(const wishes &w, unsigned seed, long frames) {
    temp_game game;
    std::filesystem::create_symlink(TAVIMO_DATA_FILE, game.data("data.dar"));
    const long end = report->frames + frames;
    for (unsigned run = 0; report->frames < end; ++run) {
        const long left = end - report->frames;
        const int exit_code = monkey_run_program({.seed = seed * 1000 + run,
                                                  .frames = w.soak ? left : std::min(left, RUN_FRAMES),
                                                  .depth = seed % 2 == 0 ? 32 : 16,
                                                  .render_thread = w.render_thread,
                                                  .soak = w.soak,
                                                  .move = monkey_move});
        if (exit_code == 0 && report->counts[PREFS_SAVES] == report->runs &&
            report->counts[SCORES_SAVES] == report->runs)
            continue;
        std::fprintf(stderr, "FAILED: --seed %u --frames %ld%s%s, run %u, frame %ld of that run\n%s", seed, frames,
                     w.render_thread ? " --thread" : "", w.soak ? " --soak" : "", run, report->run_frames,
                     game.log_text().c_str());
        return false;
    }
    return true;
}

void print_report() {
    const auto [play, title, study, dialog, scores, credits, splash] = report->screens;
    std::printf("%ld frames, %ld runs, %ld lists played\n", report->frames, report->runs, report->lists_played);
    std::printf("frames of play %ld, title %ld, study %ld, dialogs %ld, scores %ld, credits %ld, splash %ld\n", play,
                title, study, dialog, scores, credits, splash);
    for (int type = 0; type < PUZZLE_COUNT; ++type)
        std::printf("%-22s started %5ld, completed %5ld, recorded %5ld\n", puzzle_title(type), report->started[type],
                    report->completed[type], report->recorded[type]);
    for (int kind = 0; kind < COUNTED_KINDS; ++kind)
        std::printf("%s %ld%s", COUNTED_NAMES[kind], report->counts[kind], kind + 1 < COUNTED_KINDS ? ", " : "\n");
}

} // namespace

int main(int count, char **arguments) {
    const wishes w = read_arguments(count, arguments);
    report = monkey_start(w.soak);
    bool well = true;
    for (unsigned seed = w.seed; well && report->frames < w.frames; ++seed)
        well = live(w, seed, std::min(w.frames - report->frames, w.soak ? w.frames : LIFE_FRAMES));
    print_report();
    std::printf("%s\n", well ? "No fault found" : "A fault found");
    return well ? 0 : 1;
}
