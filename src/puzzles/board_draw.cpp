// board_draw.cpp: records a run: the still parts once, the moving parts every frame.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/board_draw.h"

#include "graphics/draw_list.h"
#include "puzzles/background.h"
#include "puzzles/cells.h"
#include "puzzles/deck_draw.h"
#include "puzzles/headings.h"
#include "sprites/effect.h"
#include "sprites/number_entry.h"
#include "sprites/sprite_draw.h"

namespace {

constexpr i32 STUDY_HELP_GAP = 2; // pixels below the board

void draw_pieces_and_effects(const board *b) {
    sprite_list_draw(b->pieces);
    for (const effect *running : each(b->effects))
        effect_draw(running);
}

void draw_play_background(const board *b) {
    if (board_has(b, BOARD_HAS_KEYPAD)) {
        draw_image_bg(b->pictures.keypad, b->places->keypad.x, b->places->keypad.y);
        draw_restore({b->places->keypad.x, b->places->keypad.y, b->pictures.keypad->width, b->pictures.keypad->height});
    }
    for (const button *drawn : each(b->buttons))
        button_draw_background(drawn);
    if (board_has(b, BOARD_HAS_BOX))
        draw_image_bg_show(b->pictures.box, b->places->box.x, b->places->box.y);
}

} // namespace

void board_draw(const board *b) {
    if (!board_loaded(b))
        return;
    if (!board_is(b, BOARD_STUDY)) {
        for (const button *drawn : each(b->buttons))
            button_draw(drawn);
        if (board_has(b, BOARD_HAS_DECK))
            deck_draw(b);
        if (board_has(b, BOARD_HAS_KEYPAD))
            number_entry_draw(b->entry);
    }
    draw_pieces_and_effects(b);
}

void board_draw_background(const board *b) {
    if (!board_loaded(b))
        return;
    if (background_picture() != nullptr)
        draw_image_bg(background_picture(), 0, 0);
    draw_image_bg(b->pictures.board, b->x, b->y);
    headings_draw(b);
    cells_draw(b);
    draw_restore({b->x, b->y, b->width, b->height});
    if (board_is(b, BOARD_STUDY))
        draw_image_bg(b->pictures.study_help, center_x(b->pictures.study_help->width),
                      b->y + b->height + STUDY_HELP_GAP);
    else
        draw_play_background(b);
}
