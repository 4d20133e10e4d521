// real_time.cpp: a good player plays the program with its own threads in real time, and the frames are counted in which
// the render thread was still busy, so that nothing was recorded.
// usage: tavimo-real-time MINUTES, with a display
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app/app.h"
#include "core/base/app_state.h"
#include "core/ui/screen.h"
#include "graphics/render.h"
#include "monkey/monkey.h"
#include "support/temp_folder.h"

#include <SDL.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

namespace {

constexpr int MS_PER_MINUTE = 60'000, LATE_MS = 40; // twice the period of a frame
constexpr int MOVE_EVERY = 4;                       // frames; about as fast as a hand can
constexpr double PERCENT = 100;

std::mt19937 dice;
monkey_report counts;
u32 end_time = 0, last_frame = 0;
long frames = 0, dropped = 0, late = 0;
long dropped_on[SCREEN_COUNT] = {};

void print_count() {
    std::printf("%ld frames, %ld dropped (%.3f %%), %ld more than %d ms after the one before\n", frames, dropped,
                PERCENT * static_cast<double>(dropped) / static_cast<double>(frames), late, LATE_MS);
    for (int i = 0; i < SCREEN_COUNT; ++i)
        if (dropped_on[i] > 0)
            std::printf("screen %d: %ld dropped of %ld\n", i, dropped_on[i], report->screens[i]);
}

} // namespace

monkey_report *const report = &counts;

// --- What the player needs -----------------------------------------------------------------------

int roll(int n) {
    return static_cast<int>(dice() % static_cast<unsigned>(n));
}
void push_event(u8) {}
void soak_measure() {}
void monkey_fail(const std::string &why) {
    std::fprintf(stderr, "real time: %s\n", why.c_str());
    std::_Exit(EXIT_FAILURE);
}

extern "C" {
Uint8 __wrap_SDL_GetMouseState(int *x, int *y) {
    *x = devices.x;
    *y = devices.y;
    return devices.buttons;
}

Uint8 *__wrap_SDL_GetKeyState(int *count) {
    static u8 polled[sizeof devices.keys];
    *count = sizeof polled;
    std::memcpy(polled, devices.keys, sizeof polled);
    return polled;
}

bool __real__Z18render_begin_framev();
bool __wrap__Z18render_begin_framev() {
    const bool ready = __real__Z18render_begin_framev();
    ++frames;
    dropped += ready ? 0 : 1;
    dropped_on[screen_current()] += ready ? 0 : 1;
    return ready;
}

void __real_SDL_PumpEvents();
void __wrap_SDL_PumpEvents() {
    __real_SDL_PumpEvents();
    if (screen_current() == SCREEN_NONE) // start-up
        return;
    const u32 now = SDL_GetTicks();
    late += frames > 0 && now - last_frame > LATE_MS ? 1 : 0;
    last_frame = now;
    ++report->screens[screen_current()];
    if (now >= end_time)
        app_request_quit();
    else if (frames % MOVE_EVERY == 0)
        monkey_move();
}
}

int main(int count, char **arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: tavimo-real-time MINUTES, with a display\n");
        return EXIT_FAILURE;
    }
    end_time = static_cast<u32>(std::atoi(arguments[1]) * MS_PER_MINUTE);
    plan.soak = true;
    static const temp_game folder; // the player's own records stay out of it
    std::filesystem::create_symlink(TAVIMO_DATA_FILE, folder.data("data.dar"));
    std::atexit(print_count);
    app_run();
}
