// puzzle_market.cpp: the goods of the money puzzles and the market stall behind one of them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzle.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace art {
namespace {

constexpr std::size_t CELLS = 36;

// By cell; cheap things stand where the coins add up to little.
constexpr std::array<const char *, CELLS> MARKET_GOODS = {
    "🍬",    "🍒",    "🥜", "🍋",    "🍓",    "🍞",    //
    "🥝", "🥕", "🌽",    "🥑", "🥥", "🍍",    //
    "🍭",    "🍪",    "🥚", "🍎",    "🥨", "🧀", //
    "🍩",    "🍐",    "🍌",    "🥐", "🥦", "🍉",    //
    "🍊",    "🍑",    "🥒", "🧁", "🍅",    "🍇",    //
    "🥯", "🍦",    "🥔", "🍆",    "🥞", "🍯",
};
constexpr std::array<const char *, CELLS> MONEY_GOODS = {
    "🍎",      "🍌",    "🍐",    "🍓",      "🍪",       "🍩",    //
    "🧀",   "🥨", "🍫",    "🧃",   "🍦",       "🍰",    //
    "✏️", "📏",    "📓",    "✂️", "🖍️", "📚",    //
    "⚽",      "🏀",    "🎈",    "🧩",   "🧸",    "🪀", //
    "🔔",      "🪁", "🧢", "🥁",   "🎨",       "🧶", //
    "🪣",   "🌂",    "🧦", "🎺",      "🔦",       "🎁",
};

} // namespace

const char *market_goods(int cell) {
    return MARKET_GOODS[static_cast<std::size_t>(cell)];
}
const char *money_goods(int cell) {
    return MONEY_GOODS[static_cast<std::size_t>(cell)];
}

// --- The stall -----------------------------------------------------------------------------------

