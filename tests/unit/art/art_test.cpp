// art_test.cpp: written pictures keep their colours on both screen depths and never turn transparent, tabs and sockets
// meet, and the mathematics printed on the pieces is right.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "edges.h"
#include "problems.h"
#include "save.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <numeric>
#include <set>

namespace {

std::uint32_t pixel(const art::canvas &picture, int x, int y) {
    return art::row_of(picture, y)[x];
}

// --- Pictures as the game shows them -------------------------------------------------------------

void block(const art::canvas &picture, int x, int y, int w, int h, art::rgb colour) {
    cairo_rectangle(picture, x, y, w, h);
    art::fill(picture, colour);
}

TEST(Finished, ColoursSurviveBeingCutToSixteenBits) {
    art::canvas ramp(256, 1);
    for (int v = 0; v < 256; ++v)
        block(ramp, v, 0, 1, 1, {v / 255.0, v / 255.0, v / 255.0});
    const raster back = art::finished(ramp);
    for (int v = 0; v < 256; ++v) {
        const std::uint32_t p = back.pixels[static_cast<std::size_t>(v)];
        const auto red = static_cast<int>((p >> 16) & 0xFF), green = static_cast<int>((p >> 8) & 0xFF);
        EXPECT_EQ(red, (red >> 3) << 3 | red >> 5) << "level " << v;
        EXPECT_EQ(green, (green >> 2) << 2 | green >> 6) << "level " << v;
        EXPECT_LE(std::abs(red - v), 4);
        EXPECT_LE(std::abs(green - v), 2);
    }
}

TEST(Finished, EdgePixelsBecomeOpaqueOnTheirGroundOrTransparent) {
    art::canvas picture(2, 1);
    cairo_rectangle(picture, 0, 0, 0.75, 1);
    cairo_rectangle(picture, 1, 0, 0.25, 1);
    art::fill(picture, {0, 0, 0});
    const raster bare = art::finished(picture);
    EXPECT_EQ(bare.pixels[0], 0xFF000000);
    EXPECT_EQ(bare.pixels[1], 0U);
    const raster grounded = art::finished(picture, {.ground = art::rgb{1, 1, 1}, .threshold = 0.1});
    EXPECT_NEAR(grounded.pixels[0] & 0xFF, 0x40, 4);
    EXPECT_NEAR(grounded.pixels[1] & 0xFF, 0xC0, 4);
}

// --- Joints: no gap, whichever piece is drawn first ----------------------------------------------

using art::edge_kind;
using art::side;

constexpr art::joint_colours COLOURS = {
    .line = art::hex(0x507090), .dent = art::hex(0x90A0B0), .panel = art::hex(0xE0F0FF), .cells = art::hex(0xA0D0E0)};

bool opaque(const art::canvas &picture, int x, int y) {
    return pixel(picture, x, y) >> 24 != 0;
}

TEST(Joints, EveryPixelBesideAFillIsFillOrLine) {
    for (const int width : {44, 55, 67}) {
        const art::knob_mask mask(art::knob_for(width));
        for (int row = 0; row < mask.grid_row(); ++row) {
            for (int column = 1; column + 1 < mask.columns; ++column) {
                if (!mask.fill(column, row))
                    continue;
                for (const auto &[dx, dy] : {std::pair{-1, 0}, {1, 0}, {0, -1}})
                    EXPECT_TRUE(mask.fill(column + dx, row + dy) || mask.ring(column + dx, row + dy))
                        << "pieces " << width << ": the line is open at " << column << ", " << row;
            }
        }
    }
}

// A placed tab is its fill alone: the first row and column of the socket's picture show the line beyond it. Right
// sockets stand one row higher than left tabs.
TEST(Joints, PlacedTabFillsItsSocketExactly) {
    for (const int width : {44, 55, 67}) {
        const art::knob_mask mask(art::knob_for(width));
        for (const auto &[tab_side, socket_side, shift] :
             {std::tuple{side::top, side::bottom, 0}, {side::left, side::right, 1}}) {
            const art::canvas tab = art::draw_edge(mask, edge_kind::placed, tab_side, COLOURS);
            const art::canvas socket = art::draw_edge(mask, edge_kind::placed, socket_side, COLOURS);
            ASSERT_LE(socket.width - shift, tab.width);
            ASSERT_LE(socket.height - 1, tab.height);
            for (int y = 1; y < socket.height; ++y)
                for (int x = shift; x < socket.width; ++x)
                    EXPECT_NE(opaque(socket, x, y), opaque(tab, x - shift, y - 1))
                        << "pieces " << width << " at " << x << ", " << y;
        }
    }
}

// --- Problems ------------------------------------------------------------------------------------

// That they are the answers to what the boards ask is checked while the whole program is played.
TEST(Problems, FractionsAreInLowestTermsAndCountable) {
    std::map<std::pair<int, int>, std::set<std::pair<int, int>>> drawings; // by lowest terms: parts and shape
    for (int cell = 0; cell < PUZZLE_LAYOUTS[7].labels; ++cell) {
        const art::fraction f = art::fraction_problem(cell);
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

TEST(Problems, TimesDiffer) {
    std::set<std::string> seen;
    for (int cell = 0; cell < PUZZLE_LAYOUTS[10].labels; ++cell) {
        const art::clock_time t = art::time_problem(cell);
        EXPECT_GE(t.hour, 1);
        EXPECT_LE(t.hour, 12);
        EXPECT_GE(t.minute, 0);
        EXPECT_LT(t.minute, 60);
        EXPECT_EQ(t.minute % 5, 0);
        EXPECT_TRUE(seen.insert(art::time_text(t)).second) << art::time_text(t) << " comes twice";
    }
}

} // namespace
