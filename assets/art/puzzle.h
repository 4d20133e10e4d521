// puzzle.h: what the pictures of a puzzle's folder share: its measures and its colours.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "edges.h"
#include "palette.h"
#include "problems.h"

#include <array>
#include <string>

namespace art {

enum class puzzle_kind { counting, multiplication, division, market, fractions, factors, money, time };

struct insets {
    int left, top, right, bottom;
};

// The measures of a puzzle, pixels. The game's own layout has the same grid positions.
struct puzzle_layout {
    puzzle_kind kind;
    int board_width, board_height;
    int grid_x, grid_y, row_pitch;
    int piece_width, piece_height;
    int label_height;   // of a label picture; its width is the piece's
    int ink_x, ink_y;   // middle of what the sockets leave free on a label
    int frame;          // width of the board's coloured frame
    int title_y;        // middle of the name on the board
    int heading_height; // of the pills over the columns
    int card_width, card_height;
    insets card_field; // of the card's cream field
    int box_shift;     // moves the tray's compartments right and down
};

const puzzle_layout &layout_of(int type);

// The colours that follow from a puzzle's accent.
struct puzzle_colours {
    rgb accent, outline, rim_shade, rim_light;
    rgb panel, name;
    joint_colours joints;
    std::array<rgb, 10> rows; // cell tones; as many as the puzzle has rows of one tone
};

puzzle_colours colours_of(int type);

std::string folder_of(int type);

// How a picture is written whose ink stands on a known ground of one colour.
finish on_ground(rgb ground);

// Each writes its pictures of one puzzle.
void make_board(int type);  // board/base, board/symbols, board/pieces
void make_tray(int type);   // box/base
void make_labels(int type); // piece/symbols
void make_deck(int type);   // deck, next button and keys
void make_keypad(int type); // input and deck/symbols of the puzzles with typed answers

// The market stall, and the goods of a cell of the types 6 and 9.
void draw_market_scene(cairo_t *cr, double width, double height, const puzzle_colours &colours);
const char *market_goods(int cell); // an emoji
const char *money_goods(int cell);  // an emoji

// One line of text in Dosis Bold whose capitals' middle lies at (cx, cy), its baseline on a whole pixel.
void print(cairo_t *cr, double cap_height, double cx, double cy, std::string_view utf8, rgb colour);

} // namespace art
