// answers.cpp: what each cell asks, worked out afresh, and what each label shows, as it was printed.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#ifdef TAVIMO_PROBLEMS

#include "problems.h"
#include "puzzles/board.h"
#include "puzzles/cells.h"
#include "puzzles/puzzle_layout.h"
#include "sprites/sprite.h"

#include <cstdio>

namespace {

constexpr int COINS[] = {1, 5, 10, 25, 50, 100};       // over the columns and left of the rows, cents
constexpr int RIGHT_COINS[] = {10, 100, 5, 50, 1, 25}; // right of the rows of the market

int number_of(const image *picture, image *const *pictures, i32 count) {
    return static_cast<int>(std::find(pictures, pictures + count, picture) - pictures);
}

bool divides(const art::division &d, int divisor, int quotient) {
    return d.dividend == divisor * quotient && d.divisor == divisor;
}

bool simplifies(const art::fraction &drawn, const art::fraction &printed) {
    return drawn.shown_numerator * printed.denominator == printed.numerator * drawn.shown_denominator;
}

// The problem on the card, of the types that have one.
bool asks(const sprite &piece, int row_number, int column_number) {
    int a = 0, b = 0;
    return piece.label_text == nullptr ||
           (std::sscanf(piece.label_text, "%dx%d", &a, &b) == 2 && a == row_number && b == column_number);
}

} // namespace

bool answers_its_cell(const board &b, const sprite &piece) {
    const i32 column = (piece.x - b.x - b.layout->grid_x) / (b.layout->cell_w + COLUMN_GAP);
    const i32 row = (piece.y - b.y - b.layout->grid_y) / puzzle_row_pitch(b.type);
    const bool high = b.type == 2 || b.type == 3 || b.type == 5; // the rows count on from 6
    const int row_number = row + (high ? 6 : 1), column_number = column + 1;
    const int label = number_of(piece.label, b.pictures.labels, b.layout->labels);
    const int cell = number_of(board_find_cell(&b, column, row)->body, b.pictures.cells, b.layout->cell_pictures);
    switch (b.type) {
    case 4:
    case 5:
        return divides(art::division_problem(b.type, label), row_number, column_number);
    case 6:
        return art::market_price(label) == COINS[column] + COINS[row] + RIGHT_COINS[row];
    case 7:
        return simplifies(art::fraction_problem(label), art::fraction_problem(cell));
    case 9:
        return art::money_total(label) == 2 * (COINS[column] + COINS[row]);
    case 10:
        return art::time_text(art::time_problem(label)) == art::time_text(art::time_problem(cell));
    default:
        return art::product(b.type, label) == row_number * column_number && asks(piece, row_number, column_number);
    }
}

#else

bool answers_its_cell(const board &, const sprite &) {
    return true;
}

#endif
