// puzzle_pictures.h: the pictures in a puzzle type's folder: their names, when they are there, and how many. Constants
// only.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/puzzle_layout.h"
#include "resources/picture_set.h"
#include "sprites/sprite_edge.h"

#include <iterator>
#include <string_view>

inline constexpr picture_set BACKGROUND_SET = {"bg/", 1}; // behind all boards

enum puzzle_picture : i32 {
    PICTURE_BOARD,
    PICTURE_PIECE,
    PICTURE_BEGIN,
    PICTURE_STUDY_HELP,
    PICTURE_KEYS,
    PICTURE_CARD_SYMBOLS,
    PICTURE_CARD,
    PICTURE_NEXT,
    PICTURE_EMPTY_DECK,
    PICTURE_BOX,
    PICTURE_KEYPAD,
    PICTURE_KEY_SYMBOLS,
    PICTURE_ENTERED_DIGITS,
    PICTURE_LOOSE_EDGES,
    PICTURE_PLACED_EDGES,
    PICTURE_BOARD_DENTS,
    PICTURE_BOARD_BUMPS,
    PICTURE_HEADINGS,
    PICTURE_LABELS,
    PICTURE_CELLS,
    PICTURE_CONSOLE,
    PUZZLE_PICTURE_COUNT
};

struct puzzle_picture_row {
    puzzle_picture id;
    const char *name;                       // behind the type's folder; one that ends in a slash is a numbered series
    u32 needs;                              // features of which the type must have all
    i32 count;                              // how many, in every type that has them
    i32 puzzle_layout::*laid_out = nullptr; // or where the type says how many
};

// In the order of loading. The next button's plain picture is part of each deck type's data, though only the three
// looks among the keys are drawn.
// clang-format off
inline constexpr puzzle_picture_row PUZZLE_PICTURES[] = {
    // id                     name                          needs                             count
    {PICTURE_BOARD,          "/board/base.xpm",            0,                                1},
    {PICTURE_PIECE,          "/piece/base.xpm",            0,                                1},
    {PICTURE_BEGIN,          "/begin.xpm",                 0,                                1},
    {PICTURE_STUDY_HELP,     "/study_help.xpm",            0,                                1},
    {PICTURE_KEYS,           "/input/keys/",               BOARD_HAS_DECK,                   KEY_PICTURES},
    {PICTURE_CARD_SYMBOLS,   "/deck/symbols/",             BOARD_HAS_DECK | BOARD_CARD_TEXT, CARD_SYMBOLS},
    {PICTURE_CARD,           "/deck/base.xpm",             BOARD_HAS_DECK,                   1},
    {PICTURE_NEXT,           "/deck/next.xpm",             BOARD_HAS_DECK,                   1},
    {PICTURE_EMPTY_DECK,     "/deck/over.xpm",             BOARD_HAS_DECK,                   1},
    {PICTURE_BOX,            "/box/base.xpm",              BOARD_HAS_BOX,                    1},
    {PICTURE_KEYPAD,         "/input/base.xpm",            BOARD_HAS_KEYPAD,                 1},
    {PICTURE_KEY_SYMBOLS,    "/input/symbols/keys/",       BOARD_HAS_KEYPAD,                 KEY_SYMBOLS},
    {PICTURE_ENTERED_DIGITS, "/input/symbols/entered/",    BOARD_HAS_KEYPAD,                 ENTRY_DIGITS},
    {PICTURE_LOOSE_EDGES,    "/piece/fragments/out/",      0,                                EDGE_COUNT},
    {PICTURE_PLACED_EDGES,   "/piece/fragments/in/",       0,                                EDGE_COUNT},
    {PICTURE_BOARD_DENTS,    "/board/fragments/negative/", 0,                                EDGE_COUNT},
    {PICTURE_BOARD_BUMPS,    "/board/fragments/positive/", 0,                                EDGE_COUNT},
    {PICTURE_HEADINGS,       "/board/symbols/",            0,                                0, &puzzle_layout::symbols},
    {PICTURE_LABELS,         "/piece/symbols/",            0,                                0, &puzzle_layout::labels},
    {PICTURE_CELLS,          "/board/pieces/",             0,                                0, &puzzle_layout::cell_pictures},
    {PICTURE_CONSOLE,        "/console/",                  0,                                CONSOLE_PICTURES},
};
// clang-format on

constexpr bool puzzle_pictures_in_order() {
    for (i32 i = 0; i < PUZZLE_PICTURE_COUNT; ++i)
        if (PUZZLE_PICTURES[i].id != i)
            return false;
    return std::size(PUZZLE_PICTURES) == PUZZLE_PICTURE_COUNT;
}
static_assert(puzzle_pictures_in_order());

constexpr bool puzzle_picture_is_series(puzzle_picture id) {
    return std::string_view(PUZZLE_PICTURES[id].name).ends_with('/');
}

// How many of these pictures the type has; 0 when its features do not need them.
constexpr i32 puzzle_picture_count(const puzzle_layout &type, puzzle_picture id) {
    const puzzle_picture_row &row = PUZZLE_PICTURES[id];
    if ((type.features & row.needs) != row.needs)
        return 0;
    return row.laid_out != nullptr ? type.*row.laid_out : row.count;
}
