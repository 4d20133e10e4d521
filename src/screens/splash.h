// splash.h: the first screen, which is also the last: all puzzles at a glance, a picture and two buttons. Main
// thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// The screen's operations, for the screen table.
[[nodiscard]] i32 splash_init(); // 1, or -1 when a picture cannot be loaded or memory is short (logged)
void splash_shutdown();
void splash_enter();
void splash_update();
void splash_draw();

void splash_layout_opening(); // web page and continue, which leads to the title screen
void splash_layout_closing(); // web page and quit, which ends the program
