// draw_queue.cpp: handing the recorded list over.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/draw_queue.h"

#include "graphics/locks.h"

#include <cstdlib>

std::span<const u8> draw_queue_take() {
    lock_assert(render_lock);
    if (!draw_queue.pending.load())
        return {};
    draw_queue.pending.store(false);
    draw_block *list = &draw_queue.lists[draw_queue.recording];
    const std::span<const u8> taken(list->bytes, static_cast<std::size_t>(list->length));
    list->length = 0;
    draw_queue.recording ^= 1;
    draw_queue.idle = false;
    return taken;
}

void draw_queue_free() {
    for (draw_block &list : draw_queue.lists) {
        std::free(list.bytes);
        list = {};
    }
    draw_queue.recording = 0;
    draw_queue.pending.store(false);
    draw_queue.idle = false;
}
