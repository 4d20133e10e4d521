// night.cpp: draws the blackboard: a soft vignette, haze as a sponge leaves it, and faint chalk drawings.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "night.h"

#include "palette.h"
#include "save.h"
#include "text.h"
#include "things.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace art {
namespace {

constexpr double PI = std::numbers::pi;

// --- Noise ---------------------------------------------------------------------------------------

// A repeatable random number 0..1 for a lattice point.
double lattice(int x, int y, std::uint32_t seed) {
    std::uint32_t h =
        seed * 0x9E3779B9u + static_cast<std::uint32_t>(x) * 0x85EBCA6Bu + static_cast<std::uint32_t>(y) * 0xC2B2AE35u;
    h ^= h >> 15;
    h *= 0x2C1B3C6Du;
    h ^= h >> 12;
    h *= 0x297A2D39u;
    h ^= h >> 15;
    return h / 4294967295.0;
}

// Smooth value noise, -1..1, with one lattice point per unit.
double noise(double x, double y, std::uint32_t seed) {
    const int ix = static_cast<int>(std::floor(x)), iy = static_cast<int>(std::floor(y));
    const auto ease = [](double t) { return t * t * (3 - 2 * t); };
    const double fx = ease(x - ix), fy = ease(y - iy);
    const double top = std::lerp(lattice(ix, iy, seed), lattice(ix + 1, iy, seed), fx);
    const double low = std::lerp(lattice(ix, iy + 1, seed), lattice(ix + 1, iy + 1, seed), fx);
    return 2 * std::lerp(top, low, fy) - 1;
}

// The traces of a wiping sponge, about -1..1: streaks that run in wide shallow arcs.
double haze(double x, double y) {
    const double bend = y + 26 * std::sin(x / 190.0) + 0.10 * x;
    return 0.55 * noise(x / 260, bend / 90, 1) + 0.30 * noise(x / 120, bend / 34, 2) +
           0.25 * noise(x / 70, bend / 9, 3);
}

// --- Chalk drawings ------------------------------------------------------------------------------

// Every drawing has its middle at (0, 0), is `size` wide or high and is stroked in plain white; the
// grain comes later.
constexpr rgb WHITE = hex(0xFFFFFF);
constexpr double CHALK_LINE = 2.0; // pixels

void chalk_stroke(cairo_t *cr, double width = CHALK_LINE) {
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    stroke(cr, WHITE, width);
}

void chalk_line(cairo_t *cr, double x0, double y0, double x1, double y1) {
    cairo_move_to(cr, x0, y0);
    cairo_line_to(cr, x1, y1);
}

void chalk_text(cairo_t *cr, double size, const char *words) {
    text(cr, face::andika, size, 0, size / 2, align::centre, words, WHITE);
}

void chalk_clock(cairo_t *cr, double size, const char *) {
    const double r = size / 2;
    circle(cr, 0, 0, r);
    chalk_stroke(cr);
    circle(cr, 0, 0, r - 4);
    chalk_stroke(cr, 1);
    for (int i = 0; i < 12; ++i) {
        const double a = i * PI / 6, inner = i % 3 == 0 ? r - 12 : r - 9;
        chalk_line(cr, inner * std::sin(a), inner * std::cos(a), (r - 6) * std::sin(a), (r - 6) * std::cos(a));
    }
    chalk_line(cr, 0, 0, -r * 0.16, -r * 0.52);
    chalk_line(cr, 0, 0, r * 0.55, r * 0.10);
    chalk_stroke(cr);
}

void chalk_coin(cairo_t *cr, double size, const char *words) {
    circle(cr, 0, 0, size / 2);
    chalk_stroke(cr);
    circle(cr, 0, 0, size / 2 - 5);
    chalk_stroke(cr, 1.2);
    chalk_text(cr, size * 0.34, words);
}

void chalk_pie(cairo_t *cr, double size, const char *) {
    const double r = size / 2;
    circle(cr, 0, 0, r);
    for (int i = 0; i < 3; ++i)
        chalk_line(cr, r * std::cos(i * PI / 3), r * std::sin(i * PI / 3), -r * std::cos(i * PI / 3),
                   -r * std::sin(i * PI / 3));
    chalk_stroke(cr);
    cairo_move_to(cr, 0, 0);
    cairo_arc(cr, 0, 0, r, -PI / 3, PI / 3);
    cairo_close_path(cr);
    cairo_clip(cr);
    for (double d = -size; d < size; d += 6)
        chalk_line(cr, d, -r, d + size, r);
    chalk_stroke(cr, 1.4);
    cairo_reset_clip(cr);
}

void chalk_ruler(cairo_t *cr, double size, const char *) {
    const double h = size / 7;
    rounded_rect(cr, -size / 2, -h / 2, size, h, 2);
    for (int i = 1; i < 20; ++i) {
        const double x = -size / 2 + i * size / 20;
        chalk_line(cr, x, -h / 2, x, -h / 2 + (i % 5 == 0 ? h * 0.55 : h * 0.3));
    }
    chalk_stroke(cr, 1.6);
}

void chalk_set_square(cairo_t *cr, double size, const char *) {
    for (const double scale : {1.0, 0.45}) {
        const double s = size * scale / 2, shift = scale < 1 ? size * 0.08 : 0;
        cairo_move_to(cr, -s - shift, -s * 0.8 + shift);
        cairo_line_to(cr, s - shift, s * 0.8 + shift);
        cairo_line_to(cr, -s - shift, s * 0.8 + shift);
        cairo_close_path(cr);
    }
    chalk_stroke(cr);
}

void chalk_piece(cairo_t *cr, double size, const char *words) {
    const double body = size * 0.72;
    jigsaw_outline(cr, -body / 2, -body / 2, body, body, {1, -1, -1, 1}, size * 0.2);
    chalk_stroke(cr);
    if (words)
        chalk_text(cr, size * 0.24, words);
}

// Equal hops along a line of numbers.
void chalk_hops(cairo_t *cr, double size, const char *) {
    constexpr int HOPS = 5;
    const double step = size / (HOPS + 1), x0 = -size / 2 + step / 2;
    chalk_line(cr, -size / 2, 0, size / 2, 0);
    for (int i = 0; i <= HOPS; ++i) {
        chalk_line(cr, x0 + i * step, -4, x0 + i * step, 4);
        if (i < HOPS) {
            cairo_new_sub_path(cr);
            cairo_arc(cr, x0 + (i + 0.5) * step, -4, step / 2 - 1, PI, 2 * PI);
        }
    }
    chalk_stroke(cr, 1.8);
    for (int i = 0; i <= HOPS; ++i)
        text(cr, face::andika, 8, x0 + i * step, 18, align::centre, std::to_string(i * 3), WHITE);
}

// A square number as dots in rows: 4 x 3.
void chalk_dots(cairo_t *cr, double size, const char *) {
    const double step = size / 4;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column) {
            circle(cr, (column - 1.5) * step, (row - 1) * step, step * 0.27);
            chalk_stroke(cr, 1.8);
        }
}

