// cursor.h: the drawn mouse pointer, which stands in for the system's own.
//
// Main thread. Only cursor_init can fail; the module owns the pictures.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "input/cursor_shapes.h"

[[nodiscard]] i32 cursor_init(); // 1, or -1 when a picture cannot be loaded (logged); hides the system's pointer
void cursor_shutdown();          // frees the pictures and shows the system's pointer again
void cursor_select(i32 shape);   // other values are ignored
void cursor_show(bool on);       // hidden at the start
void cursor_draw();              // records it; the last thing but the help bubbles in a frame
