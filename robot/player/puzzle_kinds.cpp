// puzzle_kinds.cpp: the table of the puzzles.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzle_kinds.h"

#include <algorithm>

using enum play_style;

static constexpr const char *NEXT_PROBLEM = "Click the button to show the next problem.";
static constexpr const char *NEXT_PIECE = "Click the button to show the next piece.";
static constexpr const char *ADD_COINS =
    "Add the four coins in line with an item and find the piece showing the total.";

// clang-format off
static constexpr puzzle_kind KINDS[PUZZLE_COUNT] = {
    // style   label on top, first factor, help: text, place, clicks
    {0,  IN_SIGHT, false, 1, "Complete the puzzle by adding 1-5 to itself 10 times.", {14, 318}, 3},
    {1,  KEYPAD,   false, 1, NEXT_PROBLEM, {28, 340}, 5},
    {2,  IN_SIGHT, false, 6, "Complete the puzzle by adding 6-10 to itself 10 times.", {14, 318}, 3},
    {3,  KEYPAD,   false, 6, NEXT_PROBLEM, {28, 340}, 5},
    {4,  DECK,     false, 0, NEXT_PIECE, {82, 409}, 5},
    {5,  DECK,     false, 0, NEXT_PIECE, {82, 409}, 5},
    {6,  DECK,     false, 0, NEXT_PIECE, {29, 497}, 4},
    {7,  DECK,     false, 0, NEXT_PIECE, {64, 452}, 5},
    {8,  DECK,     false, 1, NEXT_PIECE, {88, 474}, 4},
    {9,  IN_SIGHT, false, 0, ADD_COINS, {27, 42}, 3},
    {10, DECK,     true,  0, NEXT_PIECE, {64, 468}, 3},
};
// clang-format on

const puzzle_kind &puzzle_kind_of(int type) {
    return KINDS[type];
}

const puzzle_kind &puzzle_kind_in_row(int row) {
    return puzzle_kind_of(PUZZLE_LIST_ORDER[row]);
}

int puzzle_list_row(int type) {
    return static_cast<int>(std::ranges::find(PUZZLE_LIST_ORDER, type) - PUZZLE_LIST_ORDER);
}
