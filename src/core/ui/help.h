// help.h: help bubbles with pointer lines, and the hidden debug mode's key sequence. Main thread; nothing fails.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <span>

inline constexpr i32 HELP_LINES = 3;   // pointer lines of a bubble, at most
inline constexpr i32 HELP_BUBBLES = 6; // shown one after the other, at most; what is beyond is left out

// A pointer line from its bubble to what that explains, in window pixels.
struct help_line {
    i32 from_x, from_y, to_x, to_y;
};

// A bubble, as a row of a table.
struct help_row {
    const char *text; // a literal
    i32 x, y;         // as text_draw takes it; or one of the two below in place of x
    i32 start_frame;  // help frame from which the bubble shows
    i32 line_count;   // 0..3
    help_line lines[HELP_LINES];
};
inline constexpr i32 HELP_CENTRED = -1;       // in the window
inline constexpr i32 HELP_RIGHT_ALIGNED = -2; // the text ends near the window's right edge

i32 help_init();                                // also clears the settings word; 1
void help_show(std::span<const help_row> rows); // from the next help_step on; ignored while others show
void help_stop();
void help_step(); // once a frame, after the screen's update
void help_draw(); // the overlay: mouse cursor, then bubbles
