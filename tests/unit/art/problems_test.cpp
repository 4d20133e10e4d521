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

// That they are the answers to what the boards ask is checked while the whole program is played.
TEST(Problems, AmountsAndTimesReadAsPrinted) {
    constexpr std::pair<int, const char *> AMOUNTS[] = {
        {4, "4¢"}, {99, "99¢"}, {100, "$1.00"}, {105, "$1.05"}, {225, "$2.25"}};
    for (const auto &[cents, text] : AMOUNTS)
        EXPECT_EQ(art::money_text(cents), text);
    EXPECT_EQ(art::time_text({7, 5}), "7:05");
    EXPECT_EQ(art::time_text({12, 0}), "12:00");
}

TEST(Problems, FractionsAreInLowestTermsAndCountable) {
    std::map<std::pair<int, int>, std::set<std::pair<int, int>>> drawings; // by lowest terms: parts and shape
    for (int cell = 0; cell < cell_count(7); ++cell) {
        const art::fraction f = art::fraction_problem(cell);
        EXPECT_EQ(std::gcd(f.numerator, f.denominator), 1) << "cell " << cell;
        EXPECT_TRUE(f.numerator > 0 && f.numerator < f.denominator);
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

TEST(Problems, TimesDiffer) {
    std::set<std::string> seen;
    for (int cell = 0; cell < cell_count(10); ++cell) {
        const art::clock_time t = art::time_problem(cell);
        EXPECT_TRUE(t.hour >= 1 && t.hour <= 12 && t.minute >= 0 && t.minute < 60 && t.minute % 5 == 0);
        EXPECT_TRUE(seen.insert(art::time_text(t)).second) << art::time_text(t) << " comes twice";
    }
}

} // namespace
