// puzzle_board.cpp: the boards: frame, headings and cells.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzle_board.h"

#include "problems.h"
#include "puzzle_market.h"
#include "text.h"
#include "things.h"

#include <algorithm>
#include <cmath>

namespace art {
namespace {

constexpr rgb WHITE = {1, 1, 1}, BLACK = {0, 0, 0};

// --- Frame ---------------------------------------------------------------------------------------

constexpr double CORNER = 12;
constexpr double NAME_CAP = 13, NAME_SPACING = 0.6;

// A closed ring between two rounded rectangles, `from` and `to` pixels inside the picture.
void ring(const canvas &picture, double from, double to, rgb colour) {
    const auto rect = [&](double inset) {
        rounded_rect(picture, inset, inset, picture.width - 2 * inset, picture.height - 2 * inset,
                     std::max(CORNER - inset, 3.0));
    };
    cairo_set_fill_rule(picture, CAIRO_FILL_RULE_EVEN_ODD);
    rect(from);
    rect(to);
    fill(picture, colour);
    cairo_set_fill_rule(picture, CAIRO_FILL_RULE_WINDING);
}

// Limits drawing to the half of the picture that faces the light, or to the other one.
void clip_half(const canvas &picture, bool lit) {
    const double w = picture.width, h = picture.height;
    // The border runs from corner to corner at 45 degrees, as a frame is mitred.
    const double half = std::min(w, h) / 2;
    cairo_move_to(picture, lit ? 0 : w, lit ? 0 : h);
    cairo_line_to(picture, w, 0);
    cairo_line_to(picture, w - half, half);
    cairo_line_to(picture, half, h - half);
    cairo_line_to(picture, 0, h);
    cairo_close_path(picture);
    cairo_clip(picture);
}

// Outline, a bevel turned to the light, the frame's flat and the panel's recess.
void draw_frame(const canvas &picture, double width, const puzzle_colours &c) {
    rounded_rect(picture, 0, 0, picture.width, picture.height, CORNER);
    fill(picture, c.outline);
    rounded_rect(picture, 1, 1, picture.width - 2, picture.height - 2, CORNER - 1);
    fill(picture, c.accent);
    for (const bool lit : {true, false}) {
        cairo_save(picture);
        clip_half(picture, lit);
        ring(picture, 1, lit ? 2.5 : 3, lit ? c.rim_light : c.rim_shade);
        ring(picture, width - 1, width, lit ? lighten(c.accent, -0.14) : c.rim_light);
        cairo_restore(picture);
    }
    rounded_rect(picture, width, width, picture.width - 2 * width, picture.height - 2 * width, CORNER - width);
    fill(picture, c.panel);
}

double name_width(std::string_view name) {
    return text_width(face::dosis_bold, NAME_CAP, name) + NAME_SPACING * static_cast<double>(name.size() - 1);
}

// The puzzle's name with a line and growing dots on both sides.
void draw_name(cairo_t *cr, double middle, double y, double from, double to, std::string_view name,
               const puzzle_colours &c) {
    const double width = name_width(name);
    double x = middle - width / 2;
    for (const char &letter : name) {
        const std::string_view one(&letter, 1);
        text(cr, face::dosis_bold, NAME_CAP, x, std::round(y + NAME_CAP / 2), align::left, one, c.name);
        x += text_width(face::dosis_bold, NAME_CAP, one) + NAME_SPACING;
    }
    constexpr int dots = 5;
    constexpr double gap = 16, pitch = 11, smallest = 1.2, growth = 0.5;
    const rgb dot = lighten(c.accent, to_lch(c.accent).l > 0.6 ? -0.07 : 0.05);
    for (const double sign : {-1.0, 1.0}) {
        for (int i = 0; i < dots; ++i) {
            circle(cr, middle + sign * (width / 2 + gap + pitch * i), y, smallest + growth * (dots - 1 - i));
            fill(cr, dot);
        }
        const double begin = middle + sign * (width / 2 + gap + pitch * (dots - 1) + 9), end = sign < 0 ? from : to;
        if (sign * (end - begin) > 0) {
            cairo_rectangle(cr, std::round(std::min(begin, end)), std::floor(y), std::round(std::abs(end - begin)), 1);
            fill(cr, mix(c.accent, c.panel, 0.45));
        }
    }
}

// --- Headings ------------------------------------------------------------------------------------

constexpr int COLUMN_WIDTH = 31, ROW_WIDTH = 28, ROW_HEIGHT = 27;
constexpr double CAP_SHARE = 0.62; // of a pill's height, but at most CAP_MAX
constexpr double CAP_MAX = 13, ROW_CAP = 15;

double cap_in(int height) {
    return std::min(CAP_MAX, std::round(height * CAP_SHARE + 1));
}

void draw_chip(cairo_t *cr, double width, double height, double radius, rgb tone) {
    lch chip = to_lch(tone);
    chip.l = 0.80;
    chip.c = 0.10;
    const rgb fill_colour = to_rgb(chip);
    rounded_rect(cr, 0, 0, width, height, radius);
    fill(cr, to_rgb({0.52, chip.c, chip.h}));
    rounded_rect(cr, 1, 1, width - 2, height - 2, radius - 1);
    fill(cr, lighten(fill_colour, 0.09));
    rounded_rect(cr, 2, 2, width - 3, height - 3, radius - 1);
    fill(cr, lighten(fill_colour, -0.07));
    rounded_rect(cr, 2, 2, width - 4, height - 4, radius - 2);
    fill(cr, fill_colour);
}

rgb chip_ink(rgb tone) {
    return to_rgb({0.24, 0.05, to_lch(tone).h});
}

canvas draw_column_heading(int number, int height, const puzzle_colours &c) {
    canvas pill(COLUMN_WIDTH, height);
    rounded_rect(pill, 0, 0, COLUMN_WIDTH, height, height / 2.0);
    fill(pill, to_rgb({0.60, std::min(0.10, to_lch(c.accent).c), to_lch(c.accent).h}));
    rounded_rect(pill, 1, 1, COLUMN_WIDTH - 2, height - 2.5, height / 2.0 - 1);
    fill(pill, WHITE);
    print(pill, cap_in(height), COLUMN_WIDTH / 2.0, height / 2.0 - 0.5, std::to_string(number),
          to_rgb({0.24, 0.05, to_lch(c.accent).h}));
    return pill;
}

canvas draw_row_heading(int number, rgb tone) {
    canvas chip(ROW_WIDTH, ROW_HEIGHT);
    draw_chip(chip, ROW_WIDTH, ROW_HEIGHT, 8, tone);
    print(chip, ROW_CAP, ROW_WIDTH / 2.0, ROW_HEIGHT / 2.0, std::to_string(number), chip_ink(tone));
    return chip;
}

// One picture for over the columns and beside the rows.
canvas draw_factor_heading(int number, int height, rgb tone) {
    canvas pill(ROW_WIDTH, height);
    draw_chip(pill, ROW_WIDTH, height, height / 2.0, tone);
    print(pill, cap_in(height), ROW_WIDTH / 2.0, height / 2.0, std::to_string(number), chip_ink(tone));
    return pill;
}

canvas draw_coin_heading(int cents) {
    const double diameter = coin_diameter(cents);
    const int size = static_cast<int>(std::ceil(diameter));
    canvas coin(size, size);
    draw_coin(coin, cents, size / 2.0, size / 2.0, diameter);
    return coin;
}

void make_headings(int type, const puzzle_colours &c) {
    const puzzle_measures &measures = measures_of(type);
    finish how = {.ground = c.panel, .threshold = 0.02};
    int k = 0;
    if (measures.kind == puzzle_kind::market || measures.kind == puzzle_kind::money) {
        how.dither = true;
        for (const int cents : COINS_IN_ORDER)
            save(draw_coin_heading(cents), entry_of_puzzle(type, PICTURE_HEADINGS, k++), how);
        return;
    }
    if (measures.heading_height == 0)
        return;
    const puzzle_layout &layout = PUZZLE_LAYOUTS[type];
    for (int column = 1; column <= layout.cols; ++column) {
        const rgb tone = c.rows[static_cast<std::size_t>(column - 1)];
        save(measures.kind == puzzle_kind::factors ? draw_factor_heading(column, measures.heading_height, tone)
                                                   : draw_column_heading(column, measures.heading_height, c),
             entry_of_puzzle(type, PICTURE_HEADINGS, k++), how);
    }
    for (int row = 0; measures.kind != puzzle_kind::factors && row < layout.rows; ++row)
        save(draw_row_heading(first_row_number(type) + row, c.rows[static_cast<std::size_t>(row)]),
             entry_of_puzzle(type, PICTURE_HEADINGS, k++), how);
}

// --- Cells ---------------------------------------------------------------------------------------

constexpr double CELL_SHADE = -0.045, CELL_LIGHT = 0.03; // lightness

// A cell's tone with its recess, inside the grid line that it shares with its neighbours.
canvas draw_cell_ground(int type, rgb tone, rgb line) {
    const int w = PUZZLE_LAYOUTS[type].cell_w + 2, h = puzzle_piece_height(type) + 2;
    canvas cell(w, h);
    const auto block = [&](int x, int y, int width, int height, rgb colour) {
        cairo_rectangle(cell, x, y, width, height);
        fill(cell, colour);
    };
    block(0, 0, w, h, line);
    block(1, 1, w - 2, h - 2, lighten(tone, CELL_LIGHT));
    block(1, 1, w - 3, h - 3, lighten(tone, CELL_SHADE));
    block(2, 2, w - 4, h - 4, tone);
    return cell;
}

constexpr double FRACTION_CAP = 13, FRACTION_RISE = 9.5, TIME_CAP = 17;

void print_fraction(cairo_t *cr, const fraction &f, double cx, double cy, rgb ink) {
    print(cr, FRACTION_CAP, cx, cy - FRACTION_RISE, std::to_string(f.numerator), ink);
    print(cr, FRACTION_CAP, cx, cy + FRACTION_RISE, std::to_string(f.denominator), ink);
    const double half = f.denominator > 9 ? 9 : 6.5;
    cairo_rectangle(cr, std::floor(cx - half), std::floor(cy - 1), std::round(2 * half), 2);
    fill(cr, ink);
}

// Repaints the grid line and the recess over a cell's share of the market scene.
void draw_scene_cell(const canvas &cell, const canvas &scene, int type, int column, int row, rgb line) {
    const int w = cell.width, h = cell.height;
    paste(cell, scene, -column * (PUZZLE_LAYOUTS[type].cell_w + COLUMN_GAP), -row * puzzle_row_pitch(type));
    const auto block = [&](int x, int y, int width, int height, rgb colour, double alpha) {
        cairo_rectangle(cell, x, y, width, height);
        fill(cell, colour, alpha);
    };
    block(1, 1, w - 2, 1, BLACK, 0.08);
    block(1, 2, 1, h - 3, BLACK, 0.08);
    block(2, h - 2, w - 3, 1, WHITE, 0.5);
    block(w - 2, 2, 1, h - 4, WHITE, 0.5);
    cairo_rectangle(cell, 0.5, 0.5, w - 1, h - 1);
    stroke(cell, line, 1);
}

constexpr int MONEY_GOODS_SIZE = 33;

void draw_money_goods(cairo_t *cr, int cell, double cx, double cy) {
    constexpr double half = MONEY_GOODS_SIZE / 2.0;
    outlined_emoji(cr, money_goods(cell), static_cast<int>(std::lround(cx - half)),
                   static_cast<int>(std::lround(cy - half)), MONEY_GOODS_SIZE);
}

canvas draw_cell(int type, int index, const canvas *scene, const puzzle_colours &c) {
    const puzzle_measures &measures = measures_of(type);
    const int columns = PUZZLE_LAYOUTS[type].cols, column = index % columns, row = index / columns;
    const bool by_row = !scene && measures.kind != puzzle_kind::fractions && measures.kind != puzzle_kind::money &&
                        measures.kind != puzzle_kind::time;
    const auto tone = static_cast<std::size_t>(by_row ? index : (column + row) % 2);
    canvas cell = draw_cell_ground(type, c.rows[tone], c.joints.line);
    const double cx = measures.ink_x + 1, cy = measures.ink_y + 1;
    const rgb ink = measures.kind == puzzle_kind::time ? PRINT : c.name;
    switch (measures.kind) {
    case puzzle_kind::market:
        draw_scene_cell(cell, *scene, type, column, row, c.joints.line);
        break;
    case puzzle_kind::fractions:
        print_fraction(cell, fraction_problem(index), cx, cy + 1, ink);
        break;
    case puzzle_kind::money:
        draw_money_goods(cell, index, cx, cy);
        break;
    case puzzle_kind::time:
        print(cell, TIME_CAP, cx, cy + 2, time_text(time_problem(index)), ink);
        break;
    default:
        break;
    }
    return cell;
}

void make_cells(int type, const puzzle_colours &c) {
    const puzzle_layout &layout = PUZZLE_LAYOUTS[type];
    std::optional<canvas> scene;
    if (measures_of(type).kind == puzzle_kind::market) {
        scene.emplace(layout.cols * (layout.cell_w + COLUMN_GAP) + 1, layout.rows * puzzle_row_pitch(type) + 1);
        draw_market_scene(*scene, scene->width, scene->height, c);
    }
    for (int i = 0; i < layout.cell_pictures; ++i)
        save(draw_cell(type, i, scene ? &*scene : nullptr, c), entry_of_puzzle(type, PICTURE_CELLS, i));
}

} // namespace

void make_board(int type) {
    const puzzle_measures &measures = measures_of(type);
    const puzzle_colours c = colours_of(type);
    canvas board(measures.board_width, measures.board_height);
    draw_frame(board, measures.frame, c);
    constexpr double margin = 14;
    draw_name(board, board.width / 2.0, measures.title_y + 0.5, measures.frame + margin,
              board.width - measures.frame - margin, puzzle_title(type), c);
    save(board, entry_of_puzzle(type, PICTURE_BOARD));
    make_headings(type, c);
    make_cells(type, c);
}

} // namespace art
