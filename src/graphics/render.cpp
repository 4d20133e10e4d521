// render.cpp: the render thread's loop, recording under its lock, and pausing it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/render.h"

#include "core/base/app_state.h"
#include "graphics/dirty.h"
#include "graphics/draw_play.h"
#include "graphics/draw_queue.h"
#include "graphics/frame_buffers.h"
#include "graphics/locks.h"
#include "graphics/repeat.h"

#include <SDL_timer.h>

static constexpr i32 PASS_PERIOD_MS = 5;
static constexpr u32 POLL_MS = 1;

static void play(std::span<const u8> list) {
    const screen_access access;
    if (access.open && frames.missed) {
        frames.missed = false;
        frame_show_background(WHOLE_SCREEN);
        dirty_add(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
    }
    draw_list_play(list);
}

static std::span<const u8> take_list() {
    const lock_scope guard(render_lock);
    return draw_queue_take();
}

static void set_idle() {
    const lock_scope guard(render_lock);
    draw_queue.idle = true;
}

void render_pass() {
    const std::span<const u8> list = take_list();
    const u32 pictures = image_changes();
    {
        const lock_scope guard(surface_lock);
        if (list.empty() || repeat_is_steady(list, pictures)) {
            dirty_flush();
        } else {
            play(list);
            repeat_note(list, pictures, dirty_show());
        }
    }
    set_idle();
}

// A pass that finds nothing recorded changes nothing, so it is put off until there is something: each time the thread
// is woken costs more than such a pass.
static int render_thread(void *) {
    set_idle();
    for (;;) {
        const u32 start = SDL_GetTicks();
        render_pass();
        if (app_has(APP_QUIT)) {
            render_running.store(false);
            return 1;
        }
        draw_queue.pending.wait(false);
        const i32 wait = PASS_PERIOD_MS - static_cast<i32>(SDL_GetTicks() - start);
        if (wait > 0)
            SDL_Delay(static_cast<u32>(wait));
    }
}

bool render_begin_frame() {
    lock_take(render_lock);
    return draw_queue.idle;
}

void render_end_frame() {
    lock_release(render_lock);
    draw_queue.pending.notify_one();
}

// Makes the render thread take a list even when nothing was recorded.
static void force_take() {
    {
        const lock_scope guard(render_lock);
        draw_queue.pending.store(true);
    }
    draw_queue.pending.notify_one();
}

// Ends with the surface lock held and no list pending. A render thread that has ended takes no more lists, so
// nobody waits for it.
static void take_surface_after_list() {
    lock_take(surface_lock);
    while (draw_queue.pending.load() && render_running.load()) {
        lock_release(surface_lock);
        SDL_Delay(POLL_MS);
        lock_take(surface_lock);
    }
}

// The thread counts as running before it does: a screen that draws directly in the first frames must wait for it, too.
SDL_Thread *render_start() {
    render_running.store(true);
    SDL_Thread *thread = SDL_CreateThread(render_thread, nullptr);
    if (thread == nullptr)
        render_running.store(false);
    return thread;
}

void render_stop(SDL_Thread *thread) {
    force_take();
    SDL_WaitThread(thread, nullptr);
}

void render_pause(i32 n) {
    if (!render_running.load() || n < 1)
        return;
    take_surface_after_list();
    for (i32 i = 1; i < n; ++i) {
        lock_release(surface_lock);
        force_take();
        take_surface_after_list();
    }
}

void render_resume() {
    if (lock_is_held(surface_lock))
        lock_release(surface_lock);
}

static bool all_played() {
    const lock_scope guard(render_lock);
    return draw_queue.idle && !draw_queue.pending.load();
}

void render_wait_until_played() {
    while (render_running.load() && !all_played())
        SDL_Delay(POLL_MS);
}
