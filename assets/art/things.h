// things.h: the things that puzzles are about (coins, clocks, fractions, jigsaw outlines), at any size.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

#include <array>

namespace art {

// A coin by its value in cents: 1, 5, 10, 25, 50 or 100. `diameter` in pixels; centre (cx, cy).
void draw_coin(cairo_t *cr, int cents, double cx, double cy, double diameter);

// The diameter that a coin has among the others, in pixels.
double coin_diameter(int cents);

// An analogue clock showing hour:minute.
void draw_clock(cairo_t *cr, int hour, int minute, double cx, double cy, double diameter);

// Shapes that can be cut into equal parts.
enum class fraction_shape { pie, bar, grid, hexagon, triangle, square };

// A shape in the square (x, y, size, size), cut into `parts` equal parts of which `coloured` are filled.
void draw_fraction(cairo_t *cr, fraction_shape shape, int coloured, int parts, double x, double y, double size,
                   rgb colour);

// Whether that many parts of the shape look equal and can be counted at the size of a puzzle piece.
// (Any number can be drawn, and is always cut into equal areas.)
bool fraction_suits(fraction_shape shape, int parts);

// A large jigsaw piece outline (for pictures, not for the game's own joints) appended to the path:
// body (x, y, w, h); for each side top, right, bottom, left: +1 a tab, -1 a socket, 0 straight.
// `knob` is how far a tab sticks out; it is 1.43 times as wide.
void jigsaw_outline(cairo_t *cr, double x, double y, double w, double h, std::array<int, 4> sides, double knob);

} // namespace art
