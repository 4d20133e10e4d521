// title_parts.cpp: pieces, boards, cards, trays and keys for the large pictures.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "title_parts.h"

#include "palette.h"
#include "text.h"
#include "things.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace art {
namespace {

constexpr rgb WHITE = hex(0xFFFFFF);
constexpr rgb DIGIT_OUTLINE = hex(0x5A4320), DIGIT_FACE = hex(0xFFFDF4);
constexpr double DARK_ACCENT = 0.55; // an accent below this lightness needs smaller steps to its darker tones

// Runs `paint` inside the path, which `append` draws.
template <typename Append, typename Paint> void inside(cairo_t *cr, Append append, Paint paint) {
    cairo_save(cr);
    append(0.0, 0.0);
    cairo_clip(cr);
    paint();
    cairo_restore(cr);
}

// Light along the upper left of a shape and shade along its lower right, `edge` pixels wide; a sunken
// shape takes them the other way round.
template <typename Append> void bevel(cairo_t *cr, Append append, rgb upper, rgb lower, double edge) {
    inside(cr, append, [&] {
        append(-edge * 0.7, -edge * 0.7);
        stroke(cr, lower, edge * 1.4);
        append(edge * 0.7, edge * 0.7);
        stroke(cr, upper, edge * 1.4);
    });
}

// A rectangle with rounded corners as `inside` and `bevel` take it.
auto rounded(cairo_t *cr, double x, double y, double w, double h, double radius) {
    return [=](double dx, double dy) { rounded_rect(cr, x + dx, y + dy, w, h, radius); };
}

} // namespace

// --- Colours -------------------------------------------------------------------------------------

board_colours board_colours_of(rgb accent) {
    const lch a = to_lch(accent);
    const double down = a.l < DARK_ACCENT ? 0.12 : 0.22;
    return {.accent = accent,
            .outline = lighten(accent, -down),
            .side = lighten(accent, -0.10),
            .light = lighten(accent, 0.08),
            .panel = to_rgb({0.955, std::min(0.035, 0.28 * a.c), a.h}),
            .joint = to_rgb({0.53, std::min(0.06, a.c), a.h}),
            .ink = to_rgb({0.30, std::min(0.10, a.c), a.h})};
}

rgb row_tone(rgb accent, int row, int rows) {
    constexpr int WHEEL = 10;
    if (rows == WHEEL)
        return to_rgb({0.87, 0.075, 25.0 + 36 * row});
    return to_rgb({0.87, 0.072, to_lch(accent).h + 28.0 * (row - 2)});
}

// --- Pieces --------------------------------------------------------------------------------------

void piece_path(cairo_t *cr, const piece_shape &s, double dx, double dy) {
    jigsaw_outline(cr, s.x + dx, s.y + dy, s.w, s.h, s.sides, s.knob);
}

void paint_flat_piece(cairo_t *cr, const piece_shape &shape, rgb face_colour, rgb joint, double edge) {
    const auto append = [&](double dx, double dy) { piece_path(cr, shape, dx, dy); };
    append(0, 0);
    fill_gradient(cr, shape.x, shape.y, lighten(face_colour, 0.015), shape.x + shape.w * 0.4, shape.y + shape.h,
                  lighten(face_colour, -0.02));
    bevel(cr, append, mix(face_colour, WHITE, 0.75), lighten(face_colour, -0.12), edge);
    append(0, 0);
    stroke(cr, joint, edge > 1 ? 1.5 : 1);
}

void paint_loose_piece(cairo_t *cr, const piece_shape &shape, rgb face_colour, double depth) {
    const auto append = [&](double dx, double dy) { piece_path(cr, shape, dx, dy); };
    const rgb side = lighten(face_colour, -0.20), outline = lighten(face_colour, -0.46);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    for (double d = depth; d >= 0.5; d -= 0.5) { // outlines first, so that the side gets one all round
        append(0, d);
        stroke(cr, outline, 2);
    }
    for (double d = depth; d >= 0.5; d -= 0.5) {
        append(0, d);
        fill(cr, mix(side, lighten(side, -0.10), d / depth));
    }
    append(0, 0);
    stroke(cr, outline, 2);
    append(0, 0);
    fill_gradient(cr, shape.x, shape.y, lighten(face_colour, 0.02), shape.x + shape.w * 0.4, shape.y + shape.h,
                  lighten(face_colour, -0.025));
    bevel(cr, append, mix(face_colour, WHITE, 0.85), lighten(face_colour, -0.13), std::max(1.0, depth / 4));
}

