// real_time.cpp: a good player plays the program with its own threads in real time, and the frames are counted in which
// the render thread was still busy, so that nothing was recorded.
// usage: tavimo-real-time MINUTES, with a display
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app/app.h"
#include "core/base/app_state.h"
#include "core/ui/screen.h"
#include "graphics/draw_queue.h"
#include "graphics/locks.h"
#include "monkey/monkey.h"

#include <SDL.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>
#include <utility>

namespace {

constexpr int MS_PER_MINUTE = 60'000, LATE_MS = 40; // twice the period of a frame
constexpr int MOVE_EVERY = 4;                       // frames; about as fast as a hand can
constexpr double PERCENT = 100;

const std::thread::id MAIN_THREAD = std::this_thread::get_id();

std::mt19937 dice;
monkey_report counts;
u32 end_time = 0, last_frame = 0;
bool polled = false; // and not recorded yet
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
void soak_measure() {}
void monkey_fail(const std::string &why) {
    std::fprintf(stderr, "real time: %s\n", why.c_str());
    std::_Exit(EXIT_FAILURE);
}

static void frame() {
    const u32 now = SDL_GetTicks();
    late += frames > 0 && now - last_frame > LATE_MS ? 1 : 0;
    last_frame = now;
    ++report->screens[screen_current()];
    polled = true;
    if (now >= end_time)
        app_request_quit();
    else if (frames % MOVE_EVERY == 0)
        monkey_move();
}

// The first lock that is taken after the poll begins the recording, if the render thread is ready.
extern "C" int __real_SDL_mutexP(SDL_mutex *mutex);
extern "C" int __wrap_SDL_mutexP(SDL_mutex *mutex) {
    const int result = __real_SDL_mutexP(mutex);
    if (mutex == render_lock.mutex && std::this_thread::get_id() == MAIN_THREAD && std::exchange(polled, false)) {
        ++frames;
        dropped += draw_queue.idle ? 0 : 1;
        dropped_on[screen_current()] += draw_queue.idle ? 0 : 1;
    }
    return result;
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
    fake_input_start();
    harness = {.frame = frame, .render_turn = nullptr, .render_thread = true};
    std::atexit(print_count);
    app_run();
}
