// puzzle_type.h: the eleven puzzle types as rows of tables, and setting a board up by one of them.
//
// The tables are constant. A type's problems and answers are pictures in its data folder.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/puzzle_info.h"
#include "puzzles/board.h"

#include <algorithm>
#include <iterator>

// Geometry in pixels, numbers of pictures, and features of a type.
struct puzzle_layout {
    const char *dir; // data folder
    i32 cols, rows;
    i32 top, study_top;
    i32 cell_w, cell_h;
    i32 row_gap; // between two rows of cells
    i32 grid_x, grid_y;
    i32 labels;
    i32 cell_pictures; // one a row or one a cell
    i32 symbols;
    u32 features;
};

// The features in the sets in which they occur.
inline constexpr u32 PUZZLE_BOX = BOARD_HAS_BOX;
inline constexpr u32 PUZZLE_TYPED = BOARD_HAS_DECK | BOARD_HAS_KEYPAD | BOARD_KEEP_DROPPED | BOARD_CARD_TEXT;
inline constexpr u32 PUZZLE_DEALT = BOARD_HAS_DECK | BOARD_KEEP_DROPPED;
inline constexpr u32 PUZZLE_BLINKS = PUZZLE_DEALT | BOARD_BLINK_PLACED;
inline constexpr u32 PUZZLE_LARGE = PUZZLE_DEALT | BOARD_LARGE_BURN;

// clang-format off
inline constexpr puzzle_layout PUZZLE_LAYOUTS[PUZZLE_COUNT] = {
    // dir                 cols rows  top study  cell w   h gap  grid x    y  labels cells symbols features
    {"puzzle/mult_15",      10,   5,    5, 100,     44,  34, 1,     58,  76,     50,    5,   15,   PUZZLE_BOX},
    {"puzzle/mult2_15",     10,   5,   50, 100,     44,  34, 1,     60,  76,     50,    5,   15,   PUZZLE_TYPED},
    {"puzzle/mult_610",     10,   5,    5, 100,     44,  35, 0,     65,  77,     50,    5,   15,   PUZZLE_BOX},
    {"puzzle/mult2_610",    10,   5,   50, 100,     44,  34, 1,     60,  76,     50,    5,   15,   PUZZLE_TYPED},
    {"puzzle/div_15",       10,   5,  100, 100,     44,  34, 1,     64,  80,     50,    5,   15,   PUZZLE_BLINKS},
    {"puzzle/div_610",      10,   5,  100, 100,     44,  34, 1,     62,  80,     50,    5,   15,   PUZZLE_BLINKS},
    {"puzzle/consumer",      6,   6,    5,   5,     67,  60, 1,     76, 101,     36,   36,    6,   PUZZLE_LARGE},
    {"puzzle/fraction",     10,   4,  100, 100,     55,  50, 1,     23,  45,     40,   40,    0,   PUZZLE_LARGE},
    {"puzzle/factor",       10,  10,    5,   5,     44,  34, 1,     61,  75,    100,   10,   10,   PUZZLE_DEALT},
    {"puzzle/money",         6,   6,    2,   2,     55,  50, 1,     77,  93,     36,   36,    6,   0},
    {"puzzle/time",          8,   6,    5,   5,     67,  63, 1,     16,  44,     48,   48,    0,   PUZZLE_LARGE},
};
// clang-format on

// A label for every cell; cell pictures by row or by cell; text on cards only where there are cards.
constexpr bool puzzle_layout_is_sound(const puzzle_layout &l) {
    const i32 cells = l.cols * l.rows;
    const bool cards = (l.features & BOARD_HAS_DECK) != 0;
    return l.labels == cells && (l.cell_pictures == cells || l.cell_pictures == l.rows) &&
           (cards || (l.features & (BOARD_CARD_TEXT | BOARD_HAS_KEYPAD)) == 0);
}
static_assert(std::all_of(std::begin(PUZZLE_LAYOUTS), std::end(PUZZLE_LAYOUTS), puzzle_layout_is_sound));

inline constexpr i32 COLUMN_GAP = 1; // pixels between two columns of cells, in every type

// From one row of cells to the next, in pixels.
inline i32 puzzle_row_pitch(i32 type) {
    return PUZZLE_LAYOUTS[type].cell_h + PUZZLE_LAYOUTS[type].row_gap;
}

// Sets folder, geometry, features and places of the board; 1, or -1 when out of memory (logged).
[[nodiscard]] i32 puzzle_type_init(board *b, i32 type);
