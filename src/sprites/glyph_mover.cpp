// glyph_mover.cpp: moves one picture in a straight line in a fixed number of frames.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/glyph_mover.h"

#include "graphics/draw_list.h"

#include <algorithm>
#include <cstdlib>

namespace {

i32 step_length(i32 distance, i32 frames) {
    return std::abs(distance) > frames ? distance / frames : distance;
}

// Moves one axis; true when it is done: it stood on the target already, or was held there.
bool step_axis(i32 &position, i32 target, i32 step) {
    if (position == target)
        return true;
    const bool from_below = position < target;
    position += step;
    const bool beyond = from_below ? position > target : position < target;
    if (beyond)
        position = target;
    return beyond;
}

} // namespace

void glyph_mover_start(glyph_mover *m, const image *glyph, point from, point to, i32 frames) {
    frames = std::max(frames, 1);
    *m = {.glyph = glyph,
          .flags = 0,
          .x = from.x,
          .y = from.y,
          .target_x = to.x,
          .target_y = to.y,
          .step_x = step_length(to.x - from.x, frames),
          .step_y = step_length(to.y - from.y, frames)};
}

void glyph_mover_send(glyph_mover *m, point to, i32 frames) {
    glyph_mover_start(m, m->glyph, {m->x, m->y}, to, frames);
}

void glyph_mover_step(glyph_mover *m) {
    if (m->glyph == nullptr || glyph_mover_arrived(m))
        return;
    const bool x_done = step_axis(m->x, m->target_x, m->step_x);
    const bool y_done = step_axis(m->y, m->target_y, m->step_y);
    if (x_done && y_done)
        m->flags |= GLYPH_ARRIVED;
}

void glyph_mover_finish(glyph_mover *m) {
    m->x = m->target_x;
    m->y = m->target_y;
    m->flags |= GLYPH_ARRIVED;
}

void glyph_mover_draw(const glyph_mover *m) {
    if (m->glyph != nullptr)
        draw_image(m->glyph, m->x, m->y, true);
}
