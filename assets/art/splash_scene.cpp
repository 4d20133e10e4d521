// splash_scene.cpp: a jigsaw of nine pieces in a wooden tray, each with something to reckon, lit by a lamp; the
// ninth piece floats beside its place.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "splash_scene.h"

#include "night.h"
#include "palette.h"
#include "problems.h"
#include "text.h"
#include "things.h"
#include "title_parts.h"
#include "title_props.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string>

namespace art {
namespace {

constexpr double PI = std::numbers::pi;
constexpr rgb WHITE = hex(0xFFFFFF);
constexpr rgb LAMP = hex(0xA9C6FF);

constexpr int COLUMNS = 3, ROWS = 3;
constexpr double PIECE_W = 110, PIECE_H = 100, KNOB = 18, DEPTH = 6; // pixels
constexpr double FRAME = 15;                                         // width of the tray's rim
constexpr double FIRST_X = 26, FIRST_Y = 20;

// --- What the pieces show ------------------------------------------------------------------------

struct face_colours {
    rgb ground, ink;
};

// Print in the same hue as the cardboard, dark enough to read from afar.
face_colours colours_for(int type) {
    const lch accent = to_lch(PUZZLE_LOOKS[type].accent);
    return {.ground = to_rgb({std::max(0.89, accent.l + 0.03), std::min(0.085, accent.c * 0.7), accent.h}),
            .ink = to_rgb({0.31, std::min(0.12, accent.c), accent.h})};
}

// One, two, three: a ladybird for each.
void count_ladybirds(cairo_t *cr, double cx, double cy, const face_colours &c) {
    constexpr double SIZE = 24, PITCH = 27, CAP = 18;
    for (int row = 0; row < 3; ++row) {
        const double y = cy + (row - 1) * PITCH;
        for (int i = 0; i <= row; ++i)
            emoji(cr, "🐞", cx - 46 + i * (SIZE + 1), y - SIZE / 2, SIZE);
        centred_text(cr, CAP, cx + 40, y, std::to_string(row + 1), c.ink);
    }
}

void show_clock(cairo_t *cr, double cx, double cy, const face_colours &) {
    constexpr double DIAMETER = 74;
    paint_shadow(
        cr, [&] { circle(cr, cx, cy, DIAMETER / 2); }, 1.5, 2.5, 2, 0.3);
    draw_clock(cr, 10, 10, cx, cy, DIAMETER);
}

void show_coins(cairo_t *cr, double cx, double cy, const face_colours &) {
    struct lying {
        int cents;
        double dx, dy, diameter;
    };
    constexpr lying LYING[] = {{25, -21, -14, 46}, {1, 25, -20, 38}, {100, 8, 16, 52}};
    for (const lying &coin : LYING) {
        paint_shadow(
            cr, [&] { circle(cr, cx + coin.dx, cy + coin.dy, coin.diameter / 2); }, 1.5, 2.5, 2, 0.35);
        draw_coin(cr, coin.cents, cx + coin.dx, cy + coin.dy, coin.diameter);
    }
}

// Large print with a light lower edge, as if it were pressed into the cardboard.
void large_print(cairo_t *cr, double cx, double cy, double cap, const char *words, const face_colours &c) {
    centred_text(cr, cap, cx + 1.2, cy + 1.4, words, mix(c.ground, WHITE, 0.8));
    centred_text(cr, cap, cx, cy, words, c.ink);
}

void multiply(cairo_t *cr, double cx, double cy, const face_colours &c) {
    large_print(cr, cx, cy + 2, 34, "7×8", c);
}

void divide(cairo_t *cr, double cx, double cy, const face_colours &c) {
    large_print(cr, cx + 1, cy, 32, "24÷6", c);
}

void answer(cairo_t *cr, double cx, double cy, const face_colours &c) {
    large_print(cr, cx, cy + 5, 44, "56", c);
}

void multiply_next(cairo_t *cr, double cx, double cy, const face_colours &c) {
    large_print(cr, cx, cy, 36, "9×6", c);
}

// An apple with its price on a string.
void show_apple(cairo_t *cr, double cx, double cy, const face_colours &c) {
    constexpr double SIZE = 58, TAG_W = 46, TAG_H = 24, CAP = 14;
    emoji(cr, "🍎", cx - SIZE / 2 - 6, cy - SIZE / 2 - 4, SIZE);
    cairo_save(cr);
    cairo_translate(cr, cx + 19, cy + 29);
    cairo_rotate(cr, -0.08);
    cairo_move_to(cr, -TAG_W / 2 + 8, 0);
    cairo_curve_to(cr, -TAG_W / 2 - 4, -20, -26, -38, -22, -54);
    stroke(cr, hex(0x7A5A3A), 1.4);
    const auto tag = [&] {
        cairo_move_to(cr, -TAG_W / 2, 0);
        cairo_line_to(cr, -TAG_W / 2 + 9, -TAG_H / 2);
        cairo_line_to(cr, TAG_W / 2, -TAG_H / 2);
        cairo_line_to(cr, TAG_W / 2, TAG_H / 2);
        cairo_line_to(cr, -TAG_W / 2 + 9, TAG_H / 2);
        cairo_close_path(cr);
    };
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    paint_shadow(cr, tag, 1.5, 2.5, 2, 0.3);
    tag();
    fill_keep(cr, hex(0xFFFEF8));
    stroke(cr, c.ink, 1.4);
    circle(cr, -TAG_W / 2 + 8, 0, 2);
    fill(cr, c.ink);
    centred_text(cr, CAP, 5, 0, money_text(36), c.ink);
    cairo_restore(cr);
}

void show_fraction(cairo_t *cr, double cx, double cy, const face_colours &c) {
    constexpr double SIZE = 58;
    paint_shadow(
        cr, [&] { circle(cr, cx - 16, cy, SIZE / 2); }, 1.5, 2.5, 2, 0.3);
    draw_fraction(cr, fraction_shape::pie, 3, 4, cx - SIZE / 2 - 16, cy - SIZE / 2, SIZE, hex(0x9A4FB5));
    upright_fraction(cr, 19, cx + 33, cy, 3, 4, c.ink);
}

struct scene_piece {
    int type; // whose hue it has
    void (*print)(cairo_t *, double cx, double cy, const face_colours &);
};
constexpr std::array<scene_piece, COLUMNS *ROWS> PIECES = {{
    {0, count_ladybirds},
    {10, show_clock},
    {9, show_coins},
    {1, multiply},
    {6, show_apple},
    {4, divide},
    {7, show_fraction},
    {2, answer},
    {3, multiply_next},
}};
constexpr int LOOSE = COLUMNS * ROWS - 1;

// --- The jigsaw ----------------------------------------------------------------------------------

// Tabs go where the print leaves room.
constexpr int ACROSS[ROWS][COLUMNS - 1] = {{1, -1}, {1, -1}, {1, -1}};
constexpr int DOWN[ROWS - 1][COLUMNS] = {{1, 1, 1}, {-1, 1, -1}};

piece_shape scene_shape(int column, int row) {
    return {.x = FIRST_X + column * PIECE_W,
            .y = FIRST_Y + row * PIECE_H,
            .w = PIECE_W,
            .h = PIECE_H,
            .sides = sides_in_grid(ACROSS, DOWN, column, row),
            .knob = KNOB};
}

// Quiet dots in the cardboard's own colour.
void dotted_ground(cairo_t *cr, const piece_shape &shape, rgb ground) {
    constexpr double PITCH = 18, R = 4.5, OVER = 24;
    cairo_save(cr);
    piece_path(cr, shape);
    cairo_clip(cr);
    for (int row = -2; row * PITCH < shape.h + OVER; ++row)
        for (double x = shape.x - OVER + (row % 2 == 0 ? 0 : PITCH / 2); x < shape.x + shape.w + OVER; x += PITCH)
            circle(cr, x, shape.y + row * PITCH, R);
    fill(cr, lighten(ground, 0.05), 0.55);
    cairo_restore(cr);
}

void piece_front(cairo_t *cr, const piece_shape &shape, const scene_piece &piece) {
    const face_colours c = colours_for(piece.type);
    dotted_ground(cr, shape, c.ground);
    piece_path(cr, shape); // over the dots, which reach into it
    stroke(cr, lighten(c.ground, -0.38), 1.8);
    piece.print(cr, shape.x + shape.w / 2, shape.y + shape.h / 2, c);
}

void tray(cairo_t *cr) {
    const double x = FIRST_X - FRAME, y = FIRST_Y - FRAME;
    const double w = COLUMNS * PIECE_W + 2 * FRAME, h = ROWS * PIECE_H + 2 * FRAME + DEPTH;
    paint_shadow(
        cr, [&] { rounded_rect(cr, x, y, w, h + 4, 14); }, 6, 12, 16, 0.6);
    rounded_rect(cr, x, y, w, h + 6, 14);
    fill(cr, WOOD_OUTLINE);
    rounded_rect(cr, x + 1, y + 1, w - 2, h + 4, 13);
    fill(cr, WOOD_SHADE);
    rounded_rect(cr, x + 1, y + 1, w - 2, h - 2, 13);
    fill_gradient(cr, x, y, lighten(WOOD, 0.04), x + w, y + h, lighten(WOOD, -0.05));
    cairo_save(cr);
    rounded_rect(cr, x + 1, y + 1, w - 2, h - 2, 13);
    cairo_clip(cr);
    for (int i = 0; i < 44; ++i) { // grain
        const double gy = y + i * 8 + 3;
        cairo_move_to(cr, x, gy);
        cairo_curve_to(cr, x + w * 0.3, gy + 5, x + w * 0.6, gy - 5, x + w, gy + 2);
        stroke(cr, WOOD_SHADE, 1.2, 0.28);
    }
    rounded_rect(cr, x + 2, y + 2, w, h, 13);
    stroke(cr, WOOD_LIGHT, 2);
    cairo_restore(cr);
    const double fx = FIRST_X - 4, fy = FIRST_Y - 4, fw = COLUMNS * PIECE_W + 8, fh = ROWS * PIECE_H + 8 + DEPTH;
    rounded_rect(cr, fx, fy, fw, fh, 6);
    fill_gradient(cr, fx, fy, lighten(TRAY_FLOOR, -0.12), fx + fw, fy + fh, lighten(TRAY_FLOOR, -0.04));
    for (double gy = fy + 6; gy < fy + fh; gy += 9) {
        cairo_move_to(cr, fx, gy);
        cairo_curve_to(cr, fx + fw * 0.4, gy + 6, fx + fw * 0.7, gy - 6, fx + fw, gy + 1);
        stroke(cr, WOOD_OUTLINE, 1, 0.20);
    }
    rounded_rect(cr, fx, fy, fw, fh, 6);
    stroke(cr, WOOD_OUTLINE, 1.4);
}

// The place that waits for the last piece: bare wood in the shadow of its neighbours, with a dashed outline.
void waiting_place(cairo_t *cr) {
    piece_shape hole = scene_shape(COLUMNS - 1, ROWS - 1);
    constexpr double DASHES[] = {7, 6};
    cairo_save(cr);
    cairo_set_dash(cr, DASHES, std::size(DASHES), 0);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    hole.y += DEPTH;
    piece_path(cr, hole);
    stroke(cr, hex(0xFFF3D0), 2, 0.9);
    cairo_restore(cr);
}

void eight_pieces(cairo_t *cr) {
    for (int pass = 0; pass < 3; ++pass) // shadows, cardboard sides, faces
        for (int i = 0; i < LOOSE; ++i) {
            const piece_shape shape = scene_shape(i % COLUMNS, i / COLUMNS);
            const scene_piece &piece = PIECES[static_cast<std::size_t>(i)];
            const rgb ground = colours_for(piece.type).ground;
            if (pass == 0)
                paint_piece_shadow(cr, shape, 3, DEPTH + 3, 5, 0.6);
            else if (pass == 1)
                paint_loose_piece(cr, shape, ground, DEPTH);
            else {
                paint_flat_piece(cr, shape, ground, lighten(ground, -0.38), 1.8);
                piece_front(cr, shape, piece);
            }
        }
}

void floating_piece(cairo_t *cr) {
    constexpr double X = 353, Y = 322, TURN = 11;
    piece_shape shape = scene_shape(COLUMNS - 1, ROWS - 1);
    shape.x = -PIECE_W / 2;
    shape.y = -PIECE_H / 2;
    paint_shadow(
        cr,
        [&] {
            cairo_translate(cr, X, Y);
            cairo_rotate(cr, TURN * PI / 180);
            piece_path(cr, shape);
        },
        9, 18, 13, 0.6);
    cairo_save(cr);
    cairo_translate(cr, X, Y);
    cairo_rotate(cr, TURN * PI / 180);
    const scene_piece &piece = PIECES[LOOSE];
    paint_loose_piece(cr, shape, colours_for(piece.type).ground, DEPTH + 2);
    piece_front(cr, shape, piece);
    cairo_restore(cr);
}

// --- Light and sparkle ---------------------------------------------------------------------------

// A lamp's light on the blackboard; it dies away before the picture's edge.
void lamp_light(cairo_t *cr) {
    cairo_save(cr);
    cairo_translate(cr, SPLASH_SCENE_W / 2.0, SPLASH_SCENE_H / 2.0);
    cairo_scale(cr, 1, static_cast<double>(SPLASH_SCENE_H) / SPLASH_SCENE_W);
    cairo_pattern_t *light = cairo_pattern_create_radial(0, 0, 60, 0, 0, SPLASH_SCENE_W / 2.0);
    cairo_pattern_add_color_stop_rgba(light, 0, LAMP.r, LAMP.g, LAMP.b, 0.24);
    cairo_pattern_add_color_stop_rgba(light, 0.75, LAMP.r, LAMP.g, LAMP.b, 0.13);
    cairo_pattern_add_color_stop_rgba(light, 1, LAMP.r, LAMP.g, LAMP.b, 0);
    cairo_set_source(cr, light);
    cairo_paint(cr);
    cairo_pattern_destroy(light);
    cairo_restore(cr);
}

// A twinkle of four points.
void twinkle(cairo_t *cr, double x, double y, double size, rgb colour) {
    cairo_move_to(cr, x, y - size);
    cairo_curve_to(cr, x + size * 0.12, y - size * 0.12, x + size * 0.12, y - size * 0.12, x + size, y);
    cairo_curve_to(cr, x + size * 0.12, y + size * 0.12, x + size * 0.12, y + size * 0.12, x, y + size);
    cairo_curve_to(cr, x - size * 0.12, y + size * 0.12, x - size * 0.12, y + size * 0.12, x - size, y);
    cairo_curve_to(cr, x - size * 0.12, y - size * 0.12, x - size * 0.12, y - size * 0.12, x, y - size);
    fill(cr, colour);
}

void sparkles(cairo_t *cr) {
    struct sparkle {
        double x, y, size;
        rgb colour;
    };
    constexpr sparkle ALL[] = {
        {410, 258, 8, hex(0xFFF6C8)}, {402, 236, 5, hex(0xFFD23E)}, {412, 380, 6, hex(0xFFF6C8)},
        {276, 388, 6, hex(0xFFD23E)}, {404, 84, 6, hex(0xFFF6C8)},  {400, 40, 5, hex(0xFFE9A8)},
        {394, 150, 4, hex(0xFFFFFF)}, {8, 190, 4, hex(0xFFE9A8)},
    };
    for (const sparkle &s : ALL)
        twinkle(cr, s.x, s.y, s.size, s.colour);
}

} // namespace

canvas draw_splash_scene() {
    canvas scene = night_window(SPLASH_SCENE_X, SPLASH_SCENE_Y, SPLASH_SCENE_W, SPLASH_SCENE_H);
    lamp_light(scene);
    tray(scene);
    waiting_place(scene);
    eight_pieces(scene);
    draw_chalk_stick(scene, {52, 378, 8}, 62, hex(0xFFF7E8));
    draw_chalk_stick(scene, {126, 384, -6}, 50, hex(0xFFC2D6));
    draw_pencil(scene, {216, 376, 4}, 104, hex(0xF2B13C));
    floating_piece(scene);
    sparkles(scene);
    return scene;
}

} // namespace art