namespace {

constexpr rgb AWNING_WHITE = hex(0xFBF1EA), BOARD_WALL = hex(0xF7E3EC), BOARD_SEAM = hex(0xE7CBD9);
constexpr rgb CRATE = hex(0xCF9F68), CRATE_DARK = hex(0x9C6F3E);
constexpr double AWNING_BOTTOM = 0.20, SCALLOP = 0.045, SHELF = 0.53, COUNTER = 0.80; // of the height
constexpr double POST_WIDTH = 12, POST_INSET = 14;
constexpr double QUIET = 0.42; // how far everything fades towards the panel

void block(cairo_t *cr, double x, double y, double w, double h, rgb colour) {
    cairo_rectangle(cr, std::round(x), std::round(y), std::round(w), std::round(h));
    fill(cr, colour);
}

void draw_wall(cairo_t *cr, double w, double h) {
    block(cr, 0, 0, w, h, BOARD_WALL);
    constexpr double seam = 30;
    for (double y = h * AWNING_BOTTOM; y < h; y += seam)
        block(cr, 0, y, w, 1, BOARD_SEAM);
}

void draw_awning(cairo_t *cr, double w, double h, rgb colour) {
    constexpr int stripes = 12;
    const double stripe = w / stripes, edge = h * AWNING_BOTTOM;
    block(cr, 0, edge - 1, w, h * SCALLOP * 1.1, lighten(BOARD_WALL, -0.10)); // its shade on the wall
    for (int i = 0; i < stripes; ++i) {
        const rgb tone = i % 2 ? AWNING_WHITE : colour;
        const double x = i * stripe;
        cairo_rectangle(cr, x, 0, stripe, edge);
        fill_gradient(cr, 0, 0, lighten(tone, 0.04), 0, edge, lighten(tone, -0.05));
        cairo_save(cr);
        cairo_translate(cr, x + stripe / 2, edge);
        cairo_scale(cr, stripe / 2, h * SCALLOP);
        cairo_arc(cr, 0, 0, 1, 0, std::numbers::pi);
        cairo_close_path(cr);
        cairo_restore(cr);
        fill(cr, lighten(tone, -0.02));
    }
}

void draw_timber(cairo_t *cr, double x, double y, double w, double h) {
    block(cr, x, y, w, h, WOOD);
    block(cr, x, y, w, 1, WOOD_LIGHT);
    block(cr, x, y, 1, h, WOOD_LIGHT);
    block(cr, x, y + h - 2, w, 2, WOOD_SHADE);
    block(cr, x + w - 2, y, 2, h, WOOD_SHADE);
}

// A row of like goods that stand on `base`.
void draw_row(cairo_t *cr, std::string_view goods, double x, double base, double size, double pitch, int count) {
    for (int i = 0; i < count; ++i)
        emoji(cr, goods, x + i * pitch, base - size, size);
}

void draw_crate(cairo_t *cr, double x, double base, double w, std::string_view goods) {
    constexpr double height = 30, size = 23;
    const int count = static_cast<int>((w - 6) / (size * 0.72));
    const double pitch = (w - size) / std::max(1, count - 1);
    draw_row(cr, goods, x + pitch / 2, base - height - 3, size, pitch, count - 1);
    draw_row(cr, goods, x, base - height + 8, size, pitch, count);
    block(cr, x - 2, base - height, w + 4, height, CRATE);
    for (double y = base - height; y < base; y += height / 2) {
        block(cr, x - 2, y, w + 4, 1, WOOD_LIGHT);
        block(cr, x - 2, y + height / 2 - 2, w + 4, 2, CRATE_DARK);
    }
    block(cr, x + 1, base - height, 5, height, mix(CRATE, CRATE_DARK, 0.5));
    block(cr, x + w - 6, base - height, 5, height, mix(CRATE, CRATE_DARK, 0.5));
}

void draw_lamp(cairo_t *cr, double x, double from, double to) {
    block(cr, x - 1, from, 2, to - from, WOOD_OUTLINE);
    cairo_arc(cr, x, to + 12, 13, std::numbers::pi, 2 * std::numbers::pi);
    cairo_close_path(cr);
    fill(cr, WOOD_SHADE);
    circle(cr, x, to + 13, 5);
    fill(cr, hex(0xFFE08A));
}

void draw_shelf(cairo_t *cr, double w, double h) {
    const double base = h * SHELF;
    constexpr double size = 24, pitch = 25;
    constexpr std::array<const char *, 4> goods = {"🍯", "🍞", "🧀", "🥐"};
    const double room = w - 2 * (POST_INSET + POST_WIDTH), part = room / static_cast<double>(goods.size());
    double x = POST_INSET + POST_WIDTH + 10;
    for (const char *g : goods) {
        draw_row(cr, g, x, base + 1, size, pitch, 3);
        x += part;
    }
    draw_timber(cr, POST_INSET, base, w - 2 * POST_INSET, 9);
}

void draw_counter(cairo_t *cr, double w, double h, rgb colour) {
    const double top = h * COUNTER;
    constexpr std::array<const char *, 4> goods = {"🍎", "🍐", "🍊", "🍇"};
    const double part = (w - 50) / static_cast<double>(goods.size());
    double x = 34;
    for (const char *g : goods) {
        draw_crate(cr, x, top, part - 18, g);
        x += part;
    }
    constexpr int folds = 14;
    for (int i = 0; i < folds; ++i)
        block(cr, std::round(w * i / folds), top + 10, std::ceil(w / folds), h - top, i % 2 ? AWNING_WHITE : colour);
    block(cr, 0, top + 10, w, 5, lighten(colour, -0.12));
    draw_timber(cr, 4, top, w - 8, 11);
}

} // namespace

void draw_market_scene(cairo_t *cr, double width, double height, const puzzle_colours &colours) {
    const rgb cloth = lighten(colours.accent, 0.04);
    draw_wall(cr, width, height);
    for (const double x : {POST_INSET, width - POST_INSET - POST_WIDTH})
        draw_timber(cr, x, height * AWNING_BOTTOM, POST_WIDTH, height * (COUNTER - AWNING_BOTTOM));
    draw_awning(cr, width, height, cloth);
    for (const double share : {0.25, 0.75})
        draw_lamp(cr, width * share, height * (AWNING_BOTTOM + SCALLOP), height * 0.31);
    draw_shelf(cr, width, height);
    draw_counter(cr, width, height, cloth);
    cairo_rectangle(cr, 0, 0, width, height);
    fill(cr, colours.panel, QUIET);
}

} // namespace art
