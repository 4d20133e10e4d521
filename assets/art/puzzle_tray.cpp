// puzzle_tray.cpp: the wooden tray in which the loose pieces of the counting puzzles lie.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzle_tray.h"

#include "puzzle.h"

namespace art {
namespace {

constexpr int TRAY_WIDTH = 613, TRAY_HEIGHT = 260, TRAY_COLUMNS = 10, TRAY_ROWS = 5;
constexpr int PLACE_PITCH_X = 61, PLACE_PITCH_Y = 51;
constexpr int PLACE_X = 3, PLACE_Y = 5, PLACE_WIDTH = 57, PLACE_HEIGHT = 46;

// Wide, faint streaks along the wood.
void draw_grain(cairo_t *cr, double x, double y, double w, double h, int seed) {
    constexpr int streaks = 4;
    for (int i = 0; i < streaks; ++i) {
        const double at = y + h * ((i * 37 + seed * 53) % 100) / 100.0;
        cairo_move_to(cr, x, at);
        cairo_curve_to(cr, x + w * 0.3, at - 3, x + w * 0.7, at + 3, x + w, at + (seed % 3) - 1);
        stroke(cr, i % 2 ? WOOD_LIGHT : WOOD_SHADE, 5, 0.10);
    }
}

void shade_strip(cairo_t *cr, double x0, double y0, double x1, double y1, double alpha) {
    cairo_pattern_t *pattern = cairo_pattern_create_linear(x0, y0, x1, y1);
    cairo_pattern_add_color_stop_rgba(pattern, 0, WOOD_OUTLINE.r, WOOD_OUTLINE.g, WOOD_OUTLINE.b, alpha);
    cairo_pattern_add_color_stop_rgba(pattern, 1, WOOD_OUTLINE.r, WOOD_OUTLINE.g, WOOD_OUTLINE.b, 0);
    cairo_set_source(cr, pattern);
    cairo_paint(cr);
    cairo_pattern_destroy(pattern);
}

void draw_place(cairo_t *cr, double x, double y, int seed) {
    constexpr double w = PLACE_WIDTH, h = PLACE_HEIGHT, radius = 5;
    rounded_rect(cr, x, y, w + 1, h + 1, radius); // the lower and right edges catch the light
    fill(cr, WOOD_LIGHT);
    rounded_rect(cr, x, y, w, h, radius);
    fill(cr, mix(WOOD_SHADE, WOOD_OUTLINE, 0.5));
    rounded_rect(cr, x + 1, y + 1, w - 1, h - 1, radius - 1);
    cairo_save(cr);
    cairo_clip_preserve(cr);
    fill(cr, TRAY_FLOOR);
    draw_grain(cr, x, y, w, h, seed);
    shade_strip(cr, 0, y, 0, y + 9, 0.5);
    shade_strip(cr, x, 0, x + 7, 0, 0.4);
    cairo_restore(cr);
}

} // namespace

void make_tray(int type) {
    const int shift = measures_of(type).box_shift;
    canvas tray(TRAY_WIDTH, TRAY_HEIGHT);
    rounded_rect(tray, 0, 0, TRAY_WIDTH, TRAY_HEIGHT, 8);
    fill(tray, WOOD_OUTLINE);
    rounded_rect(tray, 1, 1, TRAY_WIDTH - 2, TRAY_HEIGHT - 2, 7);
    fill(tray, WOOD_SHADE);
    rounded_rect(tray, 1, 1, TRAY_WIDTH - 3, TRAY_HEIGHT - 4, 7);
    fill(tray, WOOD_LIGHT);
    rounded_rect(tray, 2, 2, TRAY_WIDTH - 4, TRAY_HEIGHT - 5, 6);
    fill(tray, WOOD);
    for (int i = 0; i < TRAY_COLUMNS * TRAY_ROWS; ++i)
        draw_place(tray, PLACE_X + shift + PLACE_PITCH_X * (i % TRAY_COLUMNS),
                   PLACE_Y + shift + PLACE_PITCH_Y * (i / TRAY_COLUMNS), i * 7 % 11);
    save(tray, entry_of_puzzle(type, PICTURE_BOX), {.dither = true});
}

} // namespace art