void chalk_abacus(cairo_t *cr, double size, const char *) {
    const double h = size * 0.8;
    rounded_rect(cr, -size / 2, -h / 2, size, h, 4);
    chalk_stroke(cr, 2.4);
    constexpr int BEADS[] = {3, 5, 2, 6};
    constexpr int RODS = std::size(BEADS), ROOM = 8;
    for (int rod = 0; rod < RODS; ++rod) {
        const double y = -h / 2 + (rod + 0.75) * h / (RODS + 0.5), step = (size - 8) / ROOM;
        chalk_line(cr, -size / 2, y, size / 2, y);
        chalk_stroke(cr, 1);
        for (int bead = 0; bead < BEADS[rod]; ++bead) {
            circle(cr, -size / 2 + 4 + (bead + 0.5) * step, y, step * 0.46);
            chalk_stroke(cr, 1.6);
        }
    }
}

void chalk_cube(cairo_t *cr, double size, const char *) {
    const double a = size * 0.62, d = size * 0.3, x = -size / 2, y = size / 2 - a;
    cairo_rectangle(cr, x, y, a, a);
    cairo_move_to(cr, x, y);
    cairo_line_to(cr, x + d, y - d);
    cairo_line_to(cr, x + d + a, y - d);
    cairo_line_to(cr, x + d + a, y - d + a);
    cairo_line_to(cr, x + a, y + a);
    chalk_line(cr, x + a, y, x + d + a, y - d);
    chalk_stroke(cr);
}

void chalk_star(cairo_t *cr, double size, const char *) {
    for (int i = 0; i <= 5; ++i) { // one line through every other point
        const double a = i * 4 * PI / 5;
        cairo_line_to(cr, size / 2 * std::sin(a), -size / 2 * std::cos(a));
    }
    chalk_stroke(cr);
}

void chalk_tally(cairo_t *cr, double size, const char *) {
    for (int i = 0; i < 4; ++i)
        chalk_line(cr, (i - 1.5) * size / 4, -size * 0.4, (i - 1.4) * size / 4, size * 0.4);
    chalk_line(cr, -size * 0.52, size * 0.25, size * 0.5, -size * 0.28);
    chalk_stroke(cr, 2.2);
}

void chalk_words(cairo_t *cr, double size, const char *words) {
    chalk_text(cr, size, words);
}