void paint_hole(cairo_t *cr, const piece_shape &shape, rgb floor, rgb joint, double edge) {
    const auto append = [&](double dx, double dy) { piece_path(cr, shape, dx, dy); };
    append(0, 0);
    fill(cr, floor);
    bevel(cr, append, lighten(floor, -0.07), lighten(floor, 0.04), edge * 1.4);
    append(0, 0);
    stroke(cr, joint, 1);
}

void paint_shadow(cairo_t *cr, const std::function<void()> &append, double dx, double dy, double blur, double alpha) {
    constexpr int RINGS = 8;
    constexpr rgb DARK = hex(0x0A0C18);
    cairo_save(cr);
    cairo_set_operator(cr, CAIRO_OPERATOR_ATOP);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_translate(cr, dx, dy);
    append();
    cairo_path_t *path = cairo_copy_path(cr);
    cairo_new_path(cr);
    for (int ring = 0; ring < RINGS; ++ring) { // wider and wider, and so fainter towards the rim
        cairo_push_group_with_content(cr, CAIRO_CONTENT_ALPHA);
        cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
        cairo_append_path(cr, path);
        fill_keep(cr, DARK);
        stroke(cr, DARK, 2 * blur * ring / RINGS);
        cairo_pattern_t *grown = cairo_pop_group(cr);
        cairo_set_source_rgba(cr, DARK.r, DARK.g, DARK.b, alpha / RINGS);
        cairo_mask(cr, grown);
        cairo_pattern_destroy(grown);
    }
    cairo_path_destroy(path);
    cairo_restore(cr);
}

void paint_piece_shadow(cairo_t *cr, const piece_shape &shape, double dx, double dy, double blur, double alpha) {
    paint_shadow(
        cr, [&] { piece_path(cr, shape); }, dx, dy, blur, alpha);
}

// --- Boards and cards ----------------------------------------------------------------------------

void paint_board(cairo_t *cr, double x, double y, double w, double h, const board_colours &c) {
    constexpr double RADIUS = 12, SIDE = 4, RIM = 8; // pixels
    rounded_rect(cr, x, y, w, h, RADIUS);
    fill(cr, c.outline);
    rounded_rect(cr, x + 1, y + 1, w - 2, h - 2, RADIUS - 1);
    fill(cr, c.side);
    rounded_rect(cr, x + 1, y + 1, w - 2, h - 2 - SIDE, RADIUS - 1);
    fill_gradient(cr, x, y, lighten(c.accent, 0.02), x, y + h, lighten(c.accent, -0.02));
    bevel(cr, rounded(cr, x + 1, y + 1, w - 2, h - 2 - SIDE, RADIUS - 1), c.light, c.accent, 1.2);
    const double px = x + RIM, py = y + RIM, pw = w - 2 * RIM, ph = h - 2 * RIM - SIDE + 1;
    rounded_rect(cr, px - 1, py - 1, pw + 2, ph + 2, RADIUS - RIM + 4);
    fill(cr, c.outline);
    rounded_rect(cr, px, py, pw, ph, RADIUS - RIM + 3);
    fill_gradient(cr, px, py, lighten(c.panel, 0.015), px + pw, py + ph, lighten(c.panel, -0.015));
    inside(cr, rounded(cr, px, py, pw, ph, RADIUS - RIM + 3), [&] { // the frame's shadow on the panel
        for (int i = 1; i <= 3; ++i) {
            rounded_rect(cr, px, py, pw + 8, ph + 8, RADIUS - RIM + 3);
            stroke(cr, c.outline, 2.0 * i, 0.09);
        }
    });
}

void paint_card(cairo_t *cr, double x, double y, double w, double h, const board_colours &c, int stack) {
    constexpr double RADIUS = 6, RIM = 5, STRIPE = 6;
    for (int i = stack; i > 0; --i) {
        rounded_rect(cr, x + 2 * i, y + 2 * i, w, h, RADIUS);
        fill(cr, c.outline);
        rounded_rect(cr, x + 2 * i + 1, y + 2 * i + 1, w - 2, h - 2, RADIUS - 1);
        fill(cr, c.side);
    }
    rounded_rect(cr, x, y, w, h, RADIUS);
    fill(cr, c.outline);
    rounded_rect(cr, x + 1, y + 1, w - 2, h - 2, RADIUS - 1);
    fill(cr, c.accent);
    inside(cr, rounded(cr, x + 1, y + 1, w - 2, h - 2, RADIUS - 1), [&] {
        for (double d = -h; d < w; d += STRIPE) {
            cairo_move_to(cr, x + d, y + h);
            cairo_line_to(cr, x + d + h, y);
        }
        stroke(cr, lighten(c.accent, 0.10), 2);
    });
    rounded_rect(cr, x + RIM - 1, y + RIM - 1, w - 2 * RIM + 2, h - 2 * RIM + 2, RADIUS - 2);
    fill(cr, c.outline);
    rounded_rect(cr, x + RIM, y + RIM, w - 2 * RIM, h - 2 * RIM, RADIUS - 3);
    fill(cr, CREAM);
}

