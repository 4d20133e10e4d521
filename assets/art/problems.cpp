// problems.cpp: computing the problems of every cell.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "problems.h"

#include "puzzles/puzzle_layout.h"

#include <cstdio>
#include <numeric>
#include <vector>

namespace art {

int first_row_number(int type) {
    return type == 2 || type == 3 || type == 5 ? 6 : 1;
}

namespace {

int column_of(int type, int cell) {
    return cell % PUZZLE_LAYOUTS[type].cols;
}
int row_of(int type, int cell) {
    return cell / PUZZLE_LAYOUTS[type].cols;
}
int row_number(int type, int cell) {
    return first_row_number(type) + row_of(type, cell);
}

} // namespace

int product(int type, int cell) {
    return row_number(type, cell) * (column_of(type, cell) + 1);
}

division division_problem(int type, int cell) {
    const int divisor = row_number(type, cell), quotient = column_of(type, cell) + 1;
    return {.dividend = divisor * quotient, .divisor = divisor, .quotient = quotient};
}

// --- Money ---------------------------------------------------------------------------------------

namespace {

constexpr int MARKET = 6, MONEY = 9, CENTS_PER_DOLLAR = 100;

} // namespace

int market_price(int cell) {
    const int row = row_of(MARKET, cell), right = CONSUMER_RIGHT_HEADINGS[row];
    return COINS_IN_ORDER[column_of(MARKET, cell)] + COINS_IN_ORDER[row] + COINS_IN_ORDER[right];
}

int money_total(int cell) {
    return 2 * (COINS_IN_ORDER[column_of(MONEY, cell)] + COINS_IN_ORDER[row_of(MONEY, cell)]);
}

std::string money_text(int cents) {
    if (cents < CENTS_PER_DOLLAR)
        return std::to_string(cents) + "¢";
    std::array<char, 16> text = {};
    std::snprintf(text.data(), text.size(), "$%d.%02d", cents / CENTS_PER_DOLLAR, cents % CENTS_PER_DOLLAR);
    return text.data();
}

// --- Fractions -----------------------------------------------------------------------------------

namespace {

// Each denominator in lowest terms and by how much its fractions are widened for the drawing, such that
// no drawing has more than twelve parts; a fraction that comes twice is widened differently.
struct denominator {
    int value, widening, other_widening; // 0: its fractions come once
};
constexpr std::array<denominator, 10> DENOMINATORS = {{
    {2, 5, 3},
    {3, 4, 2},
    {4, 2, 3},
    {5, 2, 0},
    {6, 2, 0},
    {7, 1, 0},
    {8, 1, 0},
    {9, 1, 0},
    {10, 1, 0},
    {12, 1, 0},
}};
constexpr fraction_shape SHAPES[] = {fraction_shape::pie,     fraction_shape::grid,     fraction_shape::bar,
                                     fraction_shape::hexagon, fraction_shape::triangle, fraction_shape::square};

// The shape for the k-th drawing of that many parts: those that suit take turns.
fraction_shape pick_shape(int parts, int k) {
    std::vector<fraction_shape> suited;
    for (const fraction_shape shape : SHAPES) {
        if (fraction_suits(shape, parts))
            suited.push_back(shape);
    }
    return suited[static_cast<std::size_t>(k) % suited.size()];
}

std::vector<fraction> all_fractions() {
    std::vector<fraction> all;
    std::array<int, 16> drawings = {}; // so far, by number of parts
    const auto add = [&](int numerator, int value, int widening) {
        const int parts = value * widening;
        const fraction_shape shape = pick_shape(parts, drawings[static_cast<std::size_t>(parts)]++);
        all.push_back({numerator * widening, parts, numerator, value, shape});
    };
    for (const denominator &d : DENOMINATORS) {
        for (int n = 1; n < d.value; ++n) {
            if (std::gcd(n, d.value) != 1)
                continue;
            add(n, d.value, d.widening);
            if (d.other_widening > 0)
                add(n, d.value, d.other_widening);
        }
    }
    return all;
}

// Like fractions are spread over the board by steps that meet every cell once.
constexpr int FRACTION_STEP = 17, FRACTION_START = 9;
constexpr int TIME_STEP = 31, TIME_START = 45;

} // namespace

fraction fraction_problem(int cell) {
    static const std::vector<fraction> all = all_fractions();
    return all[static_cast<std::size_t>(cell * FRACTION_STEP + FRACTION_START) % all.size()];
}

// --- Time ----------------------------------------------------------------------------------------

clock_time time_problem(int cell) {
    constexpr int hours = 12, steps = 12, minutes_per_step = 5;
    const int n = (cell * TIME_STEP + TIME_START) % (hours * steps);
    return {.hour = n / steps + 1, .minute = n % steps * minutes_per_step};
}

std::string time_text(clock_time time) {
    std::array<char, 16> text = {};
    std::snprintf(text.data(), text.size(), "%d:%02d", time.hour, time.minute);
    return text.data();
}

} // namespace art
