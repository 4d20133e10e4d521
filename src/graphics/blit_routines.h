// blit_routines.h: the picture routines and primitives of the screen's depth, as the command players call them.
//
// The tables are chosen once at start-up (blit_init, prim_init) and null before. The routines write a frame buffer,
// so they run under the surface lock; each cuts to the buffer it draws in.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "graphics/draw_ops.h"
#include "graphics/frame_buffers.h"

struct blit_routines {
    void (*plain)(const frame_buffer &to, const image &picture, i32 x, i32 y);
    void (*clipped)(const frame_buffer &to, const image &picture, i32 x, i32 y, const rect &clip);
    void (*by_mode)(const frame_buffer &to, const image_ex_operands &op);
};

struct prim_routines {
    void (*darken)(const frame_buffer &to, const rect &area);
    void (*fill)(const frame_buffer &to, const rect &area, rgb colour);
    void (*frame)(const frame_buffer &to, const rect &area, rgb colour);              // one pixel wide
    void (*line)(const frame_buffer &to, i32 x0, i32 y0, i32 x1, i32 y1, rgb colour); // end point not drawn
    void (*noise)(const frame_buffer &to, const rect &area, rgb limits);
};

inline const blit_routines *blit = nullptr;
inline const prim_routines *prim = nullptr;
