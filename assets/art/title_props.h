// title_props.h: the things that lie about on a craft table, seen from above, for the large pictures. Each
// lies round (x, y), is turned clockwise by `turn` degrees and throws its shadow on what is already painted.
//
// One thread; failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

namespace art {

// Where a thing lies: its middle and how far it is turned.
struct spot {
    double x = 0, y = 0, turn = 0;
};

void draw_pencil(cairo_t *cr, spot at, double length, rgb colour);
void draw_chalk_stick(cairo_t *cr, spot at, double length, rgb colour);
void draw_ruler(cairo_t *cr, spot at, double length);
void draw_scissors(cairo_t *cr, spot at, double length, rgb handle);
void draw_eraser(cairo_t *cr, spot at, double length);
void draw_mug(cairo_t *cr, spot at, double diameter, rgb glaze);
void draw_biscuits(cairo_t *cr, spot at, double diameter);
// A sheet of coloured paper, with a curl at its lower right corner.
void draw_sheet(cairo_t *cr, spot at, double width, double height, rgb colour);
void draw_pot_plant(cairo_t *cr, spot at, double diameter);
// A pot of pencils seen from above.
void draw_pencil_pot(cairo_t *cr, spot at, double diameter);

} // namespace art
