// puzzle_kinds.cpp: the table of the puzzles.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzle_kinds.h"

#include <algorithm>
#include <array>
#include <cstddef>

using enum play_style;

static constexpr const char *NEXT_PROBLEM = "Click the button to show the next problem.";
static constexpr const char *NEXT_PIECE = "Click the button to show the next piece.";
static constexpr const char *ADD_COINS =
    "Add the four coins in line with an item and find the piece showing the total.";

// clang-format off
static constexpr std::array<puzzle_kind, PUZZLE_COUNT> KINDS = {{
    {0, "Counting by 1's - 5's", "puzzle/mult_15/", IN_SIGHT,
     10, 5, {44, 34}, {58, 76}, 35, 5, 100, {}, {}, false, false, 1,
     "Complete the puzzle by adding 1-5 to itself 10 times.", {14, 318}, 3},
    {1, "Multiplication 1 - 5", "puzzle/mult2_15/", KEYPAD,
     10, 5, {44, 34}, {60, 76}, 35, 50, 100, {330, 345}, {}, false, false, 1,
     NEXT_PROBLEM, {28, 340}, 5},
    {2, "Counting by 6's - 10's", "puzzle/mult_610/", IN_SIGHT,
     10, 5, {44, 35}, {65, 77}, 35, 5, 100, {}, {}, false, false, 6,
     "Complete the puzzle by adding 6-10 to itself 10 times.", {14, 318}, 3},
    {3, "Multiplication 6 - 10", "puzzle/mult2_610/", KEYPAD,
     10, 5, {44, 34}, {60, 76}, 35, 50, 100, {330, 345}, {}, false, false, 6,
     NEXT_PROBLEM, {28, 340}, 5},
    {4, "Division by 1 - 5", "puzzle/div_15/", DECK,
     10, 5, {44, 34}, {64, 80}, 35, 100, 100, {380, 415}, {}, false, false, 0,
     NEXT_PIECE, {82, 409}, 5},
    {5, "Division by 6 - 10", "puzzle/div_610/", DECK,
     10, 5, {44, 34}, {62, 80}, 35, 100, 100, {380, 415}, {}, false, false, 0,
     NEXT_PIECE, {82, 409}, 5},
    {6, "Consumer Math", "puzzle/consumer/", DECK,
     6, 6, {67, 60}, {76, 101}, 61, 5, 5, {350, 495}, {}, false, true, 0,
     NEXT_PIECE, {29, 497}, 4},
    {7, "Simplifying Fractions", "puzzle/fraction/", DECK,
     10, 4, {55, 50}, {23, 45}, 51, 100, 100, {370, 395}, {3, 2}, false, true, 0,
     NEXT_PIECE, {64, 452}, 5},
    {8, "Factors", "puzzle/factor/", DECK,
     10, 10, {44, 34}, {61, 75}, 35, 5, 5, {384, 481}, {}, false, false, 1,
     NEXT_PIECE, {88, 474}, 4},
    {9, "Adding Money", "puzzle/money/", IN_SIGHT,
     6, 6, {55, 50}, {77, 93}, 51, 2, 2, {}, {}, false, true, 0,
     ADD_COINS, {27, 42}, 3},
    {10, "Time", "puzzle/time/", DECK,
     8, 6, {67, 63}, {16, 44}, 64, 5, 5, {370, 476}, {3, 2}, true, true, 0,
     NEXT_PIECE, {64, 468}, 3},
}};
// clang-format on

static constexpr std::array<int, PUZZLE_COUNT> LIST = {0, 10, 2, 9, 1, 3, 4, 5, 6, 7, 8}; // types from top to bottom

const puzzle_kind &puzzle_kind_of(int type) {
    return KINDS[static_cast<std::size_t>(type)];
}

const puzzle_kind &puzzle_kind_in_row(int row) {
    return puzzle_kind_of(LIST[static_cast<std::size_t>(row)]);
}

int puzzle_list_row(int type) {
    return static_cast<int>(std::find(LIST.begin(), LIST.end(), type) - LIST.begin());
}
