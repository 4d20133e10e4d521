// title_labels.h: what stands on the pieces, in the cells and beside the rows of the small boards that the
// title shows, for every puzzle type. All of it is computed from the cell's place.
//
// One thread; failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

namespace art {

// A rectangle in pixels.
struct box {
    double x = 0, y = 0, w = 0, h = 0;
};

// Sockets are cut into a piece's right and lower edge, so print stands this far up and to the left, pixels.
inline constexpr double SOCKET_SHIFT = 2;

// Draws the label of the piece that belongs in (column, row), for a piece of the size of `cell`.
void draw_board_label(cairo_t *cr, int type, int column, int row, const box &cell);

// Draws what the empty cell (column, row) shows on its floor; nothing for most puzzles.
void draw_board_cell(cairo_t *cr, int type, int column, int row, const box &cell);

// The problem that the card of (column, row) shows where it differs from the piece's label: the
// multiplication for types 1 and 3.
void draw_board_problem(cairo_t *cr, int type, int column, int row, const box &field);

// The floor of an empty cell.
rgb board_floor(int type, int column, int row);

// The values in cents of the coin over column `index`, and of those left and right of row `index`.
int column_coin(int type, int index);
int left_coin(int type, int index);
int right_coin(int type, int index);

} // namespace art
