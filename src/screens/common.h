// common.h: the small things that several screens do alike. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "core/ui/button.h"

inline constexpr i32 COLUMN_RIGHT = 795;                      // right end of the button columns
inline constexpr i32 COLUMN_BOTTOM = 595;                     // bottom of their lowest button
inline constexpr i32 BUTTON_GAP = 5;                          // between the buttons
inline constexpr i32 PLAYER_NAME_X = 15, PLAYER_NAME_Y = 582; // reference line of the name

// Top of the nth button from the bottom (1 the lowest) in a column of buttons h pixels high.
constexpr i32 column_top(i32 n, i32 h) {
    return COLUMN_BOTTOM - BUTTON_GAP * (n - 1) - n * h;
}

// Button callbacks.
void quit_to_web_page(button *, std::intptr_t, std::intptr_t);
void request_screen(button *, std::intptr_t id, std::intptr_t); // arg1: the screen_id

// The web-page button with the title screen's pictures; left out when out of memory (logged).
void add_web_button(ptr_array<button> *list, i32 x, i32 y);

// Moves the hover from *hovered to `hit` (either may be null).
void button_change_hover(button **hovered, button *hit);

// Presses the hovered button when the left mouse button went down, releases it when that is not held.
void button_follow_mouse(button *hovered);
