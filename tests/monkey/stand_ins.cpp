// stand_ins.cpp: what the linker puts in the place of SDL's devices, clock and threads, and of what is counted.
//
// Without the render thread, the main thread plays the lists whenever it would sleep, which is where the other
// thread's turn would be: every order of events can be replayed from the seed.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app.h"
#include "core/screen.h"
#include "graphics/draw_queue.h"
#include "graphics/locks.h"
#include "graphics/render.h"
#include "monkey/monkey.h"

#include <SDL.h>
#include <SDL_thread.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <random>
#include <utility>

struct number_entry;

namespace {

constexpr u32 PAUSE_POLL_MS = 1; // the program waits for the render thread
constexpr int LISTS_EVERY = 10;  // frames; without the render thread
constexpr unsigned HANG_SECONDS = 300;
constexpr int HANG_FRAMES = 256, EXIT_BROKEN = 99;

std::mt19937 dice, game_dice;
std::atomic<u32> now = 1;
pid_t main_thread = 0;
int frames_unplayed = 0;

// Most often the other thread is slow: it is still busy, and frames go by that are not recorded.
void take_turn_of_render_thread(bool is_waited_for) {
    if (!is_waited_for && ++frames_unplayed < LISTS_EVERY && monkey_roll(LISTS_EVERY) != 0) {
        draw_queue.idle = monkey_roll(4) == 0;
        return;
    }
    render_pass();
    frames_unplayed = 0;
    ++report->lists_played;
}

} // namespace

monkey_report *monkey_start(bool soak) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", soak ? "disk" : "dummy", 1); // twenty times as fast, so that no sound is left over
    setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);
    setenv("SDL_DISKAUDIODELAY", "1", 1);
    return static_cast<monkey_report *>(
        mmap(nullptr, sizeof(monkey_report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
}

int monkey_run_program(const monkey_plan &wanted) {
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
        plan = wanted;
        report->run_frames = 0;
        main_thread = gettid();
        dice.seed(plan.seed);
        game_dice.seed(plan.seed);
        app_run();
    }
    int status = 0;
    waitpid(pid, &status, 0);
    ++report->runs;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int monkey_roll(int n) {
    return static_cast<int>(dice() % static_cast<unsigned>(n));
}

void monkey_wait(u32 ms) {
    now += ms;
}

void monkey_push_event(u8 type) {
    SDL_Event event = {};
    event.type = type;
    SDL_PushEvent(&event);
}

void monkey_fail(const std::string &why) {
    std::fprintf(stderr, "monkey: %s (screen %d)\n", why.c_str(), static_cast<int>(screen_current()));
    std::fflush(nullptr);
    _exit(EXIT_BROKEN);
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

Uint32 __wrap_SDL_GetTicks() {
    return now;
}

void __wrap_SDL_Delay(Uint32 span) {
    const bool is_main = gettid() == main_thread;
    now += is_main ? span : 0;
    if (plan.render_thread)
        usleep(is_main ? 20 : 200);
    else if (render_running)
        take_turn_of_render_thread(span == PAUSE_POLL_MS);
}

void __real_SDL_PumpEvents();
void __wrap_SDL_PumpEvents() {
    __real_SDL_PumpEvents();
    if (screen_current() == SCREEN_NONE) // start-up
        return;
    ++report->screens[screen_current()];
    ++report->frames;
    if (++report->run_frames % HANG_FRAMES == 0)
        alarm(HANG_SECONDS);
    if (report->run_frames >= plan.frames)
        app_request_quit();
    check_invariants();
    plan.move();
}

SDL_Thread *__real_SDL_CreateThread(int (*body)(void *), void *data);
SDL_Thread *__wrap_SDL_CreateThread(int (*body)(void *), void *data) {
    static int stand_in;
    if (plan.render_thread)
        return __real_SDL_CreateThread(body, data);
    render_running = true;
    render_pass();
    return reinterpret_cast<SDL_Thread *>(&stand_in);
}

void __real_SDL_WaitThread(SDL_Thread *thread, int *result);
void __wrap_SDL_WaitThread(SDL_Thread *thread, int *result) {
    if (plan.render_thread)
        return __real_SDL_WaitThread(thread, result);
    render_pass();
    render_running = false;
}

SDL_Surface *__real_SDL_SetVideoMode(int width, int height, int bits, Uint32 flags);
SDL_Surface *__wrap_SDL_SetVideoMode(int width, int height, int bits, Uint32 flags) {
    return bits == plan.depth ? __real_SDL_SetVideoMode(width, height, bits, flags) : nullptr;
}

void __wrap_srand(unsigned) {}
int __wrap_rand() {
    return static_cast<int>(game_dice() >> 1);
}

// The program's own functions, by the names that the compiler gives them.
// clang-format off
#define COUNTED(result, name, parameters, arguments, count) \
    result __real_##name parameters;                        \
    result __wrap_##name parameters { ++report->count; return __real_##name arguments; }

COUNTED(void, _Z15dialog_ask_exitv, (), (), counts[EXIT_DIALOGS])
COUNTED(void, _Z26dialog_ask_return_to_titlev, (), (), counts[RETURN_DIALOGS])
COUNTED(void, _Z17dialog_enter_nameb, (bool play), (play), counts[NAME_DIALOGS])
COUNTED(void, _Z16dialog_completediPKc, (i32 place, const char *text), (place, text), completed[app->puzzle])
COUNTED(void, _Z17best_times_recordiPKci, (i32 puzzle, const char *name, i32 s), (puzzle, name, s), recorded[puzzle])
COUNTED(void, _Z20play_request_new_runv, (), (), started[app->puzzle])
COUNTED(void, _Z20number_entry_scatterP12number_entry, (number_entry *e), (e), counts[WRONG])
COUNTED(void, _Z18app_state_set_nameP9app_statePKc, (app_state *s, const char *name), (s, name), counts[NAMES])
COUNTED(void, _Z10help_startv, (), (), counts[HELPS])
COUNTED(void, _Z17board_study_beginP5board, (board *b), (b), counts[STUDIED])
COUNTED(void, _Z21splash_layout_closingv, (), (), counts[EXITS])
COUNTED(i32, _Z15best_times_savev, (), (), counts[SCORES_SAVES])
// clang-format on

i32 __real__Z10prefs_savev();
i32 __wrap__Z10prefs_savev() {
    ++report->counts[PREFS_SAVES];
    if (plan.saving_begins != nullptr)
        std::exchange(plan.saving_begins, nullptr)();
    return __real__Z10prefs_savev();
}

void __wrap__Z22platform_open_web_pagePKc(const char *) {
    ++report->counts[WEB_PAGES];
}
}
