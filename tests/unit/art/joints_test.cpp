// joints_test.cpp: tabs and sockets must meet without a gap, whichever piece is drawn first.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "edges.h"

#include <gtest/gtest.h>

namespace {

using art::edge_kind;
using art::side;

constexpr art::joint_colours COLOURS = {
    .line = art::hex(0x507090), .dent = art::hex(0x90A0B0), .panel = art::hex(0xE0F0FF), .cells = art::hex(0xA0D0E0)};

bool opaque(const art::canvas &picture, int x, int y) {
    cairo_surface_flush(picture.surface.get());
    const unsigned char *data = cairo_image_surface_get_data(picture.surface.get());
    return data[y * cairo_image_surface_get_stride(picture.surface.get()) + x * 4 + 3] != 0;
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

// A placed tab is its fill alone: the first row and column of the socket's picture show the line beyond it.
TEST(Joints, PlacedTabFillsItsSocketExactly) {
    for (const int width : {44, 55, 67}) {
        const art::knob_mask mask(art::knob_for(width));
        const art::canvas tab = art::draw_edge(mask, edge_kind::placed, side::top, COLOURS);
        const art::canvas socket = art::draw_edge(mask, edge_kind::placed, side::bottom, COLOURS);
        ASSERT_EQ(tab.width, socket.width);
        for (int x = 0; x < socket.width; ++x) {
            EXPECT_TRUE(opaque(socket, x, 0)) << "the hole is closed above";
            for (int y = 1; y < socket.height; ++y)
                EXPECT_NE(opaque(socket, x, y), opaque(tab, x, y - 1))
                    << "pieces " << width << " at " << x << ", " << y;
        }
        const art::canvas left = art::draw_edge(mask, edge_kind::placed, side::left, COLOURS);
        const art::canvas right = art::draw_edge(mask, edge_kind::placed, side::right, COLOURS);
        ASSERT_EQ(right.height, left.height + 1); // right sockets stand one row higher than left tabs
        for (int y = 1; y < right.height; ++y) {
            for (int x = 1; x < right.width; ++x)
                EXPECT_NE(opaque(right, x, y), opaque(left, x - 1, y - 1))
                    << "pieces " << width << " at " << x << ", " << y;
        }
    }
}

} // namespace
