// prim.h: the drawing primitives of the screen's depth, as the command players call them.
//
// The table is chosen once at start-up and null before. The routines write a frame buffer, so they run under the
// surface lock; each cuts to the buffer it draws in.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "graphics/frame_buffers.h"

struct prim_routines {
    void (*darken)(const frame_buffer &to, const rect &area);
    void (*fill)(const frame_buffer &to, const rect &area, rgb colour);
    void (*frame)(const frame_buffer &to, const rect &area, rgb colour);              // one pixel wide
    void (*line)(const frame_buffer &to, i32 x0, i32 y0, i32 x1, i32 y1, rgb colour); // end point not drawn
    void (*noise)(const frame_buffer &to, const rect &area, rgb limits);
};
inline const prim_routines *prim = nullptr;

[[nodiscard]] i32 prim_init(); // chooses the table; 1, or -1 (logged) at a depth other than 16 or 32 bits
