// help.h: help bubbles with pointer lines, and the hidden debug mode's key sequence. Main thread.
//
// A screen calls help_clear, help_bubble_create and help_add for each bubble, then help_start.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline constexpr i32 HELP_LINES = 3; // pointer lines of a bubble, at most

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

[[nodiscard]] i32 help_init();                   // also clears the settings word; 1, or -1 when out of memory (logged)
void help_shutdown();                            // safe when help_init never ran
[[nodiscard]] help_bubble *help_bubble_create(); // white, pulsing, without text; null when out of memory (logged)
void help_clear();                               // no bubbles, first frame, not showing
void help_add(help_bubble *bubble);              // takes ownership; when out of memory (logged) the bubble is freed
void help_start();                               // shows the bubbles from the next help_step on
void help_stop();                                // hides them; they stay until help_clear
void help_step();                                // once a frame, after the screen's update
void help_draw();                                // the overlay: mouse cursor, then bubbles

// A pointer line from its bubble to what that explains, in window pixels.
struct help_line {
    i32 from_x, from_y, to_x, to_y;
};

// A whole bubble as one row of a table.
struct help_row {
    const char *text;
    i32 x, y;
    i32 start_frame;
    i32 line_count;
    help_line lines[HELP_LINES];
};
void help_add_row(const help_row &row); // left out when out of memory (logged)
