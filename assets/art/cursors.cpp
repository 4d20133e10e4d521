// cursors.cpp: the three mouse pointers: an arrow, an open hand and a closed hand.
//
// The game puts a fixed pixel of each picture on the mouse position; the tips are drawn there.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "input/cursor_shapes.h"
#include "paths.h"
#include "save.h"
#include "sets.h"

#include <span>

namespace art {

namespace {

constexpr rgb OUTLINE = hex(0x13233F), SKIN = hex(0xFFFFFF);
constexpr double OUTLINE_WIDTH = 1.15; // pixels, round each part
constexpr double CREASE_WIDTH = 1.0, CREASE_ALPHA = 0.8;

// A pointer is the union of its parts in white with one outline round it, creased where fingers meet.
struct pointer {
    int width, height;
    std::span<const drawn_part> parts;
    std::string_view creases;
};

constexpr drawn_part ARROW[] = {
    {"M1 .8 L1 17.4 L5.2 13.7 L8 20.4 L11 19.2 L8.2 12.6 L13.6 12.6 Z"},
};

// Fingers three pixels wide, one pixel apart: the outlines of neighbours meet in that pixel.
constexpr drawn_part OPEN_HAND[] = {
    {"R 4 2 3 12 1.5"},
    {"R 8 1 3 13 1.5"},
    {"R 12 2 3 12 1.5"},
    {"R 16 4 3 10 1.5"},
    {"M4 14 L4 12.6 C3.8 11.4 2.8 10.9 1.9 11.2 C.9 11.6 .8 12.6 1.4 13.6 L5.4 20 C6.6 21.6 8 22 10 22 L13 22 "
     "C17 22 19 19 19 15 L19 11 L4 11 Z"},
};

// The same fingers bent: only the knuckles stand out, and the thumb lies beside them.
constexpr drawn_part CLOSED_HAND[] = {
    {"R 4 2 3 7 1.5"},  {"R 8 1 3 8 1.5"},   {"R 12 1 3 8 1.5"},
    {"R 16 3 3 7 1.5"}, {"R 2 8 6 5.5 2.7"}, {"M4 7 L19 6 L19 11 C19 15 16.8 17 13 17 L10 17 C6.5 17 4 15 4 12 Z"},
};

// By their shapes' numbers.
constexpr pointer POINTERS[CURSOR_SHAPE_COUNT] = {
    {16, 21, ARROW, ""},
    {21, 24, OPEN_HAND, "M7.5 10 L7.5 12 M11.5 10 L11.5 12 M15.5 10 L15.5 12"},
    {21, 21, CLOSED_HAND, "M7.5 2 L7.5 5.5 M11.5 2 L11.5 5.5 M15.5 3 L15.5 5.5"},
};

// Draws every part grown by `margin` on all sides.
void draw_grown(cairo_t *cr, std::span<const drawn_part> parts, rgb colour, double margin) {
    for (const drawn_part &part : parts) {
        trace(cr, part.outline);
        fill_keep(cr, colour);
        stroke(cr, colour, 2 * margin);
    }
}

void draw_pointer(cairo_t *cr, const pointer &p) {
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    draw_grown(cr, p.parts, OUTLINE, OUTLINE_WIDTH);
    draw_grown(cr, p.parts, SKIN, 0);
    trace(cr, p.creases);
    stroke(cr, OUTLINE, CREASE_WIDTH, CREASE_ALPHA);
}

} // namespace

void make_cursors() {
    for (int shape = 0; shape < CURSOR_SHAPE_COUNT; ++shape) {
        const pointer &p = POINTERS[shape];
        canvas picture(p.width, p.height);
        draw_pointer(picture, p);
        save(picture, entry_of(CURSOR_SHAPES[shape].pictures, 0));
    }
}

} // namespace art
