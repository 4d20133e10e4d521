// runs.cpp: one run of the program, and what is counted in it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app/app.h"
#include "core/base/app_state.h"
#include "core/ui/screen.h"
#include "graphics/draw_queue.h"
#include "monkey/monkey.h"
#include "puzzles/board.h"
#include "support/video_depth.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>

static constexpr int LISTS_EVERY = 10; // frames; without a real render thread
static constexpr unsigned HANG_SECONDS = 300;
static constexpr int HANG_FRAMES = 256, EXIT_BROKEN = 99;

monkey_report *const report = static_cast<monkey_report *>(
    mmap(nullptr, sizeof(monkey_report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

static std::mt19937 dice;

int roll(int n) {
    return static_cast<int>(dice() % static_cast<unsigned>(n));
}

void monkey_fail(const std::string &why) {
    std::fprintf(stderr, "monkey: %s (screen %d)\n", why.c_str(), static_cast<int>(screen_current()));
    std::fflush(nullptr);
    _exit(EXIT_BROKEN);
}

// Most often the other thread is slow: it is still busy, and frames go by that are not recorded.
static bool render_turn(bool needed) {
    static int frames_unplayed = 0;
    if (!needed && ++frames_unplayed < LISTS_EVERY && roll(LISTS_EVERY) != 0) {
        draw_queue.idle = roll(4) == 0;
        return false;
    }
    frames_unplayed = 0;
    ++report->lists_played;
    return true;
}

static void count_finished() {
    static bool was_complete = false;
    const board &b = *app->board;
    const bool complete = board_is(&b, BOARD_COMPLETE) && b.type != BOARD_NO_TYPE;
    if (complete && !was_complete)
        ++report->finished[b.type];
    was_complete = complete;
}

static void frame() {
    ++report->screens[screen_current()];
    ++report->frames;
    if (++report->run_frames % HANG_FRAMES == 0)
        alarm(HANG_SECONDS);
    if (report->run_frames >= plan.frames)
        app_request_quit();
    check_invariants();
    count_finished();
    plan.move();
}

int monkey_run(const monkey_plan &wanted) {
    plan = wanted;
    report->run_frames = 0;
    ++report->runs;
    return run_in_child([] {
        setenv("SDL_AUDIODRIVER", plan.soak ? "disk" : "dummy", 1); // twenty times as fast: no sound is left over
        setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);
        setenv("SDL_DISKAUDIODELAY", "1", 1);
        setenv("PATH", "/nowhere", 1); // no browser is found
        virtual_time_start();
        fake_video.refuse = [](int bits, u32) { return bits != (plan.seed % 2 == 0 ? 32 : 16); };
        harness.frame = frame;
        harness.render_turn = render_turn;
        harness.render_thread = plan.render_thread;
        dice.seed(plan.seed);
        fake_dice_seed(plan.seed);
        app_run();
    });
}

// Every save ends with the new file moved over the old one.
extern "C" int __real_rename(const char *from, const char *to);
extern "C" int __wrap_rename(const char *from, const char *to) {
    for (int i = 0; i < 2; ++i)
        report->saved[i] += std::string_view(to).ends_with(std::string("/") + SAVED_FILES[i]) ? 1 : 0;
    return __real_rename(from, to);
}
