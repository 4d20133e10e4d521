// debug_actions.cpp: the shortcuts of the hidden debug mode.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/debug_actions.h"

#include "puzzles/board_update.h"
#include "puzzles/deck.h"
#include "puzzles/keypad.h"
#include "puzzles/placement.h"
#include "sprites/sprite.h"

namespace {

constexpr i32 PIECES_LEFT = 3; // for the player, after placing most

bool is_fixed(const sprite *piece) {
    return (piece->flags & SPRITE_FIXED) != 0;
}

void move_to_cell(const board *b, sprite *piece, const sprite *cell) {
    piece->x = b->x + cell->x;
    piece->y = b->y + cell->y;
}

} // namespace

void board_debug_reveal(board *b) {
    if (board_has(b, BOARD_HAS_KEYPAD) && !board_is(b, BOARD_DECK_MOVING) && b->deck.slot[0] != nullptr &&
        board_revealing_piece(b) == nullptr)
        keypad_reveal_answered(b);
}

void board_debug_place_one(board *b) {
    for (sprite *piece : each(b->pieces)) {
        if ((piece->flags & (SPRITE_INERT | SPRITE_FIXED | SPRITE_VANISH)) != 0)
            continue;
        const sprite *cell = piece_target_cell(b, piece);
        if (cell == nullptr)
            continue;
        move_to_cell(b, piece, cell);
        board_drop_piece(b, piece);
        piece->flags &= ~SPRITE_AVAILABLE;
        piece->flags |= SPRITE_ANSWERED;
        return;
    }
}

void board_debug_place_most(board *b) {
    i32 left = -PIECES_LEFT;
    for (const sprite *piece : each(b->pieces))
        left += is_fixed(piece) ? 0 : 1;
    if (left < 1)
        return;
    for (sprite *piece : each(b->pieces)) {
        if (left == 0)
            break;
        if (is_fixed(piece))
            continue;
        const sprite *cell = piece_target_cell(b, piece);
        if (cell == nullptr)
            continue;
        move_to_cell(b, piece, cell);
        piece->flags &= ~(SPRITE_INERT | SPRITE_HIDDEN | SPRITE_AVAILABLE | SPRITE_TRAVEL);
        piece->flags |= SPRITE_ANSWERED;
        board_count_remaining(b); // the next frame would, but dropping may deal
        board_drop_piece(b, piece);
        --left;
    }
    for (i32 i = 0; i < DECK_CARDS; ++i)
        board_deal(b);
}

void board_debug_finish(board *b) {
    b->state |= BOARD_COMPLETE;
}
