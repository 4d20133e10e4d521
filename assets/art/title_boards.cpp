// title_boards.cpp: small boards in play, one for each puzzle. A table says how large a board is, what stands
// round it, which pieces lie in it and where the loose one is; everything else is drawn from that.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "title_boards.h"

#include "buttons.h"
#include "palette.h"
#include "problems.h"
#include "things.h"
#include "title_labels.h"
#include "title_parts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <string_view>

namespace art {
namespace {

// What stands round the grid, and what lies below the board.
enum class heads { none, numbers, coins_three, coins_four };
enum class below { tray, keypad, deck, pieces };

struct scene {
    int columns, rows, cell_w, cell_h; // cells in pixels
    heads round;
    below under;
    std::string_view cells; // row by row: '#' a placed piece, '.' an empty cell, 'o' the loose piece's place
    double dx, dy;          // where the loose piece is, from its place, pixels
    double turn;            // degrees, clockwise
};

constexpr std::array<scene, 11> SCENES = {{
    {6, 5, 46, 32, heads::numbers, below::tray,
     "######"
     "####.#"
     "##.#.."
     "#.#o.."
     "#.#...",
     16, 13, 8},
    {6, 5, 46, 32, heads::numbers, below::keypad,
     "##.##."
     "#.##.#"
     "##.o.."
     ".##..#"
     "#..#..",
     20, 15, 7},
    {6, 5, 46, 32, heads::numbers, below::tray,
     "#####."
     "####.."
     "###.#."
     "#.#.o."
     "##.#..",
     20, 14, -7},
    {6, 5, 46, 32, heads::numbers, below::keypad,
     "##..#."
     "#.##.."
     ".#.#.#"
     "##.#o."
     "#.#...",
     18, 15, 8},
    {5, 5, 54, 32, heads::numbers, below::deck,
     "###.#"
     "##.#."
     "#.#o."
     "##..#"
     ".#...",
     24, 13, -7},
    {5, 5, 54, 32, heads::numbers, below::deck,
     "#.##."
     "##.##"
     ".##.."
     "#..o#"
     "#.#..",
     22, 15, 7},
    {4, 3, 59, 56, heads::coins_three, below::deck,
     "#..#"
     ".##."
     "#.o.",
     36, 22, 8},
    {5, 3, 62, 54, heads::none, below::deck,
     "#.##."
     "##.#."
     ".#.o#",
     40, 43, -8},
    {7, 6, 40, 28, heads::numbers, below::deck,
     "#######"
     "######."
     "####.#."
     "##.#..#"
     "#.##o.."
     "#..#...",
     16, 13, 8},
    {4, 3, 54, 46, heads::coins_four, below::pieces,
     "##.#"
     "#..."
     ".#o.",
     34, 30, -8},
    {4, 3, 76, 60, heads::none, below::deck,
     "#.##"
     "##.#"
     "#.o.",
     34, 47, 8},
}};
static_assert(SCENES.size() == PUZZLE_COUNT);

constexpr bool cells_complete() {
    for (const scene &s : SCENES)
        if (s.cells.size() != static_cast<std::size_t>(s.columns * s.rows) ||
            s.cells.find('o') == std::string_view::npos)
            return false;
    return true;
}
static_assert(cells_complete(), "each board needs a letter for every cell, and one loose piece");

constexpr int FRAME = 15, FRAME_LOW = 19;              // from the board's edge to what stands on it, pixels
constexpr int NUMBER_LEFT = 34, NUMBER_TOP = 27;       // room for numbers beside and over the grid
constexpr int COIN_ROOM = 44;                          // and for coins
constexpr int GAP = 6;                                 // between the board and what lies below it
constexpr double KNOB_SHARE = 0.22, LARGEST_KNOB = 11; // of the cell's height

// Where everything of one picture is.
struct layout {
    box board, grid, under; // under: what lies below the board
    int height = 0;
};

layout lay_out(const scene &s) {
    const bool numbers = s.round == heads::numbers, coins = s.round >= heads::coins_three;
    const int left = FRAME + (numbers ? NUMBER_LEFT : coins ? COIN_ROOM : 0);
    const int right = FRAME + (coins ? COIN_ROOM : 0);
    const int top = FRAME + (numbers ? NUMBER_TOP : coins ? COIN_ROOM : 0);
    const int low = FRAME_LOW + (s.round == heads::coins_four ? COIN_ROOM : 0);
    const int grid_w = s.columns * s.cell_w, grid_h = s.rows * s.cell_h;
    constexpr std::array UNDER_HEIGHT = {56, 64, 58, 60}; // tray, keypad, deck, pieces
    const double width = left + grid_w + right, height = top + grid_h + low;
    const double under_h = UNDER_HEIGHT[static_cast<std::size_t>(s.under)];
    return {.board = {0, 0, width, height},
            .grid = {static_cast<double>(left), static_cast<double>(top), static_cast<double>(grid_w),
                     static_cast<double>(grid_h)},
            .under = {0, height + GAP, width, under_h},
            .height = static_cast<int>(height + GAP + under_h)};
}

double knob_of(const scene &s) {
    return std::min(LARGEST_KNOB, std::round(s.cell_h * KNOB_SHARE));
}

// The shape of the piece at (column, row): tabs up and to the left, sockets to the right and below, and
// straight edges round the grid.
piece_shape shape_at(const scene &s, const layout &l, int column, int row) {
    return {.x = l.grid.x + column * s.cell_w + 0.5,
            .y = l.grid.y + row * s.cell_h + 0.5,
            .w = static_cast<double>(s.cell_w),
            .h = static_cast<double>(s.cell_h),
            .sides = {row > 0 ? 1 : 0, column + 1 < s.columns ? -1 : 0, row + 1 < s.rows ? -1 : 0, column > 0 ? 1 : 0},
            .knob = knob_of(s)};
}

box box_of(const piece_shape &shape) {
    return {shape.x, shape.y, shape.w, shape.h};
}

char cell_at(const scene &s, int column, int row) {
    return s.cells[static_cast<std::size_t>(row * s.columns + column)];
}

struct place {
    int column, row;
};
place loose_place(const scene &s) {
    const int index = static_cast<int>(s.cells.find('o'));
    return {index % s.columns, index / s.columns};
}

// --- On the board --------------------------------------------------------------------------------

void number_heads(cairo_t *cr, int type, const scene &s, const layout &l, const board_colours &colours) {
    constexpr double CHIP_W = 25, CHIP_H = 19, ROW_W = 26, ROW_H = 22, CAP = 12;
    constexpr int FACTORS = 8, WHEEL = 10, FEW = 5;
    const bool wheel = type == FACTORS;
    const double row_h = std::min(ROW_H, s.cell_h - 6.0);
    for (int c = 0; c < s.columns; ++c) {
        const double cx = l.grid.x + (c + 0.5) * s.cell_w, cy = l.grid.y - 6 - CHIP_H / 2;
        const rgb tone = wheel ? row_tone(colours.accent, c, WHEEL) : hex(0xFFFFFF);
        rounded_rect(cr, cx - CHIP_W / 2, cy - CHIP_H / 2, CHIP_W, CHIP_H, CHIP_H / 2);
        fill_keep(cr, tone);
        stroke(cr, wheel ? lighten(tone, -0.33) : colours.joint, 1.2);
        centred_text(cr, CAP, cx, cy, std::to_string(c + 1), wheel ? lighten(tone, -0.62) : colours.ink);
    }
    for (int r = 0; r < s.rows; ++r) {
        const double cx = l.grid.x - 6 - ROW_W / 2, cy = l.grid.y + (r + 0.5) * s.cell_h;
        const rgb tone = row_tone(colours.accent, r, wheel ? WHEEL : FEW);
        rounded_rect(cr, cx - ROW_W / 2, cy - row_h / 2, ROW_W, row_h, 7);
        fill_keep(cr, lighten(tone, -0.05));
        stroke(cr, lighten(tone, -0.33), 1.2);
        centred_text(cr, CAP, cx, cy, std::to_string(first_row_number(type) + r), lighten(tone, -0.62));
    }
}

void coin_heads(cairo_t *cr, int type, const scene &s, const layout &l) {
    constexpr double AWAY = COIN_ROOM / 2.0; // the coins' centres from the grid
    constexpr double SHARE = 0.92;           // of their usual size
    const auto coin = [&](int cents, double x, double y) { draw_coin(cr, cents, x, y, coin_diameter(cents) * SHARE); };
    for (int c = 0; c < s.columns; ++c) {
        const double x = l.grid.x + (c + 0.5) * s.cell_w;
        coin(column_coin(type, c), x, l.grid.y - AWAY);
        if (s.round == heads::coins_four)
            coin(column_coin(type, c), x, l.grid.y + l.grid.h + AWAY);
    }
    for (int r = 0; r < s.rows; ++r) {
        const double y = l.grid.y + (r + 0.5) * s.cell_h;
        coin(left_coin(type, r), l.grid.x - AWAY, y);
        coin(right_coin(type, r), l.grid.x + l.grid.w + AWAY, y);
    }
}

// Floors first, then pieces from the lower right to the upper left: a piece's tabs lie on its neighbours.
void grid_cells(cairo_t *cr, int type, const scene &s, const layout &l, const board_colours &colours) {
    for (int i = s.columns * s.rows - 1; i >= 0; --i) {
        const int column = i % s.columns, row = i / s.columns;
        const piece_shape shape = shape_at(s, l, column, row);
        if (cell_at(s, column, row) == '#')
            continue;
        paint_hole(cr, shape, board_floor(type, column, row), colours.joint);
        cairo_save(cr);
        piece_path(cr, shape);
        cairo_clip(cr);
        draw_board_cell(cr, type, column, row, box_of(shape));
        cairo_restore(cr);
        piece_path(cr, shape);
        stroke(cr, colours.joint, 1);
    }
    for (int i = s.columns * s.rows - 1; i >= 0; --i) {
        const int column = i % s.columns, row = i / s.columns;
        const piece_shape shape = shape_at(s, l, column, row);
        if (cell_at(s, column, row) == '#')
            paint_flat_piece(cr, shape, CREAM, colours.joint);
    }
    for (int i = 0; i < s.columns * s.rows; ++i) {
        const int column = i % s.columns, row = i / s.columns;
        if (cell_at(s, column, row) == '#')
            draw_board_label(cr, type, column, row, box_of(shape_at(s, l, column, row)));
    }
}

// --- Below the board -----------------------------------------------------------------------------

// A loose piece lying flat, its body at (x, y).
void lying_piece(cairo_t *cr, int type, const scene &s, place from, double x, double y) {
    piece_shape shape = {.x = std::round(x),
                         .y = std::round(y),
                         .w = static_cast<double>(s.cell_w),
                         .h = static_cast<double>(s.cell_h),
                         .sides = {1, -1, -1, 1},
                         .knob = knob_of(s)};
    paint_piece_shadow(cr, shape, 2, 3, 3, 0.5);
    paint_loose_piece(cr, shape, CREAM, 3);
    draw_board_label(cr, type, from.column, from.row, box_of(shape));
}

// The empty cells whose pieces lie about, beginning with the last one of the board.
place waiting_place(const scene &s, int index) {
    for (int i = s.columns * s.rows - 1; i >= 0; --i)
        if (s.cells[static_cast<std::size_t>(i)] == '.' && index-- == 0)
            return {i % s.columns, i / s.columns};
    return {0, 0};
}

void tray_below(cairo_t *cr, int type, const scene &s, const layout &l) {
    constexpr int PLACES = 5, EMPTY = 3; // the loose piece came from the empty place
    constexpr std::array JITTER = {1, -1, 2, 0, -2};
    paint_tray(cr, l.under.x, l.under.y, l.under.w, l.under.h, PLACES, 1);
    const double step = (l.under.w - 10) / PLACES;
    for (int i = 0; i < PLACES; ++i) {
        if (i == EMPTY)
            continue;
        const int shift = JITTER[static_cast<std::size_t>(i)];
        lying_piece(cr, type, s, waiting_place(s, i * 2 % 7), l.under.x + 5 + (i + 0.5) * step - s.cell_w / 2.0 + shift,
                    l.under.y + (l.under.h - s.cell_h) / 2 + shift / 2.0);
    }
}

void keypad_below(cairo_t *cr, int type, const scene &s, const layout &l) {
    constexpr int KEY_W = 32, KEY_H = 27, KEYS = 10, PER_ROW = 5, CARD_W = 60, CARD_H = 50, DIGIT_W = 20;
    constexpr double CAP = 14;
    const place p = loose_place(s);
    const std::string answer = std::to_string((first_row_number(type) + p.row) * (p.column + 1));
    const board_colours colours = board_colours_of(PUZZLE_LOOKS[type].accent);
    const double y = l.under.y + 6;
    const box card = {8, y, CARD_W, CARD_H};
    paint_card(cr, card.x, card.y, card.w, card.h, colours, 3);
    draw_board_problem(cr, type, p.column, p.row, card);
    double x = card.x + card.w + 18;
    for (std::size_t i = 0; i < answer.size(); ++i, x += DIGIT_W + 2)
        paint_digit(cr, x, y + 11, answer.substr(i, 1));
    const int plate_w = PER_ROW * KEY_W + 10, plate_x = static_cast<int>(l.under.w) - plate_w;
    const int plate_y = static_cast<int>(l.under.y);
    paint_plate(cr, plate_x, plate_y, plate_w, l.under.h);
    for (int key = 0; key < KEYS; ++key) { // 1 2 3 4 5 / 6 7 8 9 0
        const int kx = plate_x + 5 + key % PER_ROW * KEY_W, ky = plate_y + 4 + key / PER_ROW * KEY_H;
        const std::string digit = std::to_string((key + 1) % KEYS);
        const bool pressing = digit[0] == answer.back();
        draw_plate(cr, KEY_SKIN, pressing ? BUTTON_LOOK_HOVER : BUTTON_LOOK_NORMAL, kx, ky, KEY_W - 1, KEY_H - 1);
        centred_text(cr, CAP, kx + (KEY_W - 1) / 2.0, ky + (KEY_H - 5) / 2.0, digit, PRINT);
    }
}

void deck_below(cairo_t *cr, int type, const scene &s, const layout &l) {
    constexpr int BUTTON_W = 44, BUTTON_H = 31, BETWEEN = 10, RIM = 6, STACK = 3;
    constexpr double FROM_LEFT = 0.34; // of the room that is left; the loose piece comes down further right
    const board_colours colours = board_colours_of(PUZZLE_LOOKS[type].accent);
    // The card shows one of the pieces that still wait, reduced where it would be too tall.
    const double scale = std::min(1.0, (l.under.h - 2 * RIM - 2 * STACK) / s.cell_h);
    const double card_w = s.cell_w * scale + 2 * RIM, card_h = s.cell_h * scale + 2 * RIM;
    const double x = std::round((l.under.w - BUTTON_W - BETWEEN - card_w) * FROM_LEFT);
    const double y = std::round(l.under.y + (l.under.h - card_h - 2 * STACK) / 2);
    const double button_y = std::round(y + (card_h - BUTTON_H) / 2);
    paste(cr, draw_button({.width = BUTTON_W, .height = BUTTON_H}, BUTTON_LOOK_NORMAL, icon::none, ""), x, button_y);
    draw_next_mark(cr, x + BUTTON_W / 2.0 - 1, button_y + BUTTON_H / 2.0 - 2, colours.accent);
    const double card_x = x + BUTTON_W + BETWEEN;
    paint_card(cr, card_x, y, card_w, card_h, colours, STACK);
    const place p = waiting_place(s, 1);
    cairo_save(cr);
    cairo_translate(cr, card_x + RIM, y + RIM);
    cairo_scale(cr, scale, scale);
    // A card has no sockets, so its print stands in the middle.
    draw_board_label(cr, type, p.column, p.row,
                     {SOCKET_SHIFT, SOCKET_SHIFT, static_cast<double>(s.cell_w), static_cast<double>(s.cell_h)});
    cairo_restore(cr);
}

void pieces_below(cairo_t *cr, int type, const scene &s, const layout &l) {
    constexpr int PIECES = 4;
    const double step = l.under.w / PIECES;
    for (int i = 0; i < PIECES; ++i)
        lying_piece(cr, type, s, waiting_place(s, i + 1), l.under.x + (i + 0.5) * step - s.cell_w / 2.0 + 4,
                    l.under.y + 7 + (i % 2 == 0 ? 0 : 2));
}

// --- The piece on its way ------------------------------------------------------------------------

void flying_piece(cairo_t *cr, int type, const scene &s, const layout &l) {
    constexpr rgb GLOW = hex(0xFFB42E);
    const place p = loose_place(s);
    const piece_shape target = shape_at(s, l, p.column, p.row);
    piece_path(cr, target);
    stroke(cr, GLOW, 2.4);
    piece_shape flying = target; // as it would fit, so that the eye can follow
    cairo_save(cr);
    cairo_translate(cr, target.x + target.w / 2 + s.dx, target.y + target.h / 2 + s.dy);
    cairo_rotate(cr, s.turn * std::numbers::pi / 180);
    flying.x = -target.w / 2;
    flying.y = -target.h / 2;
    paint_piece_shadow(cr, flying, 4, 8, 5, 0.55);
    paint_loose_piece(cr, flying, CREAM, 4);
    draw_board_label(cr, type, p.column, p.row, box_of(flying));
    cairo_restore(cr);
}

} // namespace

canvas draw_board_picture(int type) {
    const scene &s = SCENES[static_cast<std::size_t>(type)];
    const layout l = lay_out(s);
    const board_colours colours = board_colours_of(PUZZLE_LOOKS[type].accent);
    canvas picture(static_cast<int>(l.board.w), l.height);
    paint_board(picture, l.board.x, l.board.y, l.board.w, l.board.h, colours);
    if (s.round == heads::numbers)
        number_heads(picture, type, s, l, colours);
    else if (s.round != heads::none)
        coin_heads(picture, type, s, l);
    grid_cells(picture, type, s, l, colours);
    switch (s.under) {
    case below::tray:
        tray_below(picture, type, s, l);
        break;
    case below::keypad:
        keypad_below(picture, type, s, l);
        break;
    case below::deck:
        deck_below(picture, type, s, l);
        break;
    case below::pieces:
        pieces_below(picture, type, s, l);
        break;
    }
    flying_piece(picture, type, s, l);
    return picture;
}

} // namespace art
