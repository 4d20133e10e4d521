// screen.h: the screen manager: which screen is current, its per-frame operations, changes at the end of a frame.
//
// Main thread. Screens ask for a change with screen_request (core/screen_id.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/screen_id.h"

// Operations of the seven screens, operation-major. A null entry is skipped.
struct screen_operations {
    i32 (*init[SCREEN_COUNT])();      // once at start-up; negative: failure
    void (*shutdown[SCREEN_COUNT])(); // once at exit
    void (*update[SCREEN_COUNT])();   // every frame while current, after input is polled
    void (*draw[SCREEN_COUNT])();     // every recorded frame while current, under the render lock
    void (*tick[SCREEN_COUNT])();     // every frame while current, first of all
    void (*late[SCREEN_COUNT])();     // every frame while current, after drawing, before a change
    void (*enter[SCREEN_COUNT])();
    void (*leave[SCREEN_COUNT])();
};
extern const screen_operations screen_table; // screens/screen_table.cpp

i32 screen_init_all(); // 1, or -1 when a screen failed
void screen_shutdown_all();
void screen_activate(screen_id id);
void screen_tick();
void screen_update();
void screen_draw();
void screen_end_frame();
void screen_request_redraw(); // the next recorded frame restores the whole window
screen_id screen_current();
