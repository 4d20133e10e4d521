// sprite_draw.cpp: records a sprite's drawing commands.
//
// The tabs stick out above and to the left. The sockets are windows in the body: what lay under them is saved
// before the body is drawn and put back afterwards, and the socket's picture frames it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/sprite_draw.h"

#include "graphics/draw_list.h"

#include <initializer_list>

namespace {

enum save_slot : i32 { SLOT_BOTTOM = 0, SLOT_RIGHT = 1 };

constexpr i32 LABEL_TOP_MARGIN = 3; // pixels
constexpr u32 SILHOUETTE = BLIT_FILL | BLIT_NO_DIRTY;
constexpr u32 TINT = BLIT_TINT | BLIT_NO_DIRTY;

point label_place(const sprite *s) {
    return {centre_in(s->x, s->body->width, s->label->width), (s->flags & SPRITE_LABEL_TOP) != 0
                                                                  ? s->y + LABEL_TOP_MARGIN
                                                                  : centre_in(s->y, s->body->height, s->label->height)};
}

const image *edge_picture(const sprite *s, sprite_edge e) {
    const image *const pictures[EDGE_COUNT] = {s->img_top, s->img_right, s->img_bottom, s->img_left};
    return pictures[e];
}

i32 edge_depth(const sprite *s, sprite_edge e) {
    const i32 depths[EDGE_COUNT] = {s->ext_top, s->ext_right, s->ext_bottom, s->ext_left};
    return depths[e];
}

// The rectangle that an edge feature takes up while so many pixels of its depth show. The top tab overlaps the body
// by a line.
rect edge_rect(const sprite *s, sprite_edge e, i32 depth) {
    const image *picture = edge_picture(s, e);
    switch (e) {
    case EDGE_TOP:
        return {s->x + s->tab_top - 1, s->y - depth + 1, picture->width, depth};
    case EDGE_RIGHT:
        return {s->x + s->body->width - depth, s->y + s->sock_right - 1, depth, picture->height};
    case EDGE_BOTTOM:
        return {s->x + s->sock_bottom - 1, s->y + s->body->height - depth, picture->width, depth};
    default: // EDGE_LEFT
        return {s->x - depth, s->y + s->tab_left, depth, picture->height};
    }
}

rect edge_rect(const sprite *s, sprite_edge e) {
    return edge_rect(s, e, edge_depth(s, e));
}

void draw_clipped(const image *picture, i32 x, i32 y, const rect &clip) {
    draw_image_clipped(picture, x, y, clip);
    draw_restore_next(clip);
}

// --- Growing: body and label through a centred window --------------------------------------------

void draw_growing(const sprite *s) {
    const rect window = {centre_in(s->x, s->w, s->grow_w), centre_in(s->y, s->h, s->grow_h), s->grow_w, s->grow_h};
    draw_image_clipped(s->body, s->x, s->y, window);
    if (s->label != nullptr) {
        const point at = label_place(s);
        draw_image_clipped(s->label, at.x, at.y, window);
    }
    draw_restore_next(window);
}

// --- Unfolding: the edge features as far as they are out, the label's silhouette -----------------

// The top tab is uncovered where it stands; the other features move out with their inner part.
void draw_unfolding_edge(const sprite *s, sprite_edge e) {
    const i32 shown = s->unfold_ext[e];
    if (shown <= 0)
        return;
    if (e == EDGE_BOTTOM)
        draw_restore_saved(SLOT_BOTTOM);
    if (e == EDGE_RIGHT)
        draw_restore_saved(SLOT_RIGHT);
    const rect clip = edge_rect(s, e, shown);
    const rect at = e == EDGE_TOP ? edge_rect(s, e) : clip;
    draw_clipped(edge_picture(s, e), at.x, at.y, clip);
}

void draw_unfolding(const sprite *s) {
    if (s->unfold_ext[EDGE_BOTTOM] > 0)
        draw_save(edge_rect(s, EDGE_BOTTOM, s->unfold_ext[EDGE_BOTTOM]), SLOT_BOTTOM);
    if (s->unfold_ext[EDGE_RIGHT] > 0)
        draw_save(edge_rect(s, EDGE_RIGHT, s->unfold_ext[EDGE_RIGHT]), SLOT_RIGHT);
    draw_image(s->body, s->x, s->y, true);
    for (const sprite_edge e : {EDGE_TOP, EDGE_LEFT, EDGE_BOTTOM, EDGE_RIGHT})
        draw_unfolding_edge(s, e);
    if (s->label != nullptr) {
        const point at = label_place(s);
        const rgb colour = {static_cast<u8>(s->unfold_r), static_cast<u8>(s->unfold_g), static_cast<u8>(s->unfold_b)};
        draw_image(s->label, at.x, at.y, false);
        draw_image_ex(s->label, at.x, at.y, SILHOUETTE, colour);
    }
}

// --- At rest or moving ---------------------------------------------------------------------------

void draw_edge(const sprite *s, sprite_edge e) {
    const rect at = edge_rect(s, e);
    draw_image(edge_picture(s, e), at.x, at.y, true);
}

void tint_edges(const sprite *s, sprite_edge first, sprite_edge second) {
    if ((s->flags & SPRITE_PULSE) == 0)
        return;
    for (const sprite_edge e : {first, second}) {
        const rect at = edge_rect(s, e);
        draw_image_ex(edge_picture(s, e), at.x, at.y, TINT, s->pulse_cur);
    }
}

void draw_whole(const sprite *s) {
    draw_save(edge_rect(s, EDGE_BOTTOM), SLOT_BOTTOM);
    draw_save(edge_rect(s, EDGE_RIGHT), SLOT_RIGHT);
    draw_image(s->body, s->x, s->y, true);
    if ((s->flags & SPRITE_PULSE) != 0)
        draw_image_ex(s->body, s->x, s->y, TINT, s->pulse_cur);
    if (s->label != nullptr) {
        const point at = label_place(s);
        draw_image(s->label, at.x, at.y, false);
    }
    draw_edge(s, EDGE_TOP);
    draw_edge(s, EDGE_LEFT);
    tint_edges(s, EDGE_TOP, EDGE_LEFT);
    draw_restore_saved(SLOT_BOTTOM);
    draw_edge(s, EDGE_BOTTOM);
    draw_restore_saved(SLOT_RIGHT);
    draw_edge(s, EDGE_RIGHT);
    tint_edges(s, EDGE_BOTTOM, EDGE_RIGHT);
}

} // namespace

void sprite_draw(const sprite *s) {
    if ((s->flags & SPRITE_HIDDEN) != 0)
        return;
    if ((s->flags & SPRITE_GROW) != 0)
        draw_growing(s);
    else if ((s->flags & SPRITE_UNFOLD) != 0)
        draw_unfolding(s);
    else
        draw_whole(s);
}

void sprite_list_draw(const ptr_array<sprite> *list) {
    for (const sprite *s : each(list))
        sprite_draw(s);
}
