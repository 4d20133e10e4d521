// problems_test.cpp: the mathematics printed on the pieces must be right.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "problems.h"

#include <gtest/gtest.h>

#include <map>
#include <numeric>
#include <set>
#include <utility>

namespace {

int cell_count(int type) {
    const art::grid_size grid = art::puzzle_grid(type);
    return grid.columns * grid.rows;
}

TEST(Problems, NumbersWorkedByHand) {
    struct row {
        int type, column, line, value;
    };
    constexpr row ROWS[] = {
        {0, 0, 0, 1},   {0, 9, 4, 50}, {0, 2, 2, 9},  {1, 6, 3, 28},  {2, 0, 0, 6},
        {2, 9, 4, 100}, {3, 4, 2, 40}, {8, 6, 7, 56}, {8, 9, 9, 100},
    };
    for (const row &r : ROWS)
        EXPECT_EQ(art::product(r.type, r.line * 10 + r.column), r.value) << "type " << r.type;
}

TEST(Problems, DivisionsComeOutAtTheirColumnAndRow) {
    for (const int type : {4, 5}) {
        for (int cell = 0; cell < cell_count(type); ++cell) {
            const art::division d = art::division_problem(type, cell);
            EXPECT_EQ(d.dividend % d.divisor, 0);
            EXPECT_EQ(d.dividend / d.divisor, cell % 10 + 1);
            EXPECT_EQ(d.divisor, cell / 10 + (type == 4 ? 1 : 6));
        }
    }
}

TEST(Problems, AmountsWorkedByHand) {
    // Column coin, left coin and right coin of the row.
    constexpr std::pair<int, int> PRICES[] = {{0, 1 + 1 + 10},     {5, 100 + 1 + 10}, {6, 1 + 5 + 100},
                                              {16, 50 + 10 + 5},   {18, 1 + 25 + 50}, {24, 1 + 50 + 1},
                                              {35, 100 + 100 + 25}};
    for (const auto &[cell, cents] : PRICES)
        EXPECT_EQ(art::market_price(cell), cents) << "cell " << cell;
    constexpr std::pair<int, int> TOTALS[] = {{0, 4}, {5, 202}, {13, 30}, {30, 202}, {35, 400}};
    for (const auto &[cell, cents] : TOTALS)
        EXPECT_EQ(art::money_total(cell), cents) << "cell " << cell;
    constexpr std::pair<int, const char *> TEXTS[] = {
        {4, "4¢"}, {99, "99¢"}, {100, "$1.00"}, {105, "$1.05"}, {225, "$2.25"}};
    for (const auto &[cents, text] : TEXTS)
        EXPECT_EQ(art::money_text(cents), text);
}

TEST(Problems, FractionsAreEqualAndCountable) {
    std::map<std::pair<int, int>, std::set<std::pair<int, int>>> drawings; // by lowest terms: parts and shape
    for (int cell = 0; cell < cell_count(7); ++cell) {
        const art::fraction f = art::fraction_problem(cell);
        EXPECT_EQ(f.shown_numerator * f.denominator, f.numerator * f.shown_denominator) << "cell " << cell;
        EXPECT_EQ(std::gcd(f.numerator, f.denominator), 1) << "cell " << cell;
        EXPECT_GT(f.numerator, 0);
        EXPECT_LT(f.numerator, f.denominator);
        EXPECT_LE(f.shown_denominator, 12) << "more parts cannot be counted on a piece";
        if (f.denominator <= 6) {
            EXPECT_GT(f.shown_denominator, f.denominator) << "cell " << cell << " leaves nothing to simplify";
        }
        EXPECT_TRUE(art::fraction_suits(f.shape, f.shown_denominator)) << "cell " << cell;
        auto &others = drawings[std::pair(f.numerator, f.denominator)];
        const bool differs = others.emplace(f.shown_denominator, static_cast<int>(f.shape)).second;
        EXPECT_TRUE(differs) << "cell " << cell << " is drawn like another one";
    }
    EXPECT_EQ(drawings.size(), 35U) << "every fraction in lowest terms with denominators 2 to 10 and 12";
}

TEST(Problems, TimesDifferAndReadAsOnAClock) {
    std::set<std::string> seen;
    for (int cell = 0; cell < cell_count(10); ++cell) {
        const art::clock_time t = art::time_problem(cell);
        EXPECT_TRUE(t.hour >= 1 && t.hour <= 12 && t.minute >= 0 && t.minute < 60 && t.minute % 5 == 0);
        EXPECT_TRUE(seen.insert(art::time_text(t)).second) << art::time_text(t) << " comes twice";
    }
    EXPECT_EQ(art::time_text({7, 5}), "7:05");
    EXPECT_EQ(art::time_text({12, 0}), "12:00");
}

} // namespace
