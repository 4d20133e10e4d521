// placement.cpp: finding pieces and buttons, and fixing a dropped piece in its cell.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/placement.h"

#include "core/base/log.h"
#include "puzzles/cells.h"
#include "puzzles/deck.h"
#include "sound/sound.h"
#include "sprites/effect.h"
#include "sprites/sprite.h"

namespace {

constexpr i32 SNAP_RADIUS = 5;   // pixels between the centres at which a dropped piece still snaps in
constexpr i32 PLACED_OFFSET = 1; // pixels right of and below the cell's corner
constexpr i32 PLACE_SOUNDS = SOUND_PIECE_PLACE_6 - SOUND_PIECE_PLACE_1 + 1;

bool within_snap_radius(const board *b, const sprite *piece, const sprite *cell) {
    const i32 dx = piece->x + half(piece->w) - (b->x + cell->x + half(cell->w));
    const i32 dy = piece->y + half(piece->h) - (b->y + cell->y + half(cell->h));
    return dx * dx + dy * dy <= SNAP_RADIUS * SNAP_RADIUS;
}

void deal_after_placing(board *b) {
    board_deal(b);
    if (b->placed < b->pieces->count)
        board_add_burn(b,
                       {b->deck.slot_at[0].x, b->deck.slot_at[0].y, b->pictures.card->width, b->pictures.card->height});
}

} // namespace

i32 board_add_piece(board *b, sprite *piece) {
    if (ptr_array_append(b->pieces, piece) < 0) {
        sprite_free(piece);
        return -1;
    }
    sprite_set_body(piece, b->pictures.piece);
    sprite_set_edges(piece, b->pictures.piece_tab_out);
    return 1;
}

sprite *board_piece_at(const board *b, i32 px, i32 py) {
    return sprite_list_hit(b->pieces, px, py);
}

button *board_button_at(const board *b, i32 px, i32 py) {
    for (button *candidate : each(b->buttons))
        if (button_hit(candidate, px, py))
            return candidate;
    return nullptr;
}

sprite *piece_target_cell(const board *b, const sprite *piece) {
    sprite *cell = board_find_cell(b, piece->target_col, piece->target_row);
    if (cell == nullptr)
        log_error("Error: Piece has no target!\n");
    return cell;
}

void piece_put_in_cell(const board *b, sprite *piece, const sprite *cell) {
    piece->x = b->x + cell->x + PLACED_OFFSET;
    piece->y = b->y + cell->y + PLACED_OFFSET;
    sprite_set_edges(piece, b->pictures.piece_tab_in);
}

void board_drop_piece(board *b, sprite *piece) {
    const sprite *cell = piece_target_cell(b, piece);
    const bool taken_back = (piece->flags & SPRITE_VANISH) != 0; // the deck deals it again
    if (cell == nullptr || taken_back || !within_snap_radius(b, piece, cell))
        return;
    sprite_fix(piece);
    sprite_list_settle(b->pieces, piece); // a loose one may lie in this cell, and must not disappear
    piece_put_in_cell(b, piece, cell);
    ++b->placed;
    sound_play(SOUND_PIECE_PLACE_1 + std::rand() % PLACE_SOUNDS);
    if (board_has(b, BOARD_BLINK_PLACED))
        sprite_blink_out(piece);
    if (board_has(b, BOARD_HAS_DECK) && (piece->flags & SPRITE_DEAL_NEXT) != 0)
        deal_after_placing(b);
}

void board_add_burn(board *b, const rect &centre_on) {
    effect *burn = effect_create(EFFECT_BURN);
    if (burn == nullptr)
        return;
    if (board_has(b, BOARD_LARGE_BURN))
        effect_burn_large(burn);
    effect_centre_on(burn, centre_on);
    board_add_effect(b, burn, burn->x, burn->y);
}
