// puzzle_layout.h: the eleven puzzle types as rows of tables: features, geometry, numbers of pictures, places.
//
// Constants only. A type's problems and answers are pictures in its data folder.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/puzzle_info.h"

#include <algorithm>
#include <string_view>

// Features of a puzzle type.
inline constexpr u32 BOARD_HAS_DECK = 0x1;      // pieces are dealt from a deck
inline constexpr u32 BOARD_HAS_KEYPAD = 0x2;    // problems are answered on the keypad
inline constexpr u32 BOARD_HAS_BOX = 0x4;       // all pieces start laid out in a box
inline constexpr u32 BOARD_KEEP_DROPPED = 0x8;  // a wrongly dropped piece stays when another one is taken
inline constexpr u32 BOARD_CARD_TEXT = 0x10;    // cards show the problem as text, not the piece's label
inline constexpr u32 BOARD_LARGE_BURN = 0x20;   // burns use the large pictures
inline constexpr u32 BOARD_BLINK_PLACED = 0x40; // a placed piece blinks out and disappears

inline constexpr i32 KEY_PICTURES = 6;     // keypad key and next button, three looks each
inline constexpr i32 CONSOLE_PICTURES = 6; // help and return button, three looks each
inline constexpr i32 KEY_SYMBOLS = 12;
inline constexpr i32 ENTRY_DIGITS = 10;

// The characters of a card text, in the order of the card symbols.
inline constexpr std::string_view CARD_TEXT_CHARACTERS = "0123456789x";
inline constexpr i32 CARD_SYMBOLS = static_cast<i32>(CARD_TEXT_CHARACTERS.size());

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
static_assert(std::ranges::all_of(PUZZLE_LAYOUTS, puzzle_layout_is_sound));

inline constexpr i32 COLUMN_GAP = 1; // pixels between two columns of cells, in every type

// From one row of cells to the next, in pixels.
constexpr i32 puzzle_row_pitch(i32 type) {
    return PUZZLE_LAYOUTS[type].cell_h + PUZZLE_LAYOUTS[type].row_gap;
}
// A piece fills its cell but for the line that separates two rows.
constexpr i32 puzzle_piece_height(i32 type) {
    return puzzle_row_pitch(type) - 1;
}

// Which of the headings over the columns stands at the right of each row of Consumer Math: every cell then lies in line
// with three different ones.
inline constexpr i32 CONSUMER_RIGHT_HEADINGS[] = {2, 5, 1, 4, 0, 3};

// Where things stand on the screen, in pixels; unused ones are 0.
struct puzzle_places {
    point box;
    point deck;
    point keypad;
    point entry;      // answer display
    point entry_dest; // where entered digits fly
    point card_label; // offset of a label on a card
};

// clang-format off
inline constexpr puzzle_places PUZZLE_PLACES[PUZZLE_COUNT] = {
    // box         deck        keypad      entry       entry_dest  card_label
    {{94, 295},    {},         {},         {},         {},         {}},
    {{},           {330, 345}, {330, 390}, {405, 358}, {342, 358}, {}},
    {{94, 295},    {},         {},         {},         {},         {}},
    {{},           {330, 345}, {330, 390}, {405, 358}, {342, 358}, {}},
    {{},           {380, 415}, {340, 420}, {415, 388}, {352, 388}, {}},
    {{},           {380, 415}, {340, 420}, {415, 388}, {352, 388}, {}},
    {{},           {350, 495}, {340, 320}, {415, 288}, {352, 288}, {}},
    {{},           {370, 395}, {340, 420}, {415, 388}, {352, 388}, {3, 2}},
    {{},           {384, 481}, {340, 320}, {415, 288}, {352, 288}, {}},
    {{},           {},         {},         {},         {},         {}},
    {{},           {370, 476}, {340, 420}, {415, 388}, {352, 388}, {3, 2}},
};
// clang-format on

constexpr bool puzzle_places_fit_features() {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        const puzzle_places &p = PUZZLE_PLACES[type];
        const u32 features = PUZZLE_LAYOUTS[type].features;
        const bool box = (features & BOARD_HAS_BOX) != 0, deck = (features & BOARD_HAS_DECK) != 0;
        if ((p.box.x > 0) != box || (p.deck.x > 0) != deck || ((features & BOARD_HAS_KEYPAD) != 0 && p.keypad.x == 0))
            return false;
    }
    return true;
}
static_assert(puzzle_places_fit_features());