// --- Wood ----------------------------------------------------------------------------------------

void paint_plate(cairo_t *cr, double x, double y, double w, double h) {
    constexpr double RADIUS = 8, SIDE = 3;
    rounded_rect(cr, x, y, w, h, RADIUS);
    fill(cr, WOOD_OUTLINE);
    rounded_rect(cr, x + 1, y + 1, w - 2, h - 2, RADIUS - 1);
    fill(cr, WOOD_SHADE);
    rounded_rect(cr, x + 1, y + 1, w - 2, h - 2 - SIDE, RADIUS - 1);
    fill_gradient(cr, x, y, lighten(WOOD, 0.02), x, y + h, lighten(WOOD, -0.03));
    inside(cr, rounded(cr, x + 1, y + 1, w - 2, h - 2 - SIDE, RADIUS - 1), [&] { // grain
        for (double d = 4; d < h; d += 7) {
            cairo_move_to(cr, x, y + d);
            cairo_curve_to(cr, x + w * 0.3, y + d + 3, x + w * 0.6, y + d - 3, x + w, y + d + 1);
            stroke(cr, WOOD_SHADE, 1, 0.28);
        }
    });
    bevel(cr, rounded(cr, x + 1, y + 1, w - 2, h - 2 - SIDE, RADIUS - 1), WOOD_LIGHT, WOOD, 1.2);
}

void paint_tray(cairo_t *cr, double x, double y, double w, double h, int columns, int rows) {
    constexpr double RIM = 6, WALL = 4, SIDE = 2, RADIUS = 4;
    paint_plate(cr, x, y, w, h);
    const double cell_w = (w - 2 * RIM + WALL) / columns, cell_h = (h - 2 * RIM - SIDE + WALL) / rows;
    for (int i = 0; i < columns * rows; ++i) {
        const double cx = x + RIM + (i % columns) * cell_w, cy = y + RIM + (i / columns) * cell_h;
        const auto append = rounded(cr, cx, cy, cell_w - WALL, cell_h - WALL, RADIUS);
        append(0, 0);
        fill(cr, TRAY_FLOOR);
        inside(cr, append, [&] {
            for (int ring = 1; ring <= 4; ++ring) {
                append(1, 1);
                stroke(cr, WOOD_OUTLINE, 2.5 * ring, 0.13);
            }
        });
        append(0, 0);
        stroke(cr, WOOD_OUTLINE, 1, 0.8);
    }
}

void paint_digit(cairo_t *cr, double x, double y, std::string_view digit) {
    constexpr double WIDTH = 20, HEIGHT = 28, CAP = 16;
    rounded_rect(cr, x, y, WIDTH, HEIGHT, 4);
    fill(cr, DIGIT_OUTLINE);
    rounded_rect(cr, x + 1, y + 1, WIDTH - 2, HEIGHT - 2, 3);
    fill(cr, DIGIT_FACE);
    centred_text(cr, CAP, x + WIDTH / 2, y + HEIGHT / 2, digit, PRINT);
}

// --- Print ---------------------------------------------------------------------------------------

void centred_text(cairo_t *cr, double cap_height, double cx, double cy, std::string_view utf8, rgb colour) {
    text(cr, face::dosis_bold, cap_height, cx, cy + cap_height / 2, align::centre, utf8, colour);
}

void upright_fraction(cairo_t *cr, double cap_height, double cx, double cy, int over, int under, rgb colour) {
    const double bar = std::max(2.0, cap_height * 0.13), gap = cap_height * 0.24;
    const std::string above = std::to_string(over), below = std::to_string(under);
    const double width =
        std::max(text_width(face::dosis_bold, cap_height, above), text_width(face::dosis_bold, cap_height, below)) +
        cap_height * 0.3;
    centred_text(cr, cap_height, cx, cy - bar / 2 - gap - cap_height / 2, above, colour);
    centred_text(cr, cap_height, cx, cy + bar / 2 + gap + cap_height / 2, below, colour);
    rounded_rect(cr, cx - width / 2, cy - bar / 2, width, bar, bar / 2);
    fill(cr, colour);
}

void star_path(cairo_t *cr, double cx, double cy, double outer, double inner) {
    constexpr int CORNERS = 10;
    for (int i = 0; i < CORNERS; ++i) {
        const double a = i * std::numbers::pi / 5, r = i % 2 == 0 ? outer : inner;
        cairo_line_to(cr, cx + r * std::sin(a), cy - r * std::cos(a));
    }
    cairo_close_path(cr);
}

} // namespace art