// --- Where the drawings stand --------------------------------------------------------------------

// How strong chalk may be: text stands on most of the board, and must stay easy to read.
constexpr double FREE = 0.11, BEHIND_TEXT = 0.06;

struct chalk_drawing {
    void (*draw)(cairo_t *, double size, const char *words);
    int x, y;    // middle, pixels
    double size; // pixels
    double turn; // degrees, clockwise
    double strength;
    const char *words;
};

constexpr chalk_drawing CHALKS[] = {
    // The upper edge.
    {chalk_words, 430, 30, 20, 8, BEHIND_TEXT, "7"},
    {chalk_coin, 520, 34, 42, -6, FREE, "5¢"},
    {chalk_piece, 622, 38, 50, -8, FREE, nullptr},
    {chalk_clock, 705, 36, 46, 0, FREE, nullptr},
    {chalk_words, 779, 74, 22, 12, FREE, "8"},
    {chalk_words, 384, 114, 15, 14, FREE, "+"},
    {chalk_star, 770, 24, 26, 10, FREE, nullptr},
    // Left of and behind the list.
    {chalk_words, 11, 152, 17, 4, BEHIND_TEXT, "2"},
    {chalk_words, 12, 300, 15, 82, BEHIND_TEXT, "10"},
    {chalk_words, 12, 470, 17, -8, BEHIND_TEXT, "9"},
    {chalk_ruler, 228, 240, 100, 90, BEHIND_TEXT, nullptr},
    {chalk_pie, 252, 352, 54, 8, FREE, nullptr},
    {chalk_words, 262, 216, 15, -14, FREE, "3"},
    {chalk_set_square, 318, 206, 46, 12, FREE, nullptr},
    {chalk_tally, 240, 470, 30, -4, FREE, nullptr},
    {chalk_dots, 48, 542, 54, -5, FREE, nullptr},
    {chalk_words, 156, 544, 17, -4, FREE, "1 + 1 = 2"},
    // The middle, behind the pictures and the score log.
    {chalk_piece, 400, 280, 54, 14, BEHIND_TEXT, nullptr},
    {chalk_words, 500, 340, 15, -2, BEHIND_TEXT, "= 12"},
    {chalk_words, 371, 366, 15, -6, BEHIND_TEXT, "49"},
    {chalk_piece, 470, 400, 60, 10, BEHIND_TEXT, "6"},
    {chalk_words, 286, 424, 22, -5, FREE, "3 × 4"},
    {chalk_clock, 560, 470, 58, 14, BEHIND_TEXT, nullptr},
    {chalk_words, 619, 394, 18, 8, BEHIND_TEXT, "÷"},
    {chalk_abacus, 328, 470, 76, -5, FREE, nullptr},
    {chalk_cube, 468, 482, 42, 4, BEHIND_TEXT, nullptr},
    {chalk_hops, 410, 536, 190, 3, BEHIND_TEXT, nullptr},
    {chalk_coin, 272, 534, 42, -8, FREE, "10¢"},
    {chalk_set_square, 606, 546, 46, -2, BEHIND_TEXT, nullptr},
    {chalk_words, 548, 556, 16, -4, BEHIND_TEXT, "1/2"},
    // The right edge.
    {chalk_words, 639, 152, 18, 8, BEHIND_TEXT, "24"},
    {chalk_pie, 748, 200, 48, -20, BEHIND_TEXT, nullptr},
    {chalk_words, 600, 250, 15, -14, BEHIND_TEXT, "5 × 7"},
    {chalk_words, 770, 300, 24, -12, BEHIND_TEXT, "5"},
    {chalk_ruler, 692, 348, 98, -80, BEHIND_TEXT, nullptr},
    {chalk_words, 760, 362, 14, 6, BEHIND_TEXT, "= 35"},
};

// All chalk drawings, each at its own strength in the alpha channel.
canvas draw_chalk() {
    canvas board(SCREEN_WIDTH, SCREEN_HEIGHT);
    for (const chalk_drawing &item : CHALKS) {
        cairo_save(board);
        cairo_push_group(board);
        cairo_translate(board, item.x, item.y);
        cairo_rotate(board, item.turn * PI / 180);
        item.draw(board, item.size, item.words);
        cairo_pop_group_to_source(board);
        cairo_paint_with_alpha(board, item.strength);
        cairo_restore(board);
    }
    cairo_surface_flush(board.surface.get());
    return board;
}

