// number_entry.h: the keypad's answer display: typed digits fly in, fly on when entered, and scatter when wrong.
//
// Main thread. number_entry_create is the only one to fail; the caller frees the entry and keeps the digit
// pictures alive. number_entry_update is called once a frame; who owns the entry reads its flags afterwards
// and decides what a right or wrong answer means.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"
#include "sprites/glyph_mover.h"

inline constexpr u32 ENTRY_ENTERED = 0x1;    // the digits are flying to (dest_x, dest_y)
inline constexpr u32 ENTRY_ARRIVED = 0x2;    // the entered digits are all there
inline constexpr u32 ENTRY_CORRECT = 0x4;    // the entered number was the expected one
inline constexpr u32 ENTRY_SCATTERING = 0x8; // the digits are flying to the window's border
inline constexpr u32 ENTRY_CLOSED = 0x10;    // no typing or deleting until cleared

inline constexpr i32 ENTRY_DIGIT_COUNT = 10;

struct number_entry {
    i32 x, y;           // top-left corner of the display, window pixels
    i32 dest_x, dest_y; // where the digits fly when the answer is entered
    u32 flags;
    const image *const *digits; // borrowed; pictures of the digits 0..9
    glyph_mover *movers;        // owned; one a character
    char *text;                 // owned; the typed digits, zero-terminated
    i32 capacity;               // most digits that can be typed
};

[[nodiscard]] number_entry *number_entry_create(i32 capacity); // null when out of memory (logged)
void number_entry_free(number_entry *e);                       // accepts null
void number_entry_clear(number_entry *e);                      // empty and open; keeps its places and pictures

i32 number_entry_length(const number_entry *e); // digits typed
i32 number_entry_value(const number_entry *e);  // 0 when empty

// Types a digit 0..9, which flies in from the centre of the key's rectangle. Ignored when entered, closed or
// full, and for a leading 0.
void number_entry_add_digit(number_entry *e, const rect &key, i32 digit);
void number_entry_backspace(number_entry *e); // the last digit vanishes, even in flight; ignored when closed

// Compares the number with the expected one and sends the digits on; ignored when entered or closed.
void number_entry_submit(number_entry *e, i32 expected);
void number_entry_scatter(number_entry *e); // the digits fly to random places on the window's border

void number_entry_update(number_entry *e);     // one frame; clears the entry when scattered digits have arrived
void number_entry_draw(const number_entry *e); // records the digits where they are
