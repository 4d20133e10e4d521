// puzzle_labels.cpp: what is printed on the pieces: numbers, divisions, prices, fractions, clocks.
//
// A label is exactly as large as its piece (the clocks' a little lower, as the game hangs them below the
// piece's top edge). Its ink stands in the middle of what the sockets leave free and everything else is
// transparent: when a piece unfolds, the game shows the whole label in one colour.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzle_labels.h"

#include "problems.h"
#include "puzzle_market.h"

#include <cmath>

namespace art {
namespace {

constexpr double NUMBER_CAP = 16, PRICE_CAP = 14, DOLLARS_CAP = 13, CENTS_CAP = 15; // pixels
constexpr double DIVISION_CAP = 11;
constexpr int DIVIDEND_BASE = 13, DIVISOR_BASE = 26;
constexpr int GOODS_SIZE = 29, GOODS_TOP = 2;
constexpr double PRICE_BASE = 47;
constexpr double FRACTION_SIZE = 37, CLOCK_DIAMETER = 47;

// Colours of the drawn fractions' parts, in turn.
constexpr std::array<rgb, 5> FRACTION_COLOURS = {hex(0x2F7FBF), hex(0xD9722B), hex(0x3C9A55), hex(0xC04C77),
                                                 hex(0x7C57B5)};

void print_division(cairo_t *cr, const division &d, double cx) {
    text(cr, face::dosis_bold, DIVISION_CAP, cx, DIVIDEND_BASE, align::centre, std::to_string(d.dividend), PRINT);
    text(cr, face::dosis_bold, DIVISION_CAP, cx, DIVISOR_BASE, align::centre, "÷" + std::to_string(d.divisor), PRINT);
}

void print_total(cairo_t *cr, int cents, double cx, double cy) {
    const std::string amount = money_text(cents);
    print(cr, amount[0] == '$' ? DOLLARS_CAP : CENTS_CAP, cx, cy, amount, PRINT);
}

void print_goods(cairo_t *cr, int cell, double cx) {
    const int x = static_cast<int>(std::lround(cx - GOODS_SIZE / 2.0));
    outlined_emoji(cr, market_goods(cell), x, GOODS_TOP, GOODS_SIZE);
    text(cr, face::dosis_bold, PRICE_CAP, cx, PRICE_BASE, align::centre, money_text(market_price(cell)), PRINT);
}

canvas draw_label(int type, int cell) {
    const puzzle_measures &measures = measures_of(type);
    canvas label(PUZZLE_LAYOUTS[type].cell_w, measures.label_height);
    const double cx = measures.ink_x, cy = measures.ink_y;
    switch (measures.kind) {
    case puzzle_kind::division:
        print_division(label, division_problem(type, cell), cx);
        break;
    case puzzle_kind::market:
        print_goods(label, cell, cx);
        break;
    case puzzle_kind::fractions: {
        const fraction f = fraction_problem(cell);
        draw_fraction(label, f.shape, f.shown_numerator, f.shown_denominator, std::ceil(cx - FRACTION_SIZE / 2),
                      std::ceil(cy - FRACTION_SIZE / 2), FRACTION_SIZE,
                      FRACTION_COLOURS[static_cast<std::size_t>(cell) % FRACTION_COLOURS.size()]);
        break;
    }
    case puzzle_kind::money:
        print_total(label, money_total(cell), cx, cy);
        break;
    case puzzle_kind::time: {
        const clock_time t = time_problem(cell);
        draw_clock(label, t.hour, t.minute, cx + 0.5, cy + 0.5, CLOCK_DIAMETER);
        break;
    }
    default:
        print(label, NUMBER_CAP, cx, cy, std::to_string(product(type, cell)), PRINT);
    }
    return label;
}

} // namespace

void make_labels(int type) {
    for (int cell = 0; cell < PUZZLE_LAYOUTS[type].labels; ++cell)
        save(draw_label(type, cell), entry_of_puzzle(type, PICTURE_LABELS, cell), on_ground(CREAM));
}

} // namespace art
