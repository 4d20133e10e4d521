// draw_queue.h: the pair of command lists between the main thread, which records, and the render thread, which plays.
//
// Everything here is under the render lock, but that `pending` may also be read without it. The block of the list
// that was taken last is read outside the lock: the main thread writes lists only while `idle` is set, and taking
// a list clears it. Blocks are reused frame after frame and freed by draw_queue_free.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <atomic>
#include <span>

struct draw_block {
    u8 *bytes; // owned
    i32 length, capacity;
};

struct draw_queue_state {
    draw_block lists[2];
    i32 recording;                    // the list that draw_list_add appends to
    std::atomic<bool> pending{false}; // something was recorded since the last take
    bool idle;                        // the render thread has finished its pass and may be given a list
};
inline draw_queue_state draw_queue;

// Takes what was recorded and turns recording to the other list; empty when nothing is pending.
std::span<const u8> draw_queue_take();
void draw_queue_free(); // back to the state before start-up
