// whole_program.cpp: the functions that the linker puts in the place of the devices, the clock and the threads.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/whole_program/whole_program.h"

#include "core/ui/screen.h"
#include "graphics/locks.h"
#include "graphics/render.h"

#include <SDL.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <thread>

static constexpr u32 PAUSE_POLL_MS = 1;                  // the program waits for the render thread
static constexpr useconds_t TURN_US = 20, REST_US = 200; // of real threads

static const std::thread::id MAIN_THREAD = std::this_thread::get_id();

whole_game::whole_game() {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    std::filesystem::create_symlink(TAVIMO_DATA_FILE, data("data.dar"));
}

int run_in_child(const std::function<void()> &body) {
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
        body();
        _exit(0);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void push_event(u8 type) {
    SDL_Event event = {};
    event.type = type;
    SDL_PushEvent(&event);
}

extern "C" {
void __real_SDL_PumpEvents();
SDL_Thread *__real_SDL_CreateThread(int (*body)(void *), void *data);
void __real_SDL_WaitThread(SDL_Thread *thread, int *result);

Uint8 __wrap_SDL_GetMouseState(int *x, int *y) {
    *x = devices.x;
    *y = devices.y;
    return devices.buttons;
}

Uint8 *__wrap_SDL_GetKeyState(int *count) {
    if (count != nullptr)
        *count = SDLK_LAST;
    return devices.keys;
}

Uint32 __wrap_SDL_GetTicks() {
    return virtual_now;
}

void __wrap_SDL_Delay(Uint32 span) {
    const bool is_main = std::this_thread::get_id() == MAIN_THREAD;
    virtual_now += is_main ? span : 0;
    if (harness.render_thread)
        usleep(is_main ? TURN_US : REST_US);
    else if (render_running && harness.render_turn(span == PAUSE_POLL_MS))
        render_pass();
}

void __wrap_SDL_PumpEvents() {
    __real_SDL_PumpEvents();
    if (screen_current() != SCREEN_NONE) // start-up polls, too
        harness.frame();
}

SDL_Thread *__wrap_SDL_CreateThread(int (*body)(void *), void *data) {
    static int stand_in;
    if (harness.render_thread)
        return __real_SDL_CreateThread(body, data);
    if (harness.thread_fails()) {
        SDL_SetError("made to fail");
        return nullptr;
    }
    render_pass();
    return reinterpret_cast<SDL_Thread *>(&stand_in);
}

void __wrap_SDL_WaitThread(SDL_Thread *thread, int *result) {
    if (harness.render_thread)
        return __real_SDL_WaitThread(thread, result);
    render_pass();
    render_running = false;
}

void __wrap_srand(unsigned) {}
int __wrap_rand() {
    return static_cast<int>(program_dice() >> 1);
}
}
