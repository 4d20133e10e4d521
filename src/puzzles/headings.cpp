// headings.cpp: the tables of the symbols that head columns and rows.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/headings.h"

#include "graphics/draw_list.h"
#include "puzzles/puzzle_layout.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace {

enum heading_axis : i32 { OVER_COLUMNS, BESIDE_ROWS };

// A series of symbols, one for each column or row.
struct heading_series {
    heading_axis axis;
    i32 line;                     // pixels from the board's edge to the symbols' middles
    i32 shift;                    // pixels from the middle of a column or row
    std::span<const i32> symbols; // indices
};

// clang-format off
constexpr i32 FIRST_TEN[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
constexpr i32 NEXT_FIVE[] = {10, 11, 12, 13, 14};
constexpr i32 FIRST_SIX[] = {0, 1, 2, 3, 4, 5};

constexpr heading_series COUNTING_LOW[]  = {{OVER_COLUMNS, 57, 0, FIRST_TEN}, {BESIDE_ROWS, 35, 2, NEXT_FIVE}};
constexpr heading_series PRODUCTS_LOW[]  = {{OVER_COLUMNS, 59, 0, FIRST_TEN}, {BESIDE_ROWS, 38, 2, NEXT_FIVE}};
constexpr heading_series COUNTING_HIGH[] = {{OVER_COLUMNS, 58, 0, FIRST_TEN}, {BESIDE_ROWS, 40, 4, NEXT_FIVE}};
constexpr heading_series PRODUCTS_HIGH[] = {{OVER_COLUMNS, 58, 0, FIRST_TEN}, {BESIDE_ROWS, 35, 2, NEXT_FIVE}};
constexpr heading_series DIVISION_LOW[]  = {{OVER_COLUMNS, 64, 0, FIRST_TEN}, {BESIDE_ROWS, 39, 5, NEXT_FIVE}};
constexpr heading_series DIVISION_HIGH[] = {{OVER_COLUMNS, 63, 0, FIRST_TEN}, {BESIDE_ROWS, 38, 4, NEXT_FIVE}};
constexpr heading_series FACTORS[]       = {{OVER_COLUMNS, 59, 0, FIRST_TEN}, {BESIDE_ROWS, 36, 2, FIRST_TEN}};
constexpr heading_series CONSUMER[] = {
    {OVER_COLUMNS, 66, 0, FIRST_SIX}, {BESIDE_ROWS, 42, 2, FIRST_SIX}, {BESIDE_ROWS, 523, 2, CONSUMER_RIGHT_HEADINGS}};
constexpr heading_series MONEY[] = {
    {OVER_COLUMNS, 61, 0, FIRST_SIX}, {OVER_COLUMNS, 427, 0, FIRST_SIX},
    {BESIDE_ROWS,  42, 1, FIRST_SIX}, {BESIDE_ROWS, 442, 1, FIRST_SIX}};

constexpr std::span<const heading_series> HEADINGS[PUZZLE_COUNT] = {
    COUNTING_LOW, PRODUCTS_LOW, COUNTING_HIGH, PRODUCTS_HIGH, DIVISION_LOW, DIVISION_HIGH,
    CONSUMER, {}, FACTORS, MONEY, {},
};
// clang-format on

// A symbol for every column or row, each among those that the type loads.
constexpr bool headings_fit_layouts() {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        const puzzle_layout &layout = PUZZLE_LAYOUTS[type];
        for (const heading_series &series : HEADINGS[type]) {
            const i32 count = series.axis == OVER_COLUMNS ? layout.cols : layout.rows;
            if (std::ssize(series.symbols) != count || std::ranges::max(series.symbols) >= layout.symbols)
                return false;
        }
    }
    return true;
}
static_assert(headings_fit_layouts());

// The middle of the i-th column or row along its axis, relative to the board.
i32 middle(const board *b, heading_axis axis, i32 i) {
    if (axis == OVER_COLUMNS)
        return b->layout->grid_x + i * (b->layout->cell_w + COLUMN_GAP) + half(b->layout->cell_w);
    return b->layout->grid_y + i * puzzle_row_pitch(b->type) + half(b->layout->cell_h);
}

void draw_series(const board *b, const heading_series &series) {
    i32 i = 0;
    for (const i32 index : series.symbols) {
        const image *symbol = b->pictures.headings[index];
        const i32 along = middle(b, series.axis, i++) + series.shift;
        const i32 x = series.axis == OVER_COLUMNS ? along : series.line;
        const i32 y = series.axis == OVER_COLUMNS ? series.line : along;
        draw_image_bg(symbol, b->x + x - half(symbol->width), b->y + y - half(symbol->height));
    }
}

} // namespace

void headings_draw(const board *b) {
    for (const heading_series &series : HEADINGS[b->type])
        draw_series(b, series);
}
