// draw_play.cpp: the dispatch of drawing commands, and their players.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/draw_play.h"

#include "core/base/log.h"
#include "graphics/blit.h"
#include "graphics/dirty.h"
#include "graphics/draw_ops.h"
#include "graphics/frame_buffers.h"
#include "graphics/glyphs.h"
#include "graphics/locks.h"
#include "graphics/prim.h"

#include <algorithm>
#include <cstdlib>

void draw_list_play(std::span<const u8> list) {
    lock_assert(surface_lock);
    std::size_t at = 0;
    while (at < list.size()) {
        const u8 opcode = list[at++];
        if (opcode >= DRAW_OPCODE_COUNT) {
            log_error("Unknown drawing command: %i\n", opcode);
            return;
        }
        const draw_command &command = DRAW_COMMANDS[opcode];
        const auto size = static_cast<std::size_t>(command.size);
        if (size > list.size() - at) {
            log_error("Cut drawing command: %i\n", opcode);
            return;
        }
        command.play(list.data() + at);
        at += size;
    }
}

static void mark(const rect &area) {
    dirty_add(area.x, area.y, area.w, area.h);
}

static void mark_if(i32 flag, const rect &area) {
    if (flag != 0)
        mark(area);
}

// --- Pictures ------------------------------------------------------------------------------------

void perform_image(const image_operands &op) {
    if (!draw_is_visible(*op.picture, op.x, op.y))
        return;
    blit->plain(frames.screen, *op.picture, op.x, op.y);
    mark({op.x, op.y, op.picture->width, op.picture->height});
}

void perform_image_bg(const image_operands &op) {
    if (draw_is_visible(*op.picture, op.x, op.y))
        blit->plain(frames.background, *op.picture, op.x, op.y);
}

void perform_image_ex(const image_ex_operands &op) {
    if (!draw_is_visible(*op.picture, op.x, op.y))
        return;
    blit->by_mode((op.mode & BLIT_TO_BG) != 0 ? frames.background : frames.screen, op);
    if ((op.mode & BLIT_NO_DIRTY) != 0)
        return;
    if ((op.mode & BLIT_SOURCE_RECT) != 0)
        mark({op.x, op.y, op.source.w, op.source.h});
    else
        mark({op.x, op.y, op.picture->width, op.picture->height});
}

void perform_image_clipped(const image_clipped_operands &op) {
    if (!draw_is_visible(*op.picture, op.x, op.y))
        return;
    blit->clipped(frames.screen, *op.picture, op.x, op.y, op.clip);
    mark(op.clip);
}

void perform_image_clipped_bg(const image_clipped_operands &op) {
    if (draw_is_visible(*op.picture, op.x, op.y))
        blit->clipped(frames.background, *op.picture, op.x, op.y, op.clip);
}

void perform_free_image(const free_image_operands &op) {
    image_free(op.picture);
}

// --- Text ----------------------------------------------------------------------------------------

void perform_text(const text_operands &op) {
    glyph *g = &glyphs[op.slot];
    if (!glyph_exists(*g) || !draw_is_visible(*g->working, op.x, op.y))
        return;
    glyph_use_colour(g, op.red, op.green, op.blue);
    blit->plain(op.to_background != 0 ? frames.background : frames.screen, *g->working, op.x, op.y);
    mark({op.x, op.y, g->width, g->height});
}

// --- Rectangles and lines ------------------------------------------------------------------------

void perform_darken(const area_operands &op) {
    prim->darken(frames.screen, op.area);
    mark(op.area);
}

void perform_darken_bg(const area_operands &op) {
    prim->darken(frames.background, op.area);
    mark(op.area);
}

void perform_fill(const fill_operands &op) {
    prim->fill(frames.screen, op.area, op.colour);
    mark_if(op.dirty, op.area);
}

void perform_fill_bg(const fill_operands &op) {
    prim->fill(frames.background, op.area, op.colour);
    mark_if(op.dirty, op.area);
}

void perform_frame(const fill_operands &op) {
    const auto [x, y, w, h] = op.area;
    prim->frame(frames.screen, op.area, op.colour);
    mark_if(op.dirty, {x, y, w, 1});
    mark_if(op.dirty, {x, y, 1, h});
    mark_if(op.dirty, {x + w - 1, y, 1, h});
    mark_if(op.dirty, {x, y + h - 1, w, 1});
}

void perform_pixel(const pixel_operands &op) {
    const rect area = {op.x, op.y, 1, 1};
    prim->fill(frames.screen, area, op.colour);
    mark_if(op.dirty, area);
}

void perform_line(const line_operands &op) {
    prim->line(frames.screen, op.x0, op.y0, op.x1, op.y1, op.colour);
    mark_if(op.dirty,
            {std::min(op.x0, op.x1), std::min(op.y0, op.y1), std::abs(op.x1 - op.x0) + 1, std::abs(op.y1 - op.y0) + 1});
}

void perform_noise_bg(const noise_operands &op) {
    prim->noise(frames.background, rect_push_in(op.area, SCREEN_WIDTH, SCREEN_HEIGHT), op.limits);
}

// --- Copies between the buffers ------------------------------------------------------------------

void perform_restore(const area_operands &op) {
    frame_show_background(op.area);
    mark(op.area);
}

void perform_save(const slot_operands &op) {
    slot_save(op.slot, op.area);
}

void perform_restore_saved(const slot_operands &op) {
    slot_restore(op.slot);
}

void perform_store_bg(const area_operands &op) {
    frame_copy(frames.background, frames.screen, op.area);
}

void perform_push_bg(const no_operands &) {
    frame_copy(frames.spare, frames.background, WHOLE_SCREEN);
}

void perform_pop_bg(const no_operands &) {
    frame_copy(frames.background, frames.spare, WHOLE_SCREEN);
}

void perform_dirty(const area_operands &op) {
    mark(op.area);
}
