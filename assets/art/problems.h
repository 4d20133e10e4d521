// problems.h: the mathematics of the puzzles: which problem and which answer belong to each cell.
//
// Cells are counted row by row from 0. Every label and every heading in the pictures is printed from these
// functions, so what they give is what a child reads.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "things.h"

#include <array>
#include <string>

namespace art {

// The number on the first row's heading of the types 0..5 and 8 (1 or 6); later rows count on.
int first_row_number(int type);

// Types 0..3 and 8: row number times column number.
int product(int type, int cell);

// Types 4 and 5: dividend / divisor = quotient, the quotient being the column number.
struct division {
    int dividend, divisor, quotient;
};
division division_problem(int type, int cell);

// The coins on the sides of the money boards, in cents: over the columns and down the left side.
inline constexpr int COINS_IN_ORDER[] = {1, 5, 10, 25, 50, 100};
// Type 6: the price of a cell, the sum of the three coins in line with it, cents.
int market_price(int cell);
// Type 9: the total of the four coins in line with a cell, cents.
int money_total(int cell);
// An amount as the pieces print it: 36¢ below a dollar, $1.35 from there on.
std::string money_text(int cents);

// Type 7: a drawn fraction and the same in lowest terms.
struct fraction {
    int shown_numerator, shown_denominator; // parts coloured, parts in all
    int numerator, denominator;             // in lowest terms
    fraction_shape shape;
};
fraction fraction_problem(int cell);

// Type 10: the time of a cell.
struct clock_time {
    int hour, minute; // 1..12, 0..55
};
clock_time time_problem(int cell);
std::string time_text(clock_time time);

} // namespace art
