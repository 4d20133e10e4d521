// title_rows.cpp: the list's rows with their icons, the heading, the words under it and the master's star.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "title_rows.h"
#include "night.h"
#include "palette.h"
#include "text.h"
#include "title_parts.h"

#include "things.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string_view>
#include <utility>

namespace art {
namespace {

constexpr rgb WHITE = hex(0xFFFFFF);

// --- Icons of the list ---------------------------------------------------------------------------

// The tile on which the icon stands; the title's first letter comes at x 40.
constexpr double TILE_X = 1, TILE_Y = 1, TILE_W = 33, TILE_H = 25, TILE_KNOB = 5; // pixels
constexpr double ICON_X = 21.5, ICON_Y = 13;                                      // the icon's middle

void clock_icon(cairo_t *cr, rgb ink) {
    constexpr double R = 9.6;
    circle(cr, ICON_X, ICON_Y, R);
    fill(cr, WHITE);
    circle(cr, ICON_X, ICON_Y, R - 0.7);
    stroke(cr, ink, 1.8);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_move_to(cr, ICON_X, ICON_Y - 6);
    cairo_line_to(cr, ICON_X, ICON_Y);
    cairo_line_to(cr, ICON_X + 3.8, ICON_Y + 2.4);
    stroke(cr, ink, 2);
}

void coin_icon(cairo_t *cr, rgb ink) {
    struct coin {
        double dx, dy;
        rgb face;
        const char *mark;
    };
    constexpr coin COINS[] = {{-4.6, 3.4, hex(0xE4EAEE), "¢"}, {4.6, -3.2, hex(0xFBDD84), "$"}};
    constexpr double R = 7.6, CAP = 8;
    for (const coin &c : COINS) {
        circle(cr, ICON_X + c.dx, ICON_Y + c.dy, R);
        fill(cr, ink);
        circle(cr, ICON_X + c.dx, ICON_Y + c.dy, R - 1.4);
        fill(cr, c.face);
        centred_text(cr, CAP, ICON_X + c.dx, ICON_Y + c.dy, c.mark, ink);
    }
}

void basket_icon(cairo_t *cr, rgb ink) {
    constexpr rgb WICKER = hex(0xFFD98A), APPLE = hex(0xF05A4A), PEAR = hex(0xB9DE62);
    const double x = ICON_X, y = ICON_Y;
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_arc(cr, x, y + 1, 8.2, std::numbers::pi, 2 * std::numbers::pi);
    stroke(cr, ink, 2);
    for (const auto &[dx, colour] : {std::pair{-3.2, APPLE}, std::pair{3.2, PEAR}}) {
        circle(cr, x + dx, y - 1, 3.2);
        fill_keep(cr, colour);
        stroke(cr, ink, 1.2);
    }
    cairo_move_to(cr, x - 8.6, y + 1.5);
    cairo_line_to(cr, x + 8.6, y + 1.5);
    cairo_line_to(cr, x + 6.4, y + 9.6);
    cairo_line_to(cr, x - 6.4, y + 9.6);
    cairo_close_path(cr);
    fill_keep(cr, WICKER);
    stroke(cr, ink, 1.7);
    cairo_move_to(cr, x - 7.6, y + 5.5);
    cairo_line_to(cr, x + 7.6, y + 5.5);
    stroke(cr, ink, 1);
}

void pie_icon(cairo_t *cr, rgb ink) {
    constexpr double R = 9.6;
    draw_fraction(cr, fraction_shape::pie, 3, 4, ICON_X - R, ICON_Y - R, 2 * R, hex(0xF2B13C));
    circle(cr, ICON_X, ICON_Y, R);
    stroke(cr, ink, 1.2);
}

// Two rows of three counters, as a product is laid out.
void factor_icon(cairo_t *cr, rgb ink) {
    constexpr double PITCH = 7.8, R = 3.7, LINE = 1.2;
    constexpr rgb ROWS[] = {hex(0xFFB3AA), hex(0xA6DBFF)};
    double y = ICON_Y - PITCH / 2;
    for (const rgb &tone : ROWS) {
        for (const double place : {-1.0, 0.0, 1.0}) {
            circle(cr, ICON_X + place * PITCH, y, R);
            fill(cr, ink);
            circle(cr, ICON_X + place * PITCH, y, R - LINE);
            fill(cr, tone);
        }
        y += PITCH;
    }
}

// Icons that are drawn, by puzzle type; the other rows print a few signs.
constexpr std::array<void (*)(cairo_t *, rgb), 11> DRAWN_ICONS = {
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, basket_icon, pie_icon, factor_icon, coin_icon, clock_icon,
};
static_assert(DRAWN_ICONS.size() == PUZZLE_COUNT);

// --- The heading ---------------------------------------------------------------------------------

// One letter and the accent it stands on.
struct letter {
    std::string_view sign;
    rgb accent;
};
constexpr std::array<letter, 6> LETTERS = {{
    {"T", PUZZLE_LOOKS[0].accent},
    {"a", PUZZLE_LOOKS[10].accent},
    {"v", PUZZLE_LOOKS[9].accent},
    {"i", PUZZLE_LOOKS[1].accent},
    {"m", PUZZLE_LOOKS[4].accent},
    {"o", PUZZLE_LOOKS[6].accent},
}};
// Which neighbour carries the tab between two letters: +1 the left one.
constexpr std::array<int, 5> TABS = {-1, 1, 1, -1, 1};

constexpr int HEADING_W = 342, HEADING_H = 78;
constexpr double LETTER_W = 56, LETTER_H = 66, LETTER_TOP = 3, LETTER_LEFT = 3, LETTER_SIDE = 7, LETTER_KNOB = 13;
constexpr double LETTER_CAP = 41, LETTER_BASE = 54, LETTER_RIM = 5; // pixels

piece_shape letter_shape(std::size_t i) {
    const int left = i > 0 ? -TABS[i - 1] : 0, right = i < TABS.size() ? TABS[i] : 0;
    return {.x = LETTER_LEFT + static_cast<double>(i) * LETTER_W,
            .y = LETTER_TOP,
            .w = LETTER_W,
            .h = LETTER_H,
            .sides = {0, right, 0, left},
            .knob = LETTER_KNOB};
}

// The front of the cardboard below all six pieces.
void heading_side(cairo_t *cr) {
    for (std::size_t i = 0; i < LETTERS.size(); ++i) {
        const piece_shape s = letter_shape(i);
        const rgb side = lighten(LETTERS[i].accent, -0.20);
        cairo_rectangle(cr, s.x, s.y + s.h, s.w, LETTER_SIDE);
        fill_gradient(cr, 0, s.y + s.h, side, 0, s.y + s.h + LETTER_SIDE, lighten(side, -0.10));
        cairo_rectangle(cr, s.x - 0.5, s.y + s.h, 1, LETTER_SIDE);
        fill(cr, lighten(side, -0.2));
    }
}

void heading_tile(cairo_t *cr, std::size_t i) {
    const piece_shape s = letter_shape(i);
    const rgb accent = LETTERS[i].accent;
    paint_flat_piece(cr, s, accent, lighten(accent, -0.30), 2);
    cairo_save(cr); // a broad gleam over the upper half
    piece_path(cr, s);
    cairo_clip(cr);
    cairo_move_to(cr, s.x - 20, s.y);
    cairo_line_to(cr, s.x + s.w + 20, s.y);
    cairo_line_to(cr, s.x + s.w + 20, s.y + s.h * 0.30);
    cairo_curve_to(cr, s.x + s.w * 0.6, s.y + s.h * 0.46, s.x + s.w * 0.3, s.y + s.h * 0.46, s.x - 20, s.y + s.h * 0.5);
    fill(cr, WHITE, 0.20);
    cairo_restore(cr);
}

} // namespace

canvas draw_list_row(int type) {
    constexpr int WIDTH = 181, HEIGHT = 28, ROW_X = 30, ROW_Y = 130, PITCH = 35;
    constexpr double CAP = 12.5, STRIP_RADIUS = 7;
    const puzzle_look &look = PUZZLE_LOOKS[type];
    const int position = static_cast<int>(std::ranges::find(PUZZLE_LIST_ORDER, type) - PUZZLE_LIST_ORDER);
    // The dark accents take a slightly darker tile, so that white signs stand out well.
    const rgb accent = look.white_ink ? lighten(look.accent, -0.05) : look.accent;
    const rgb ink = look.white_ink ? WHITE : ICON_INK;
    canvas row = night_window(ROW_X, ROW_Y + PITCH * position, WIDTH, HEIGHT);
    rounded_rect(row, TILE_X + 10, TILE_Y + 0.5, WIDTH - TILE_X - 11.5, TILE_H, STRIP_RADIUS);
    fill_keep(row, STRIP);
    stroke(row, STRIP_LINE, 1);

    const piece_shape tile = {TILE_X + 0.5, TILE_Y + 0.5, TILE_W, TILE_H - 2, {0, 1, 0, 0}, TILE_KNOB};
    for (const double d : {2.5, 1.5}) { // the tile's front and its outline
        piece_path(row, tile, 0, d);
        fill_keep(row, lighten(accent, -0.16));
        stroke(row, lighten(accent, -0.28), 1);
    }
    paint_flat_piece(row, tile, accent, lighten(accent, -0.28), 1);
    if (const auto draw = DRAWN_ICONS[static_cast<std::size_t>(type)])
        draw(row, ICON_INK);
    else
        centred_text(row, CAP, TILE_X + TILE_W / 2 + 3.5, ICON_Y, look.icon, ink);
    return row;
}

canvas draw_heading() {
    constexpr double RIM = 2; // the dark line round the whole name
    canvas heading(HEADING_W, HEADING_H);
    rounded_rect(heading, LETTER_LEFT - RIM, LETTER_TOP - RIM, LETTER_W * LETTERS.size() + 2 * RIM,
                 LETTER_H + LETTER_SIDE + 2 * RIM, 4);
    fill(heading, hex(0x060B1A));
    heading_side(heading);
    for (std::size_t i = 0; i < LETTERS.size(); ++i)
        heading_tile(heading, i);
    for (std::size_t i = 0; i < LETTERS.size(); ++i) {
        const piece_shape s = letter_shape(i);
        const double x = s.x + s.w / 2, y = LETTER_TOP + LETTER_BASE;
        cairo_set_line_join(heading, CAIRO_LINE_JOIN_ROUND);
        text_path(heading, face::cherry_bomb, LETTER_CAP, x + 1.5, y + 2.5, align::centre, LETTERS[i].sign);
        stroke(heading, lighten(LETTERS[i].accent, -0.34), LETTER_RIM, 0.55);
        text_path(heading, face::cherry_bomb, LETTER_CAP, x, y, align::centre, LETTERS[i].sign);
        stroke(heading, WHITE, LETTER_RIM);
        text(heading, face::cherry_bomb, LETTER_CAP, x, y, align::centre, LETTERS[i].sign, hex(0x13233F));
    }
    return heading;
}

canvas draw_sub_heading() {
    constexpr std::string_view WORDS = "Eleven jigsaw puzzles with numbers";
    constexpr double CAP = 11.5, BASE = 14.5;
    constexpr int HEIGHT = 20;
    const int width = static_cast<int>(std::ceil(text_width(face::dosis_bold, CAP, WORDS))) + 4;
    canvas words(width, HEIGHT);
    text(words, face::dosis_bold, CAP, width / 2.0, BASE, align::centre, WORDS, SUBHEADING);
    return words;
}

canvas draw_master_star() {
    constexpr int SIZE = 19;
    constexpr double MIDDLE = 9.5, MIDDLE_Y = 10, OUTER = 8.2, INNER = 4.0;
    canvas star(SIZE, SIZE);
    cairo_set_line_join(star, CAIRO_LINE_JOIN_ROUND);
    star_path(star, MIDDLE, MIDDLE_Y, OUTER, INNER);
    stroke(star, hex(0x5A3A00), 2.6);
    star_path(star, MIDDLE, MIDDLE_Y, OUTER, INNER);
    fill_gradient(star, 3, 2, hex(0xFFE680), 14, 17, hex(0xFFB81E));
    star_path(star, MIDDLE - 1, MIDDLE_Y - 1, OUTER * 0.42, INNER * 0.5);
    fill(star, hex(0xFFF6C8));
    return star;
}

} // namespace art
