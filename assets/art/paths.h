// paths.h: outlines written as short texts, so that a drawing can stand in a table.
//
// A text is a row of commands, each a letter and its numbers (groups may repeat):
//   M x y   begin a new line        L x y                 straight to
//   C x1 y1 x2 y2 x y  curve to     Z                     close
//   O cx cy r          circle       R x y w h r           rounded rectangle
//
// A text that cannot be read ends the program with a message.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

#include <span>
#include <string_view>

namespace art {

// Appends the outline to the current path.
void trace(cairo_t *cr, std::string_view outline);

// One part of a drawing: filled (even-odd, so an outline within an outline is a hole), or stroked
// with round ends where it has a line width.
struct drawn_part {
    std::string_view outline;
    double line = 0; // width in the drawing's own units; 0 fills
};

// Draws all parts in one colour. No line becomes thinner than `thinnest` device pixels.
void draw_parts(cairo_t *cr, std::span<const drawn_part> parts, rgb colour, double thinnest = 0);

} // namespace art
