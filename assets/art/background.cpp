// background.cpp: the squared sky paper of the craft table, on which play and study take place.
//
// Black and navy text stands directly on it and cream pieces lie on it, so it keeps to a middle tone and
// nothing drawn on it differs from the plain paper by more than a breath.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "palette.h"
#include "paths.h"
#include "save.h"
#include "sets.h"

#include <numbers>

namespace art {

namespace {

constexpr int WIDTH = 800, HEIGHT = 600;
constexpr int SQUARE = 25, FIRST_LINE = 12, STRONG_EVERY = 5; // pixels, pixels, lines
constexpr rgb LINE = hex(0x2E6A94);
constexpr double LINE_ALPHA = 0.055, STRONG_ALPHA = 0.105;
constexpr rgb CHALK_WHITE = {1, 1, 1};
constexpr double SHAPE_ALPHA = 0.17, SHAPE_LINE = 2.4;

void draw_paper(cairo_t *cr) {
    cairo_pattern_t *light = cairo_pattern_create_linear(0, 0, WIDTH, HEIGHT);
    cairo_pattern_add_color_stop_rgb(light, 0.0, PAPER_LIGHT.r, PAPER_LIGHT.g, PAPER_LIGHT.b);
    cairo_pattern_add_color_stop_rgb(light, 0.5, PAPER.r, PAPER.g, PAPER.b);
    cairo_pattern_add_color_stop_rgb(light, 1.0, PAPER_DARK.r, PAPER_DARK.g, PAPER_DARK.b);
    cairo_set_source(cr, light);
    cairo_paint(cr);
    cairo_pattern_destroy(light);
}

void draw_squares(cairo_t *cr) {
    for (int i = 0, at = FIRST_LINE; at < WIDTH; ++i, at += SQUARE) {
        const double alpha = i % STRONG_EVERY == STRONG_EVERY - 1 ? STRONG_ALPHA : LINE_ALPHA;
        cairo_rectangle(cr, at, 0, 1, HEIGHT);
        fill(cr, LINE, alpha);
        if (at < HEIGHT) {
            cairo_rectangle(cr, 0, at, WIDTH, 1);
            fill(cr, LINE, alpha);
        }
    }
}

// Shapes as if drawn on the paper with a white pencil, in the margins that boards and texts leave free.
struct pencil_shape {
    double x, y, turn; // of the drawing's origin, pixels; degrees clockwise
    drawn_part part;
};

constexpr pencil_shape SHAPES[] = {
    {62, 92, 0, {"O 0 0 34 M0 0 L0 -34 M0 0 L29.4 17 M0 0 L-29.4 17", SHAPE_LINE}}, // thirds
    {27, 250, -12, {"M0 0 L74 0 L0 -92 Z M13 -12 L46 -12 L13 -53 Z", SHAPE_LINE}},  // set square
    {64, 322, 0, {"M-12 0 L12 0 M0 -12 L0 12", SHAPE_LINE}},                        // plus
    {34, 440, 0, {"R -20 -36 66 66 3 M13 -36 L13 30 M-20 -3 L46 -3", SHAPE_LINE}},  // quarters
    {738, 118, 0, {"O 0 0 37 M0 -24 L0 0 L17 10 M0 -37 L0 -31 M0 37 L0 31 M-37 0 L-31 0 M37 0 L31 0", SHAPE_LINE}},
    {716, 216, 0, {"M-10 -10 L10 10 M10 -10 L-10 10", SHAPE_LINE}}, // times
    {752,
     290,
     8,
     {"M-17 -30 L17 -30 L34 0 L17 30 L-17 30 L-34 0 Z M-17 -30 L17 30 M17 -30 L-17 30 M-34 0 L34 0",
      SHAPE_LINE}},                                             // sixths
    {728, 378, 0, {"M-12 -5 L12 -5 M-12 5 L12 5", SHAPE_LINE}}, // equals
};

void draw_shapes(cairo_t *cr) {
    constexpr double degree = std::numbers::pi / 180;
    for (const pencil_shape &shape : SHAPES) {
        cairo_push_group(cr);
        cairo_translate(cr, shape.x, shape.y);
        cairo_rotate(cr, shape.turn * degree);
        draw_parts(cr, {&shape.part, 1}, CHALK_WHITE);
        cairo_pop_group_to_source(cr);
        cairo_paint_with_alpha(cr, SHAPE_ALPHA);
    }
}

} // namespace

void make_background() {
    canvas paper(WIDTH, HEIGHT);
    draw_paper(paper);
    draw_squares(paper);
    draw_shapes(paper);
    save(paper, entry_of(BACKGROUND_SET, 0), {.dither = true});
}

} // namespace art
