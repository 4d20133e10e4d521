// whole_program.cpp: the functions that the linker puts in the place of the poll and the threads.
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

static constexpr u32 PAUSE_POLL_MS = 1; // the program waits for the render thread

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

static void render_in_turn(u32 span) {
    if (!harness.render_thread && render_running && harness.render_turn(span == PAUSE_POLL_MS))
        render_pass();
}

void virtual_time_start() {
    fake_reset();
    fake_mouse_move(SCREEN_WIDTH / 2, SCREEN_HEIGHT / 2);
    fake_time_start(1);
    fake_slept = render_in_turn;
}

extern "C" {
void __real_SDL_PumpEvents();
SDL_Thread *__real_SDL_CreateThread(int (*body)(void *), void *data);
void __real_SDL_WaitThread(SDL_Thread *thread, int *result);

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
}
