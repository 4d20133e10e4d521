// blit.h: the picture routines of the screen's depth, as the command players call them.
//
// The table is chosen once at start-up and null before. The routines write a frame buffer, so they run under the
// surface lock; each cuts to the buffer it draws in.
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
inline const blit_routines *blit = nullptr;

// Chooses the table and sets the colour key; before any picture is loaded. 1, or -1 (logged) at a depth other than 16
// or 32 bits.
[[nodiscard]] i32 blit_init();
