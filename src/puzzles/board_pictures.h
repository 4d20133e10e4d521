// board_pictures.h: the pictures of a puzzle type: which there are, loading and freeing them. Main thread.
//
// One table says for each picture its name in the type's folder, when it is there, and where it goes.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

// Where the pictures of a row go: slots in the board, or an owned block of them.
struct picture_slots {
    image **first; // null for a block that is not allocated
    i32 count;
    image ***block; // null for slots in the record itself
};

struct picture_row {
    const char *name; // in the type's folder; one that ends in a slash is a numbered series
    u32 needs_any;    // features of which the type must have one; 0: no matter
    u32 needs_all;    // features of which the type must have all
    picture_slots (*slots)(board *b);
};

bool picture_row_applies(const picture_row &row, const board *b); // whether the board's type has these pictures

// The row's slots, with the block allocated where there is one; first is null when out of memory (logged).
picture_slots picture_row_prepare(const picture_row &row, board *b);

// Loads what the board's type needs; 1, or -1 at the first picture that cannot be loaded (earlier ones stay).
[[nodiscard]] i32 board_load_pictures(board *b);
