// title_parts.h: what the large pictures of title and splash are put together from: jigsaw pieces of any
// size, boards, cards, trays and keys, all with the light from the top left.
//
// These are for pictures only; the pieces and boards of the game itself are made elsewhere, pixel by pixel.
// One thread; failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace art {

// The colours of a puzzle's board, all derived from its accent.
struct board_colours {
    rgb accent;
    rgb outline;     // the line round everything that carries the accent
    rgb side, light; // lower and upper edge of the frame
    rgb panel;       // the paper inside the frame
    rgb joint;       // lines between cells and pieces
    rgb ink;         // dark print in the accent's hue
};
board_colours board_colours_of(rgb accent);

// The ground of row `row` (from 0) on a board with `rows` tones (5, or 10 for the wheel of all hues).
rgb row_tone(rgb accent, int row, int rows);

// A jigsaw piece: body rectangle, sides as jigsaw_outline takes them, size of its knobs, all in pixels.
struct piece_shape {
    double x = 0, y = 0, w = 0, h = 0;
    std::array<int, 4> sides = {};
    double knob = 0;
};
void piece_path(cairo_t *cr, const piece_shape &shape, double dx = 0, double dy = 0);

// The sides of a piece in a grid whose outer border is straight. The tables hold the joints between neighbours:
// +1 where the left (upper) piece carries the tab, -1 where it has the socket.
template <std::size_t rows, std::size_t columns>
std::array<int, 4> sides_in_grid(const int (&across)[rows][columns - 1], const int (&down)[rows - 1][columns],
                                 int column, int row) {
    const int last_column = static_cast<int>(columns) - 1, last_row = static_cast<int>(rows) - 1;
    return {row > 0 ? -down[row - 1][column] : 0, column < last_column ? across[row][column] : 0,
            row < last_row ? down[row][column] : 0, column > 0 ? -across[row][column - 1] : 0};
}

// A piece that lies in its place: flat, `edge` pixels of light and shade inside its line.
void paint_flat_piece(cairo_t *cr, const piece_shape &shape, rgb face_colour, rgb joint, double edge = 1);
// A loose piece of thick cardboard, `depth` pixels of its side showing below.
void paint_loose_piece(cairo_t *cr, const piece_shape &shape, rgb face_colour, double depth);
// The sunken place of a missing piece.
void paint_hole(cairo_t *cr, const piece_shape &shape, rgb floor, rgb joint, double edge = 1);

// A soft shadow of the outline that `append` adds to the path, moved by (dx, dy). It falls only on what is
// already painted, so that nothing half transparent comes about.
void paint_shadow(cairo_t *cr, const std::function<void()> &append, double dx, double dy, double blur, double alpha);
void paint_piece_shadow(cairo_t *cr, const piece_shape &shape, double dx, double dy, double blur, double alpha);

// A framed cardboard board.
void paint_board(cairo_t *cr, double x, double y, double w, double h, const board_colours &colours);
// The front of a card: striped rim in the accent round a plain cream field; `stack` cards lie below it.
void paint_card(cairo_t *cr, double x, double y, double w, double h, const board_colours &colours, int stack);
// A shallow wooden tray with columns x rows compartments.
void paint_tray(cairo_t *cr, double x, double y, double w, double h, int columns, int rows);
// A wooden plate with a raised edge, as the keys stand on.
void paint_plate(cairo_t *cr, double x, double y, double w, double h);
// A little white tile with one typed digit.
void paint_digit(cairo_t *cr, double x, double y, std::string_view digit);

// One line of Dosis with the middle of its capitals at (cx, cy).
void centred_text(cairo_t *cr, double cap_height, double cx, double cy, std::string_view utf8, rgb colour);
// A fraction with an upright bar, its middle at (cx, cy).
void upright_fraction(cairo_t *cr, double cap_height, double cx, double cy, int over, int under, rgb colour);
// A five-pointed star round (cx, cy), one point up, appended to the path.
void star_path(cairo_t *cr, double cx, double cy, double outer, double inner);

} // namespace art
