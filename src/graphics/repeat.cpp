// repeat.cpp: the list that was played last, and whether it has settled.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/repeat.h"

#include "core/base/log.h"
#include "graphics/draw_ops.h"
#include "graphics/draw_queue.h"
#include "graphics/frame_buffers.h"
#include "graphics/locks.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

// Plays in a row that left the screen as the window shows it: the first tells that they were equal before the
// second, the second that it kept them so.
static constexpr i32 STEADY_PLAYS = 2;

static struct {
    draw_block last; // owned; a copy of the list that was played last, of length 0 when there is none
    u32 pictures;    // image_changes() when it was taken
    bool repeatable;
    i32 settled; // of STEADY_PLAYS
} repeat;

template <class Operands> static Operands operands_at(const u8 *at) {
    Operands op{};
    std::memcpy(&op, at, sizeof op);
    return op;
}

// The save slots that a list uses, one bit a slot.
struct slot_use {
    u32 saved, needed; // needed: restored before the list saved anything in it
};

// False when the slot holds what an earlier play left there.
static bool use_slot(slot_use *use, draw_opcode id, i32 slot) {
    if (slot < 0 || slot >= SAVE_SLOTS)
        return false;
    const u32 bit = u32{1} << slot;
    if (id == DRAW_SAVE)
        use->saved |= bit;
    else if ((use->saved & bit) == 0)
        use->needed |= bit;
    return (use->saved & use->needed) == 0;
}

static bool is_repeatable(const draw_command &command, const u8 *operands, slot_use *use) {
    switch (command.reach) {
    case REACH_SCREEN:
        return true;
    case REACH_SLOT:
        return use_slot(use, command.id, operands_at<slot_operands>(operands).slot);
    case REACH_MODE:
        return (operands_at<image_ex_operands>(operands).mode & (BLIT_TO_BG | BLIT_NOISE)) == 0;
    case REACH_TARGET:
        return operands_at<text_operands>(operands).to_background == 0;
    case REACH_FURTHER:
        break;
    }
    return false;
}

// Whether playing the list gives a screen that depends on nothing but the screen before and what no list like it
// changes. A damaged one is played each time, for its message.
static bool list_is_repeatable(std::span<const u8> list) {
    slot_use use = {};
    while (!list.empty()) {
        const u8 opcode = list[0];
        list = list.subspan(1);
        if (opcode >= DRAW_OPCODE_COUNT)
            return false;
        const draw_command &command = DRAW_COMMANDS[opcode];
        const auto size = static_cast<std::size_t>(command.size);
        if (size > list.size() || !is_repeatable(command, list.data(), &use))
            return false;
        list = list.subspan(size);
    }
    return true;
}

static bool is_last(std::span<const u8> list, u32 pictures) {
    const std::span<const u8> last(repeat.last.bytes, static_cast<std::size_t>(repeat.last.length));
    return !list.empty() && repeat.pictures == pictures && std::ranges::equal(list, last);
}

// Without memory for the copy the list is not recognised again, and played.
static void remember(std::span<const u8> list, u32 pictures) {
    repeat_forget();
    const auto length = static_cast<i32>(list.size());
    if (length > repeat.last.capacity) {
        auto *bytes = static_cast<u8 *>(std::realloc(repeat.last.bytes, list.size()));
        if (bytes == nullptr) {
            log_out_of_memory();
            return;
        }
        repeat.last.bytes = bytes;
        repeat.last.capacity = length;
    }
    std::ranges::copy(list, repeat.last.bytes);
    repeat.last.length = length;
    repeat.pictures = pictures;
    repeat.repeatable = list_is_repeatable(list);
}

static bool screen_is_shown() {
    const screen_access access;
    return access.open && frame_equal(frames.screen, frames.shown);
}

bool repeat_is_steady(std::span<const u8> list, u32 pictures) {
    lock_assert(surface_lock);
    return repeat.settled >= STEADY_PLAYS && is_last(list, pictures);
}

void repeat_note(std::span<const u8> list, u32 pictures, bool shown) {
    lock_assert(surface_lock);
    if (!is_last(list, pictures))
        remember(list, pictures);
    else if (repeat.repeatable)
        repeat.settled = !shown && screen_is_shown() ? repeat.settled + 1 : 0;
}

void repeat_forget() {
    lock_assert(surface_lock);
    repeat.last.length = 0;
    repeat.settled = 0;
}

void repeat_free() {
    std::free(repeat.last.bytes);
    repeat = {};
}
