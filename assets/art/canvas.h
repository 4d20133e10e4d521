// canvas.h: vector drawing into small pictures.
//
// A canvas is a transparent Cairo surface at the final size of one picture; everything is drawn straight at that size.
// One process draws one set, in one thread. Failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "colour.h"

#include <cairo.h>

#include <cstdint>
#include <memory>

namespace art {

struct surface_deleter {
    void operator()(cairo_surface_t *s) const { cairo_surface_destroy(s); }
};
struct context_deleter {
    void operator()(cairo_t *c) const { cairo_destroy(c); }
};

// A transparent ARGB32 drawing surface of width x height pixels with its Cairo context.
struct canvas {
    canvas(int width, int height);
    int width, height;
    std::unique_ptr<cairo_surface_t, surface_deleter> surface;
    std::unique_ptr<cairo_t, context_deleter> context;

    operator cairo_t *() const { return context.get(); } // so that Cairo calls take a canvas
};

// Its pixels of row y, premultiplied 0xAARRGGBB. Mark the surface dirty after writing.
std::uint32_t *row_of(const canvas &picture, int y);

// Fills and strokes; each leaves the current path empty.
void fill(cairo_t *cr, rgb colour, double alpha = 1);
void fill_keep(cairo_t *cr, rgb colour, double alpha = 1); // keeps the path
void stroke(cairo_t *cr, rgb colour, double line_width, double alpha = 1);
void fill_gradient(cairo_t *cr, double x0, double y0, rgb from, double x1, double y1, rgb to);

// Appends a closed rectangle with rounded corners to the path.
void rounded_rect(cairo_t *cr, double x, double y, double w, double h, double radius);
void circle(cairo_t *cr, double cx, double cy, double radius);

// Paints `part` (whole surface) with its upper left corner at (x, y).
void paste(cairo_t *cr, const canvas &part, double x, double y, double alpha = 1);

} // namespace art
