// runs.cpp: one run of the program, and what is counted in it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app/app.h"
#include "core/base/app_state.h"
#include "core/ui/screen.h"
#include "graphics/draw_queue.h"
#include "monkey/monkey.h"

#include <SDL.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

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

static void frame() {
    ++report->screens[screen_current()];
    ++report->frames;
    if (++report->run_frames % HANG_FRAMES == 0)
        alarm(HANG_SECONDS);
    if (report->run_frames >= plan.frames)
        app_request_quit();
    check_invariants();
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
        harness.frame = frame;
        harness.render_turn = render_turn;
        harness.render_thread = plan.render_thread;
        dice.seed(plan.seed);
        program_dice.seed(plan.seed);
        app_run();
    });
}

extern "C" {
SDL_Surface *__real_SDL_SetVideoMode(int width, int height, int bits, Uint32 flags);
SDL_Surface *__wrap_SDL_SetVideoMode(int width, int height, int bits, Uint32 flags) {
    const int depth = plan.seed % 2 == 0 ? 32 : 16;
    return bits == depth ? __real_SDL_SetVideoMode(width, height, bits, flags) : nullptr;
}

// The program's own functions, by the names that the compiler gives them.
i32 __real__Z10prefs_savev();
i32 __wrap__Z10prefs_savev() {
    ++report->prefs_saves;
    if (plan.saving_begins != nullptr)
        std::exchange(plan.saving_begins, nullptr)();
    return __real__Z10prefs_savev();
}

i32 __real__Z15best_times_savev();
i32 __wrap__Z15best_times_savev() {
    ++report->scores_saves;
    return __real__Z15best_times_savev();
}

void __real__Z17best_times_recordiPKci(i32 puzzle, const char *name, i32 seconds);
void __wrap__Z17best_times_recordiPKci(i32 puzzle, const char *name, i32 seconds) {
    ++report->recorded[puzzle];
    __real__Z17best_times_recordiPKci(puzzle, name, seconds);
}

void __wrap__Z22platform_open_web_pagePKc(const char *) {}
}
