// study.cpp: fills and clears the board, and lets single pieces leave and fly in.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/study.h"

#include "puzzles/placement.h"
#include "sound/sound.h"
#include "sprites/sprite.h"

namespace {

constexpr i32 FLY_IN_SPEED = 2800; // hundredths of a pixel a frame

const sprite *cell_at(const board *b, i32 x, i32 y) {
    for (const sprite *cell : each(b->cells))
        if (cell->x <= x && x <= cell->x + cell->w && cell->y <= y && y <= cell->y + cell->h)
            return cell;
    return nullptr;
}

sprite *piece_of(const board *b, const sprite *cell) {
    for (sprite *piece : each(b->pieces))
        if (piece->target_col == cell->col && piece->target_row == cell->row)
            return piece;
    return nullptr;
}

void take_out(board *b, sprite *piece) {
    if ((piece->flags & SPRITE_TRAVEL) != 0)
        return;
    piece->flags |= SPRITE_HIDDEN;
    board_add_burn(b, {piece->x, piece->y, piece->w, piece->h});
    sound_play(SOUND_SCORE_SHOW);
}

bool coin_shows_heads() {
    return std::rand() % 2 == 0;
}

// A random point just off the screen: below, above, right or left of it.
void move_off_screen(sprite *piece) {
    if (coin_shows_heads()) {
        piece->x = std::rand() % SCREEN_WIDTH;
        piece->y = coin_shows_heads() ? SCREEN_HEIGHT + 1 : 1 - piece->h;
    } else {
        piece->x = coin_shows_heads() ? SCREEN_WIDTH + 1 : 1 - piece->w;
        piece->y = std::rand() % SCREEN_HEIGHT;
    }
}

void fly_in(const board *b, sprite *piece, const sprite *cell) {
    piece_put_in_cell(b, piece, cell);
    piece->home_x = piece->x;
    piece->home_y = piece->y;
    move_off_screen(piece);
    sprite_send_home(piece, FLY_IN_SPEED);
    sprite_raise(piece);
    piece->flags &= ~SPRITE_HIDDEN;
}

} // namespace

void board_study_begin(board *b) {
    b->state |= BOARD_STUDY;
    b->y = b->layout->study_top;
    board_study_fill(b);
}

void board_study_fill(board *b) {
    for (sprite *piece : each(b->pieces)) {
        // A trip that has not ended would carry the piece on, out of its cell and past the screen's edge.
        piece->flags &= ~(SPRITE_TRAVEL | SPRITE_HIDE_ON_ARRIVAL | SPRITE_REDEAL);
        piece->flags |= SPRITE_INERT | SPRITE_HIDDEN;
        const sprite *cell = piece_target_cell(b, piece);
        if (cell == nullptr)
            continue;
        piece_put_in_cell(b, piece, cell);
        piece->flags &= ~SPRITE_HIDDEN;
    }
}

void board_study_clear(board *b) {
    for (sprite *piece : each(b->pieces))
        piece->flags |= SPRITE_INERT | SPRITE_HIDDEN;
}

void board_study_toggle(board *b, i32 mx, i32 my) {
    if (!board_is(b, BOARD_STUDY))
        return;
    const sprite *cell = cell_at(b, mx - b->x, my - b->y);
    sprite *piece = cell != nullptr ? piece_of(b, cell) : nullptr;
    if (piece == nullptr)
        return;
    if ((piece->flags & SPRITE_HIDDEN) == 0)
        take_out(b, piece);
    else
        fly_in(b, piece, cell);
}
