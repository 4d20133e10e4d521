// cells.h: the grid of cells and the jigsaw edges drawn on the board. Main thread.
//
// A cell's left place is the right place of its left neighbour and its top place the bottom place of the cell above,
// so that neighbouring pieces interlock.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

[[nodiscard]] i32 cells_build(board *b); // fills the grid; 1, or -1 when out of memory (logged)

// Appends the cell (takes ownership) and gives it its pictures; 1, or -1 when out of memory (the cell is freed).
[[nodiscard]] i32 board_add_cell(board *b, sprite *cell);

sprite *board_find_cell(const board *b, i32 col, i32 row); // borrowed; null outside the grid

void cells_draw(const board *b); // bodies, then edges, into the background
