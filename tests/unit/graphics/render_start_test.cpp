// render_start_test.cpp: a screen that draws directly before the render thread has come to run.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app_state.h"
#include "graphics/locks.h"
#include "unit/graphics/stage.h"

#include <SDL_thread.h>

static int (*held_body)(void *) = nullptr; // started, but not running yet
static bool hold_thread = false;

extern "C" SDL_Thread *__real_SDL_CreateThread(int (*body)(void *), void *data);
extern "C" SDL_Thread *__wrap_SDL_CreateThread(int (*body)(void *), void *data) {
    if (!hold_thread)
        return __real_SDL_CreateThread(body, data);
    static int stand_in;
    held_body = body;
    return reinterpret_cast<SDL_Thread *>(&stand_in);
}

TEST(thread, that_has_not_run_yet_is_kept_off_the_screen) {
    const stage on(16);
    app_state state{};
    app = &state;
    hold_thread = true;
    EXPECT_NE(render_start(), nullptr);
    render_pause(1);
    EXPECT_TRUE(lock_is_held(surface_lock));
    render_resume();
    state.flags |= APP_QUIT; // one pass
    EXPECT_EQ(held_body(nullptr), 1);
    EXPECT_FALSE(render_running.load());
    hold_thread = false;
    app = nullptr;
}
