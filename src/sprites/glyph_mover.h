// glyph_mover.h: moves one picture in a straight line in a fixed number of frames.
//
// Main thread. The picture is borrowed. Nothing fails.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"

inline constexpr u32 GLYPH_ARRIVED = 0x1; // stands on its target

struct glyph_mover {
    const image *glyph; // borrowed; null: the slot is empty
    u32 flags;
    i32 x, y; // top-left corner now, window pixels
    i32 target_x, target_y;
    i32 step_x, step_y; // pixels per frame
};

// In the given number of frames (at least 1). A distance that is not longer than the number of frames is covered in
// the first of them.
void glyph_mover_start(glyph_mover *m, const image *glyph, point from, point to, i32 frames);
void glyph_mover_send(glyph_mover *m, point to, i32 frames); // likewise, from where it is
void glyph_mover_step(glyph_mover *m);       // one frame; arrival is noticed in the frame after landing exactly
void glyph_mover_finish(glyph_mover *m);     // jumps to the target
void glyph_mover_draw(const glyph_mover *m); // nothing for an empty slot

// Also true of a slot that was emptied.
inline bool glyph_mover_arrived(const glyph_mover *m) {
    return (m->flags & GLYPH_ARRIVED) != 0;
}