// The chalk's strength at a point between pixels, 0..1.
double chalk_at(const canvas &chalk, double x, double y) {
    const int ix = static_cast<int>(std::floor(x)), iy = static_cast<int>(std::floor(y));
    if (ix < 0 || iy < 0 || ix + 1 >= SCREEN_WIDTH || iy + 1 >= SCREEN_HEIGHT)
        return 0;
    const unsigned char *data = cairo_image_surface_get_data(chalk.surface.get());
    const int stride = cairo_image_surface_get_stride(chalk.surface.get());
    const auto alpha = [&](int px, int py) {
        std::uint32_t value = 0;
        std::copy_n(data + py * stride + px * 4, 4, reinterpret_cast<unsigned char *>(&value));
        return (value >> 24) / 255.0;
    };
    return std::lerp(std::lerp(alpha(ix, iy), alpha(ix + 1, iy), x - ix),
                     std::lerp(alpha(ix, iy + 1), alpha(ix + 1, iy + 1), x - ix), y - iy);
}

// --- The board -----------------------------------------------------------------------------------

// The board's own colour without chalk.
rgb slate(double x, double y) {
    const double d = std::hypot((x - 400) / 470, (y - 270) / 400); // 1 near the corners
    const rgb plain =
        d < 0.55 ? mix(NIGHT_CENTRE, NIGHT, d / 0.55) : mix(NIGHT, NIGHT_EDGE, std::min(1.0, (d - 0.55) / 0.55));
    const double f = 1 + 0.10 * haze(x, y);
    return {plain.r * f, plain.g * f, plain.b * f};
}

canvas draw_night() {
    canvas board(SCREEN_WIDTH, SCREEN_HEIGHT);
    const canvas chalk = draw_chalk();
    cairo_surface_flush(board.surface.get());
    unsigned char *data = cairo_image_surface_get_data(board.surface.get());
    const int stride = cairo_image_surface_get_stride(board.surface.get());
    for (int y = 0; y < SCREEN_HEIGHT; ++y)
        for (int x = 0; x < SCREEN_WIDTH; ++x) {
            // A line drawn by hand wavers a little, and slate catches the chalk in grains.
            const double drawn =
                chalk_at(chalk, x + 1.3 * noise(x / 11.0, y / 11.0, 4), y + 1.3 * noise(x / 11.0, y / 11.0, 5));
            const double grain = 0.82 + 0.30 * noise(x / 1.7, y / 1.7, 6) + 0.15 * noise(x / 6.0, y / 6.0, 7);
            const rgb c = mix(slate(x, y), CHALK, drawn * std::clamp(grain, 0.25, 1.2));
            const double fraction = lattice(x, y, 8); // spreads the rounding to 8 bits
            const auto level = [fraction](double v) {
                return static_cast<std::uint32_t>(std::clamp(std::floor(v * 255 + fraction), 0.0, 255.0));
            };
            const std::uint32_t pixel = 0xFF000000u | level(c.r) << 16 | level(c.g) << 8 | level(c.b);
            std::copy_n(reinterpret_cast<const unsigned char *>(&pixel), 4, data + y * stride + x * 4);
        }
    cairo_surface_mark_dirty(board.surface.get());
    return board;
}

} // namespace

const canvas &night_board() {
    static const canvas board = draw_night();
    return board;
}

canvas night_window(int x, int y, int width, int height) {
    canvas part(width, height);
    paste(part, night_board(), -x, -y);
    return part;
}

rgb night_colour(int x, int y) {
    return slate(x, y);
}

void save_number_line(const std::string &entry) {
    constexpr int WIDTH = 300, HEIGHT = 24, LAST = 10;
    constexpr double LINE_Y = 5.5, FIRST_X = 20.5, STEP = 25, BASE_Y = 22, CAP = 8.5;
    canvas picture(WIDTH, HEIGHT);
    cairo_set_line_cap(picture, CAIRO_LINE_CAP_ROUND);
    cairo_move_to(picture, 6, LINE_Y);
    cairo_line_to(picture, WIDTH - 6, LINE_Y);
    cairo_move_to(picture, WIDTH - 11, LINE_Y - 4);
    cairo_line_to(picture, WIDTH - 5, LINE_Y);
    cairo_line_to(picture, WIDTH - 11, LINE_Y + 4);
    stroke(picture, FOOTER_LINE, 1.4);
    for (int i = 0; i <= LAST; ++i) {
        const double x = FIRST_X + i * STEP;
        cairo_move_to(picture, x, LINE_Y - 3.5);
        cairo_line_to(picture, x, LINE_Y + 3.5);
        stroke(picture, FOOTER_LINE, 1.4);
        text(picture, face::dosis_bold, CAP, x, BASE_Y, align::centre, std::to_string(i), FOOTER_NUMERAL);
    }
    save(picture, entry, {.ground = night_colour(SCREEN_WIDTH / 2, 583), .threshold = 0.08});
}

} // namespace art
