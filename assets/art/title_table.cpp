// title_table.cpp: the craft table being set, seen for a moment on the way from the title to study and play:
// eleven pieces, one for each puzzle, lie on a sheet of squared paper, and the twelfth is just coming.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "title_table.h"
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
#include <cstdint>
#include <numbers>
#include <vector>

namespace art {
namespace {

constexpr double PI = std::numbers::pi;
constexpr rgb WHITE = hex(0xFFFFFF);

// --- The table and the paper on it ---------------------------------------------------------------

void birch_planks(cairo_t *cr) {
    constexpr int PLANKS = 5;
    constexpr double HEIGHT = SCREEN_HEIGHT / static_cast<double>(PLANKS);
    constexpr std::array TONES = {hex(0xEBD3A6), hex(0xE6CB9B), hex(0xEED8AE), hex(0xE4C896), hex(0xE9D0A2)};
    constexpr rgb GRAIN = hex(0xC79F66);
    for (int i = 0; i < PLANKS; ++i) {
        const double y = i * HEIGHT;
        const rgb tone = TONES[static_cast<std::size_t>(i)];
        cairo_rectangle(cr, 0, y, SCREEN_WIDTH, HEIGHT);
        fill_gradient(cr, 0, y, lighten(tone, 0.015), 0, y + HEIGHT, lighten(tone, -0.02));
        cairo_save(cr);
        cairo_rectangle(cr, 0, y, SCREEN_WIDTH, HEIGHT);
        cairo_clip(cr);
        for (int line = 0; line < 9; ++line) {
            const double gy = y + (line + 0.6) * HEIGHT / 9, bend = 7 * std::sin(i * 2.3 + line * 1.7);
            cairo_move_to(cr, 0, gy);
            cairo_curve_to(cr, 200, gy + bend, 320, gy - bend, 420, gy + bend * 0.5);
            cairo_curve_to(cr, 560, gy + bend * 1.6, 680, gy - bend, SCREEN_WIDTH, gy + bend * 0.3);
            stroke(cr, GRAIN, 1.5, 0.16 + 0.10 * std::abs(std::sin(line * 2.1 + i)));
        }
        cairo_restore(cr);
        cairo_rectangle(cr, 0, y, SCREEN_WIDTH, 1.5);
        fill(cr, hex(0x8F6B38), 0.65);
        cairo_rectangle(cr, 0, y + 1.5, SCREEN_WIDTH, 1.5);
        fill(cr, WHITE, 0.35);
    }
}

void squared_paper(cairo_t *cr) {
    constexpr double X = 142, Y = 92, W = 516, H = 398, PITCH = 25;
    paint_shadow(
        cr, [&] { rounded_rect(cr, X, Y, W, H, 4); }, 4, 7, 9, 0.35);
    rounded_rect(cr, X, Y, W, H, 4);
    fill_gradient(cr, X, Y, PAPER_LIGHT, X + W, Y + H, PAPER_DARK);
    for (int i = 1; i * PITCH < W; ++i)
        cairo_rectangle(cr, std::floor(X + i * PITCH), Y, 1, H);
    for (int i = 1; i * PITCH < H; ++i)
        cairo_rectangle(cr, X, std::floor(Y + i * PITCH), W, 1);
    fill(cr, hex(0x6F9AB8), 0.28);
    rounded_rect(cr, X + 0.5, Y + 0.5, W - 1, H - 1, 4);
    stroke(cr, hex(0x7FA3BC), 1);
}

// --- The twelve pieces ---------------------------------------------------------------------------

constexpr int COLUMNS = 4, ROWS = 3;
constexpr double PIECE_W = 106, PIECE_H = 98, KNOB = 17, DEPTH = 7, FIRST_X = 188, FIRST_Y = 128;

void print_sign(cairo_t *cr, double cx, double cy, int type) {
    const puzzle_look &look = PUZZLE_LOOKS[type];
    centred_text(cr, 34, cx, cy, look.icon, board_colours_of(look.accent).ink);
}

void print_clock(cairo_t *cr, double cx, double cy, int) {
    draw_clock(cr, 10, 10, cx, cy, 66);
}

void print_coins(cairo_t *cr, double cx, double cy, int) {
    draw_coin(cr, 25, cx - 17, cy - 8, 42);
    draw_coin(cr, 1, cx + 21, cy - 16, 34);
    draw_coin(cr, 100, cx + 8, cy + 15, 43);
}

void print_price(cairo_t *cr, double cx, double cy, int type) {
    constexpr double SIZE = 48, CAP = 14;
    emoji(cr, "🍎", cx - SIZE / 2 - 4, cy - SIZE / 2 - 12, SIZE);
    rounded_rect(cr, cx - 10, cy + 12, 46, 23, 5);
    fill_keep(cr, WHITE);
    const rgb ink = board_colours_of(PUZZLE_LOOKS[type].accent).ink;
    stroke(cr, ink, 1.3);
    centred_text(cr, CAP, cx + 13, cy + 23.5, money_text(36), ink);
}

void print_fraction(cairo_t *cr, double cx, double cy, int type) {
    constexpr double SIZE = 48;
    const rgb accent = PUZZLE_LOOKS[type].accent;
    draw_fraction(cr, fraction_shape::pie, 3, 4, cx - SIZE / 2 - 16, cy - SIZE / 2, SIZE, lighten(accent, 0.10));
    upright_fraction(cr, 16, cx + 23, cy, 3, 4, board_colours_of(accent).ink);
}

// Three rows of four make twelve.
void print_factors(cairo_t *cr, double cx, double cy, int) {
    constexpr double STEP = 20, R = 8;
    for (int i = 0; i < 12; ++i) {
        circle(cr, cx + (i % 4 - 1.5) * STEP, cy + (i / 4 - 1) * STEP, R);
        const rgb hue = to_rgb({0.66, 0.16, 25.0 + 110 * (i / 4)});
        fill_keep(cr, hue);
        stroke(cr, lighten(hue, -0.26), 1.4);
    }
}

void print_star(cairo_t *cr, double cx, double cy, int) {
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    star_path(cr, cx, cy + 2, 30, 13.5);
    fill_keep(cr, hex(0xFFD23E));
    stroke(cr, hex(0x8A5C08), 2.4);
}

// One piece of the picture: its puzzle, -1 for the one that is still coming.
struct table_piece {
    int type;
    void (*print)(cairo_t *, double cx, double cy, int type);
};
constexpr std::array<table_piece, COLUMNS *ROWS> PIECES = {{
    {0, print_sign},
    {10, print_clock},
    {2, print_sign},
    {9, print_coins},
    {1, print_sign},
    {3, print_sign},
    {4, print_sign},
    {5, print_sign},
    {6, print_price},
    {7, print_fraction},
    {8, print_factors},
    {-1, print_star},
}};

// The picture's joints.
constexpr int ACROSS[ROWS][COLUMNS - 1] = {{1, -1, 1}, {-1, 1, -1}, {1, -1, -1}};
constexpr int DOWN[ROWS - 1][COLUMNS] = {{-1, 1, -1, 1}, {1, -1, 1, -1}};

piece_shape table_shape(int column, int row) {
    return {.x = FIRST_X + column * PIECE_W,
            .y = FIRST_Y + row * PIECE_H,
            .w = PIECE_W,
            .h = PIECE_H,
            .sides = sides_in_grid(ACROSS, DOWN, column, row),
            .knob = KNOB};
}

// Cardboard in the puzzle's own hue, light enough to print on; the darker twin of a pair stays the darker.
rgb table_face(int type) {
    if (type < 0)
        return CREAM;
    const puzzle_look &look = PUZZLE_LOOKS[type];
    const lch accent = to_lch(look.accent);
    return to_rgb({look.white_ink ? 0.80 : std::max(0.88, accent.l + 0.02), std::min(0.11, accent.c * 0.8), accent.h});
}

void picture_on_paper(cairo_t *cr) {
    for (int pass = 0; pass < 3; ++pass) // shadows, cardboard sides, faces: no piece throws one on another's face
        for (int i = 0; i < COLUMNS * ROWS; ++i) {
            const piece_shape shape = table_shape(i % COLUMNS, i / COLUMNS);
            const table_piece &piece = PIECES[static_cast<std::size_t>(i)];
            const rgb face_colour = table_face(piece.type);
            if (piece.type < 0)
                continue;
            if (pass == 0)
                paint_piece_shadow(cr, shape, 4, 9, 6, 0.5);
            else if (pass == 1)
                paint_loose_piece(cr, shape, face_colour, DEPTH);
            else {
                paint_flat_piece(cr, shape, face_colour, lighten(face_colour, -0.34), 1.6);
                piece.print(cr, shape.x + PIECE_W / 2, shape.y + PIECE_H / 2, piece.type);
            }
        }
}

void last_piece(cairo_t *cr) {
    constexpr double X = 600, Y = 436, TURN = 13;
    piece_shape shape = table_shape(COLUMNS - 1, ROWS - 1);
    shape.x = -PIECE_W / 2;
    shape.y = -PIECE_H / 2;
    const auto append = [&] {
        cairo_translate(cr, X, Y);
        cairo_rotate(cr, TURN * PI / 180);
        piece_path(cr, shape);
    };
    paint_shadow(cr, append, 12, 22, 16, 0.5);
    cairo_save(cr);
    cairo_translate(cr, X, Y);
    cairo_rotate(cr, TURN * PI / 180);
    paint_loose_piece(cr, shape, table_face(-1), DEPTH + 1);
    print_star(cr, 0, 0, -1);
    cairo_restore(cr);
}

// --- Round the paper -----------------------------------------------------------------------------

void tray_of_pieces(cairo_t *cr) {
    constexpr double X = 18, Y = 206, W = 100, H = 262;
    constexpr int PLACES = 4;
    constexpr std::array NUMBERS = {"12", "25", "8", "40"};
    paint_shadow(
        cr, [&] { rounded_rect(cr, X, Y, W, H, 8); }, 5, 8, 8, 0.4);
    paint_tray(cr, X, Y, W, H, 1, PLACES);
    for (int i = 0; i < PLACES; ++i) {
        piece_shape shape = {-30, -19, 60, 40, {1, -1, -1, 1}, 9};
        cairo_save(cr);
        cairo_translate(cr, X + W / 2 + 2, Y + 38 + i * 63);
        cairo_rotate(cr, (i % 2 == 0 ? -4 : 5) * PI / 180);
        paint_piece_shadow(cr, shape, 2, 4, 4, 0.5);
        paint_loose_piece(cr, shape, CREAM, 4);
        centred_text(cr, 19, -2, -1, NUMBERS[static_cast<std::size_t>(i)], PRINT);
        cairo_restore(cr);
    }
}

void scattered_coins(cairo_t *cr) {
    struct lying_coin {
        int cents;
        double x, y;
    };
    constexpr lying_coin LYING[] = {{5, 700, 388}, {50, 742, 366}, {10, 776, 398}, {1, 735, 412}};
    for (const lying_coin &c : LYING) {
        const double d = coin_diameter(c.cents);
        paint_shadow(
            cr, [&] { circle(cr, c.x, c.y, d / 2); }, 2, 3, 3, 0.4);
        draw_coin(cr, c.cents, c.x, c.y, d);
    }
}

void stack_of_cards(cairo_t *cr) {
    constexpr double X = 300, Y = 512, W = 76, H = 64;
    const board_colours colours = board_colours_of(PUZZLE_LOOKS[1].accent);
    paint_shadow(
        cr, [&] { rounded_rect(cr, X, Y, W + 8, H + 8, 6); }, 4, 6, 6, 0.4);
    paint_card(cr, X, Y, W, H, colours, 4);
    centred_text(cr, 22, X + W / 2, Y + H / 2, "6×7", PRINT);
}

// A note with a few friendly words.
void note(cairo_t *cr) {
    constexpr spot AT = {714, 516, 7};
    draw_sheet(cr, AT, 138, 92, hex(0xFFE27A));
    cairo_save(cr);
    cairo_translate(cr, AT.x, AT.y);
    cairo_rotate(cr, AT.turn * PI / 180);
    text(cr, face::cherry_bomb, 18, 0, -8, align::centre, "Ready?", hex(0x7A3B0A));
    text(cr, face::cherry_bomb, 16, -2, 24, align::centre, "Let's go!", hex(0x1D4674));
    cairo_restore(cr);
}

// Light that falls through a window at the upper left.
void sunlight(cairo_t *cr) {
    constexpr double SLANT = 210;
    for (int pane = 0; pane < 2; ++pane) {
        const double x = -40 + pane * 250;
        cairo_move_to(cr, x, 0);
        cairo_line_to(cr, x + 220, 0);
        cairo_line_to(cr, x + 220 + SLANT * 2, SCREEN_HEIGHT);
        cairo_line_to(cr, x + SLANT * 2, SCREEN_HEIGHT);
        cairo_close_path(cr);
    }
    fill(cr, hex(0xFFF8DC), 0.10);
    cairo_pattern_t *corner = cairo_pattern_create_radial(340, 240, 300, 400, 300, 560);
    cairo_pattern_add_color_stop_rgba(corner, 0, 0.2, 0.12, 0.02, 0);
    cairo_pattern_add_color_stop_rgba(corner, 1, 0.2, 0.12, 0.02, 0.28);
    cairo_set_source(cr, corner);
    cairo_paint(cr);
    cairo_pattern_destroy(corner);
}

// --- Fewer colours -------------------------------------------------------------------------------

// So many hues, each with its dithered shades, would need more colours than a picture can hold. Green is the
// one channel with six bits; here it takes every other of its levels, and the error goes on to the right and
// to the row below, as when a picture is written.
void halve_greens(canvas &picture) {
    constexpr int STEPS = 31, LEVELS = 63; // levels used, and the highest level there is
    const auto level = [](int step) {
        const int six = step * LEVELS / STEPS;
        return six << 2 | six >> 4;
    };
    cairo_surface_flush(picture.surface.get());
    unsigned char *data = cairo_image_surface_get_data(picture.surface.get());
    const int stride = cairo_image_surface_get_stride(picture.surface.get());
    std::vector<double> below(static_cast<std::size_t>(picture.width) + 1), now;
    for (int y = 0; y < picture.height; ++y) {
        now = below;
        std::ranges::fill(below, 0.0);
        auto *row = reinterpret_cast<std::uint32_t *>(data + y * stride);
        for (int x = 0; x < picture.width; ++x) {
            const auto i = static_cast<std::size_t>(x);
            const double wanted = ((row[x] >> 8) & 0xFF) + now[i];
            const int got = level(std::clamp(static_cast<int>(std::lround(wanted * STEPS / 255)), 0, STEPS));
            row[x] = (row[x] & 0xFFFF00FFu) | static_cast<std::uint32_t>(got) << 8;
            now[i + 1] += (wanted - got) / 2;
            below[i] += (wanted - got) / 2;
        }
    }
    cairo_surface_mark_dirty(picture.surface.get());
}

} // namespace

canvas draw_craft_table() {
    canvas table(SCREEN_WIDTH, SCREEN_HEIGHT);
    birch_planks(table);
    draw_sheet(table, {640, 118, 12}, 130, 160, hex(0xFFB6A8));
    draw_sheet(table, {176, 470, -14}, 150, 120, hex(0xBFE6B0));
    squared_paper(table);
    sunlight(table);
    picture_on_paper(table);
    draw_ruler(table, {330, 46, -2}, 300);
    draw_pot_plant(table, {52, 72, 10}, 190);
    draw_pencil_pot(table, {168, 56, 0}, 76);
    draw_mug(table, {566, 52, -25}, 84, hex(0xE4572E));
    draw_biscuits(table, {728, 82, 0}, 124);
    paint_shadow(
        table, [&] { circle(table, 730, 244, 54); }, 6, 10, 9, 0.45);
    draw_clock(table, 3, 0, 730, 244, 108);
    tray_of_pieces(table);
    scattered_coins(table);
    draw_pencil(table, {92, 520, -24}, 170, hex(0xE4572E));
    draw_pencil(table, {112, 548, -17}, 170, hex(0x3C9A55));
    draw_pencil(table, {134, 574, -10}, 170, hex(0x2F7FBF));
    stack_of_cards(table);
    draw_eraser(table, {256, 552, 16}, 58);
    draw_scissors(table, {484, 545, -6}, 140, hex(0x8E4FA8));
    note(table);
    last_piece(table);
    halve_greens(table);
    return table;
}

} // namespace art
