// screen.h: the screen manager: which screen is current, its per-frame operations, changes at the end of a frame.
//
// Main thread. The main loop calls tick, update, draw and end_frame in this order; screens ask for a change with
// screen_request. Only screen_init_all can fail.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/screen_id.h"

// Operations of the seven screens, operation-major. A null entry is skipped.
struct screen_operations {
    i32 (*init[SCREEN_COUNT])();      // once at start-up; negative: failure
    void (*shutdown[SCREEN_COUNT])(); // once at exit
    void (*update[SCREEN_COUNT])();   // every frame while current, after input is polled
    void (*draw[SCREEN_COUNT])();     // every recorded frame while current, under the render lock
    void (*tick[SCREEN_COUNT])();     // every frame while current, first of all
    void (*late[SCREEN_COUNT])();     // every frame while current, after drawing, before a change
    void (*enter[SCREEN_COUNT])();    // when it becomes current
    void (*leave[SCREEN_COUNT])();    // when it stops being current
};

// Initialises every screen of the table, which must outlive them, and enters the splash screen. 1, or -1 at the
// first screen that failed.
[[nodiscard]] i32 screen_init_all(const screen_operations &table);
void screen_shutdown_all(); // screens that were never initialised must bear it
void screen_tick();         // first in a frame
void screen_update();       // takes the frame's input snapshot first, steps the help bubbles last
void screen_draw();         // records the frame, if the render thread is ready for one
void screen_end_frame();    // carries out the frame's request, starts its sounds
// Asks for a screen, for the end of the frame: the last request wins, one for the current screen does nothing.
void screen_request(screen_id id);
void screen_request_redraw(); // the next recorded frame restores the whole window
screen_id screen_current();   // SCREEN_NONE before screen_init_all
