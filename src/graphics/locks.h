// locks.h: the two locks between the main thread and the render thread.
//
// The render lock guards the command lists, the pending and the idle flag; the surface lock guards the frame
// buffers, the save slots, the dirty rectangles and the glyphs' working pictures. No thread ever holds both. Both
// locks are made by video_init and destroyed by video_shutdown; taking one that was never made does nothing.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <SDL_mutex.h>

#include <atomic>
#include <cassert>

struct lock {
    SDL_mutex *mutex; // owned by video_init and video_shutdown
    u32 bit;          // its bit in locks_held
};
inline lock render_lock = {nullptr, 0x1};
inline lock surface_lock = {nullptr, 0x2};

// The locks that the calling thread holds.
inline constinit thread_local u32 locks_held = 0;

// Set while the render thread's loop runs. While it is clear there is one thread, and nobody needs a lock.
inline std::atomic<bool> render_running{false};

// Whether the calling thread holds it.
inline bool lock_is_held(const lock &which) {
    return (locks_held & which.bit) != 0;
}

// Ends a debug build that touches what the lock guards without holding it.
inline void lock_assert([[maybe_unused]] const lock &which) {
    assert(lock_is_held(which) || !render_running.load());
}

// Waits for the lock. A thread that holds one may not take another.
inline void lock_take(const lock &which) {
    assert(locks_held == 0);
    SDL_mutexP(which.mutex);
    locks_held |= which.bit;
}

// By the thread that holds it.
inline void lock_release(const lock &which) {
    assert(lock_is_held(which));
    locks_held &= ~which.bit;
    SDL_mutexV(which.mutex);
}

// Holds a lock to the end of a block.
struct lock_scope {
    const lock &which;
    explicit lock_scope(const lock &taken) : which(taken) { lock_take(which); }
    ~lock_scope() { lock_release(which); }
    lock_scope(const lock_scope &) = delete;
    lock_scope &operator=(const lock_scope &) = delete;
};
