// placement.h: pieces on the board: adding, finding, and the test whether a dropped piece fits. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

// Appends the piece (takes ownership) in its loose look; 1, or -1 when out of memory (the piece is freed).
[[nodiscard]] i32 board_add_piece(board *b, sprite *piece);

sprite *board_piece_at(const board *b, i32 px, i32 py);  // topmost piece that can be taken there, or null
button *board_button_at(const board *b, i32 px, i32 py); // first button there, or null

sprite *piece_target_cell(const board *b, const sprite *piece);            // null (logged) for a piece that has none
void piece_put_in_cell(const board *b, sprite *piece, const sprite *cell); // place and edges of a piece that fits

// Fixes the piece in its cell when it lies close enough, unless the deck is taking it back.
void board_drop_piece(board *b, sprite *piece);

// Starts a burn, in the board's size, centred on the rectangle.
void board_add_burn(board *b, const rect &centre_on);
