// title_labels.cpp: the mathematics and the little pictures on the title's small boards.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "title_labels.h"

#include "palette.h"
#include "problems.h"
#include "puzzles/puzzle_layout.h"
#include "text.h"
#include "things.h"
#include "title_parts.h"

#include <array>
#include <cstddef>
#include <numbers>
#include <numeric>
#include <string>

namespace art {
namespace {

constexpr int CONSUMER = 6;

struct middle {
    double x, y;
};
middle print_middle(const box &cell) {
    return {cell.x + cell.w / 2 - SOCKET_SHIFT, cell.y + cell.h / 2 - SOCKET_SHIFT};
}

// --- Numbers -------------------------------------------------------------------------------------

int product_at(int type, int column, int row) {
    return (first_row_number(type) + row) * (column + 1);
}

void product_label(cairo_t *cr, int type, int column, int row, const box &cell) {
    constexpr double CAP = 14;
    const middle m = print_middle(cell);
    centred_text(cr, CAP, m.x, m.y, std::to_string(product_at(type, column, row)), PRINT);
}

void factor_label(cairo_t *cr, int type, int column, int row, const box &cell) {
    constexpr double CAP = 13;
    const middle m = print_middle(cell);
    centred_text(cr, CAP, m.x, m.y, std::to_string(product_at(type, column, row)), PRINT);
}

void division_label(cairo_t *cr, int type, int column, int row, const box &cell) {
    constexpr double CAP = 12;
    const middle m = print_middle(cell);
    const std::string problem =
        std::to_string(product_at(type, column, row)) + "÷" + std::to_string(first_row_number(type) + row);
    centred_text(cr, CAP, m.x - 1, m.y, problem, PRINT);
}

// --- Prices --------------------------------------------------------------------------------------

constexpr int SHOWN_COLUMNS = 4, SHOWN_ROWS = 3; // of the boards with coins, fractions apart

// A thing to buy for each cell that is shown.
constexpr std::array<const char *, SHOWN_COLUMNS *SHOWN_ROWS> GOODS = {
    "🍎", "🍌", "🥕", "🍓", "🥝", "🥨", "🍋", "🍇", "🍪", "🧀", "🍐", "🥐",
};
constexpr std::array<const char *, SHOWN_COLUMNS *SHOWN_ROWS> TOYS = {
    "🍎", "⚽", "🧸", "🎈", "🪁", "🚂", "📚", "🦆", "🎨", "🥁", "🧩", "🖍",
};

std::size_t shown_index(int column, int row) {
    return static_cast<std::size_t>(row * SHOWN_COLUMNS + column);
}

void price_label(cairo_t *cr, int type, int column, int row, const box &cell) {
    constexpr double CAP = 12.5, PICTURE = 27;
    const middle m = print_middle(cell);
    emoji(cr, GOODS[shown_index(column, row)], m.x - PICTURE / 2, cell.y + 2, PICTURE);
    const int price = column_coin(type, column) + left_coin(type, row) + right_coin(type, row);
    centred_text(cr, CAP, m.x, cell.y + cell.h - CAP / 2 - 13, money_text(price), PRINT);
}

void total_label(cairo_t *cr, int type, int column, int row, const box &cell) {
    constexpr double CAP = 13;
    const middle m = print_middle(cell);
    const int total = 2 * (column_coin(type, column) + left_coin(type, row));
    centred_text(cr, CAP, m.x, m.y, money_text(total), PRINT);
}

void toy_cell(cairo_t *cr, int, int column, int row, const box &cell) {
    constexpr double PICTURE = 30;
    const middle m = print_middle(cell);
    emoji(cr, TOYS[shown_index(column, row)], m.x - PICTURE / 2, m.y - PICTURE / 2, PICTURE);
}

// One crate of a market stall with a heap of what no piece shows.
void stall_crate(cairo_t *cr, const char *goods, const box &cell) {
    constexpr rgb CRATE = hex(0xDDB47C), SEAM = hex(0x9C6F3E), LIGHT = hex(0xF0D2A0);
    constexpr double PICTURE = 21, STEP = 14, HEIGHT = 17, MARGIN = 5, LOW = 7;
    const double base = cell.y + cell.h - LOW, top = base - HEIGHT, middle = cell.x + cell.w / 2;
    for (const double place : {-0.5, 0.5})
        emoji(cr, goods, middle + place * STEP - PICTURE / 2, top - 21, PICTURE);
    for (const double place : {-1.0, 0.0, 1.0})
        emoji(cr, goods, middle + place * STEP - PICTURE / 2, top - 13, PICTURE);
    rounded_rect(cr, cell.x + MARGIN, top, cell.w - 2 * MARGIN, HEIGHT, 2);
    fill(cr, SEAM);
    for (const double plank : {0.0, 8.0}) {
        cairo_rectangle(cr, cell.x + MARGIN + 1, top + 1 + plank, cell.w - 2 * MARGIN - 2, 7);
        fill(cr, CRATE);
        cairo_rectangle(cr, cell.x + MARGIN + 1, top + 1 + plank, cell.w - 2 * MARGIN - 2, 1);
        fill(cr, LIGHT);
    }
}

// A market stall behind the cells: a striped awning over the first row, crates below it.
void stall_cell(cairo_t *cr, int, int column, int row, const box &cell) {
    constexpr rgb STRIPE = hex(0xDE93B8), CLOTH = hex(0xFFF6FA), SHADE = hex(0x8A5570);
    constexpr std::array<const char *, SHOWN_COLUMNS *(SHOWN_ROWS - 1)> STOCK = {
        "🥭", "🍈", "🌶️", "🧅", "🥬", "🌻", "🧄", "🌷",
    };
    constexpr double QUIET = 0.30; // so that the pieces stand out
    cairo_save(cr);
    cairo_rectangle(cr, cell.x, cell.y, cell.w, cell.h);
    cairo_clip(cr);
    if (row == 0) {
        constexpr int STRIPES = 4;
        const double w = cell.w / STRIPES, drop = cell.h * 0.66;
        for (const double low : {3.0, 0.0}) { // its shade on the wall, then the cloth
            for (int i = 0; i < STRIPES; ++i) {
                const rgb tone = i % 2 == 0 ? STRIPE : CLOTH;
                cairo_rectangle(cr, cell.x + i * w, cell.y, w, drop + low);
                cairo_arc(cr, cell.x + (i + 0.5) * w, cell.y + drop + low, w / 2, 0, std::numbers::pi);
                if (low > 0)
                    fill(cr, SHADE, 0.25);
                else
                    fill_gradient(cr, 0, cell.y, lighten(tone, 0.02), 0, cell.y + drop + w / 2, lighten(tone, -0.06));
            }
        }
    } else {
        stall_crate(cr, STOCK[shown_index(column, row - 1)], cell);
        cairo_rectangle(cr, cell.x, cell.y, cell.w, cell.h);
        fill(cr, board_floor(CONSUMER, column, row), QUIET);
    }
    cairo_restore(cr);
}

// --- Fractions -----------------------------------------------------------------------------------

constexpr int FRACTION_COLUMNS = 5;

struct shown_fraction {
    int coloured, parts; // as the shape shows it, before it is simplified
    fraction_shape shape;
    rgb colour;
};

constexpr rgb BLUE = hex(0x2F7FBF), ORANGE = hex(0xD9722B), GREEN = hex(0x3C9A55), ROSE = hex(0xC04C77),
              VIOLET = hex(0x7C57B5);
constexpr std::array<shown_fraction, FRACTION_COLUMNS * 3> FRACTIONS = {{
    {3, 6, fraction_shape::pie, ORANGE},
    {8, 12, fraction_shape::grid, BLUE},
    {2, 8, fraction_shape::square, GREEN},
    {4, 5, fraction_shape::bar, ROSE},
    {6, 8, fraction_shape::pie, VIOLET},
    {2, 6, fraction_shape::hexagon, GREEN},
    {3, 5, fraction_shape::pie, ROSE},
    {5, 6, fraction_shape::grid, ORANGE},
    {1, 4, fraction_shape::bar, VIOLET},
    {4, 9, fraction_shape::grid, BLUE},
    {3, 8, fraction_shape::pie, BLUE},
    {6, 9, fraction_shape::triangle, ORANGE},
    {2, 10, fraction_shape::grid, ROSE},
    {3, 4, fraction_shape::square, VIOLET},
    {2, 12, fraction_shape::pie, GREEN},
}};

const shown_fraction &fraction_at(int column, int row) {
    return FRACTIONS[static_cast<std::size_t>(row * FRACTION_COLUMNS + column)];
}

void fraction_label(cairo_t *cr, int, int column, int row, const box &cell) {
    constexpr double SIZE = 37;
    const shown_fraction &f = fraction_at(column, row);
    const middle m = print_middle(cell);
    draw_fraction(cr, f.shape, f.coloured, f.parts, m.x - SIZE / 2, m.y - SIZE / 2, SIZE, f.colour);
}

void fraction_cell(cairo_t *cr, int type, int column, int row, const box &cell) {
    constexpr double CAP = 12.5, TAB_SHIFT = 3; // clear of the tab that comes up from below
    const shown_fraction &f = fraction_at(column, row);
    const int common = std::gcd(f.coloured, f.parts);
    const middle m = print_middle(cell);
    upright_fraction(cr, CAP, m.x, m.y - TAB_SHIFT, f.coloured / common, f.parts / common,
                     board_colours_of(PUZZLE_LOOKS[type].accent).ink);
}

// --- Times ---------------------------------------------------------------------------------------

constexpr std::array<clock_time, SHOWN_COLUMNS *SHOWN_ROWS> TIMES = {{
    {7, 25},
    {3, 0},
    {10, 10},
    {1, 45},
    {8, 30},
    {12, 15},
    {4, 40},
    {6, 5},
    {9, 50},
    {2, 20},
    {11, 35},
    {5, 55},
}};

void clock_label(cairo_t *cr, int, int column, int row, const box &cell) {
    constexpr double DIAMETER = 47;
    const clock_time t = TIMES[shown_index(column, row)];
    const middle m = print_middle(cell);
    draw_clock(cr, t.hour, t.minute, m.x, m.y + 1, DIAMETER);
}

void time_cell(cairo_t *cr, int, int column, int row, const box &cell) {
    constexpr double CAP = 17;
    const clock_time t = TIMES[shown_index(column, row)];
    const middle m = print_middle(cell);
    centred_text(cr, CAP, m.x, m.y, time_text(t), PRINT);
}

// --- The eleven puzzles --------------------------------------------------------------------------

using draw_in_cell = void (*)(cairo_t *, int type, int column, int row, const box &cell);

// What a puzzle's floor looks like: one tone per row, or a chequer of two colours.
struct board_content {
    draw_in_cell label, cell;
    int tones;     // row tones; 0 is the chequer
    rgb even, odd; // of the chequer
};

constexpr std::array<board_content, 11> CONTENTS = {{
    {product_label, nullptr, 5, {}, {}},
    {product_label, nullptr, 5, {}, {}},
    {product_label, nullptr, 5, {}, {}},
    {product_label, nullptr, 5, {}, {}},
    {division_label, nullptr, 5, {}, {}},
    {division_label, nullptr, 5, {}, {}},
    {price_label, stall_cell, 0, hex(0xFBE6F0), hex(0xF7DDEA)},
    {fraction_label, fraction_cell, 0, hex(0xE7D7EE), hex(0xDFCAE7)},
    {factor_label, nullptr, 10, {}, {}},
    {total_label, toy_cell, 0, hex(0xD7F0D5), hex(0xC8E6C5)},
    {clock_label, time_cell, 0, hex(0xFCEDB4), hex(0xD1EBF7)},
}};
static_assert(CONTENTS.size() == PUZZLE_COUNT);

const board_content &content_of(int type) {
    return CONTENTS[static_cast<std::size_t>(type)];
}

} // namespace

void draw_board_label(cairo_t *cr, int type, int column, int row, const box &cell) {
    content_of(type).label(cr, type, column, row, cell);
}

void draw_board_cell(cairo_t *cr, int type, int column, int row, const box &cell) {
    if (content_of(type).cell)
        content_of(type).cell(cr, type, column, row, cell);
}

void draw_board_problem(cairo_t *cr, int type, int column, int row, const box &field) {
    constexpr double CAP = 15;
    const std::string problem = std::to_string(first_row_number(type) + row) + "×" + std::to_string(column + 1);
    centred_text(cr, CAP, field.x + field.w / 2, field.y + field.h / 2, problem, PRINT);
}

rgb board_floor(int type, int column, int row) {
    const board_content &content = content_of(type);
    if (content.tones > 0)
        return row_tone(PUZZLE_LOOKS[type].accent, row, content.tones);
    return (column + row) % 2 == 0 ? content.even : content.odd;
}

int column_coin(int type, int index) {
    // The small board shows four of the six columns, with the dollar among them where prices pass it.
    constexpr std::array MARKET_COLUMNS = {1, 10, 25, 100};
    return type == CONSUMER ? MARKET_COLUMNS[static_cast<std::size_t>(index)] : COINS_IN_ORDER[index];
}

int left_coin(int, int index) {
    return COINS_IN_ORDER[index];
}

int right_coin(int type, int index) {
    return COINS_IN_ORDER[type == CONSUMER ? CONSUMER_RIGHT_HEADINGS[index] : index];
}

} // namespace art
