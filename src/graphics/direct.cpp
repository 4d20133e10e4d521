// direct.cpp: drawing straight onto the screen while the render thread is paused.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/direct.h"

#include "graphics/blit.h"
#include "graphics/frame_buffers.h"
#include "graphics/prim.h"
#include "graphics/repeat.h"

// The screen's pixels, for something that is not in a list.
struct direct_access : screen_access {
    direct_access() { repeat_forget(); }
};

void screen_show_background(i32 x, i32 y, i32 w, i32 h) {
    const direct_access access;
    frame_show_background({x, y, w, h});
}

void direct_store_background(const rect &area) {
    const direct_access access;
    frame_copy(frames.background, frames.screen, area);
}

void direct_fill(const rect &area, rgb colour) {
    const direct_access access;
    prim->fill(frames.screen, area, colour);
}

void direct_image(const image *picture, i32 x, i32 y) {
    const direct_access access;
    blit->plain(frames.screen, *picture, x, y);
}
