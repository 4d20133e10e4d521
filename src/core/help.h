// help.h: help bubbles with pointer lines, and the hidden debug mode's key sequence. Main thread.
//
// A screen calls help_clear, help_bubble_create and help_add for each bubble, then help_start.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/types.h"

inline constexpr i32 HELP_LINES = 3;

struct help_bubble {
    char *text; // owned
    i32 x, y;   // as text_draw takes it
    i32 line_from_x[HELP_LINES], line_from_y[HELP_LINES];
    i32 line_to_x[HELP_LINES], line_to_y[HELP_LINES];
    i32 red, green, blue; // current text colour
    i32 start_frame;      // help frame from which the bubble shows
    i32 line_count;       // 0..3
    i32 pulse_step;       // colour change per frame
    u32 bubble_flags;     // HELP_STEADY
};
inline constexpr u32 HELP_STEADY = 0x1; // pulsing has stopped

i32 help_init(); // 1, or -1 when out of memory
void help_shutdown();
[[nodiscard]] help_bubble *help_bubble_create(); // null when out of memory (logged)
void help_clear();
void help_add(help_bubble *bubble); // takes ownership
void help_start();
void help_stop();
void help_step(); // once a frame
void help_draw(); // the overlay: mouse cursor, then bubbles

// A pointer line, and a whole bubble as one row of a table.
struct help_line {
    i32 from_x, from_y, to_x, to_y;
};
struct help_row {
    const char *text;
    i32 x, y;
    i32 start_frame;
    i32 line_count;
    help_line lines[HELP_LINES];
};
void help_add_row(const help_row &row);
