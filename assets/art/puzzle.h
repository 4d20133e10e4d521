// puzzle.h: what the pictures of a puzzle's folder share: its measures and its colours.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "edges.h"
#include "palette.h"
#include "save.h"
#include "text.h"

#include <array>

namespace art {

enum class puzzle_kind { counting, multiplication, division, market, fractions, factors, money, time };

struct insets {
    int left, top, right, bottom;
};

// What the pictures of a puzzle measure beyond the game's own layout, pixels.
struct puzzle_measures {
    puzzle_kind kind;
    int board_width, board_height;
    int label_height;   // of a label picture; its width is the piece's
    int ink_x, ink_y;   // middle of what the sockets leave free on a label
    int frame;          // width of the board's coloured frame
    int title_y;        // middle of the name on the board
    int heading_height; // of the pills over the columns
    int card_width, card_height;
    insets card_field; // of the card's cream field
    int box_shift;     // moves the tray's compartments right and down
};

const puzzle_measures &measures_of(int type);

// The colours that follow from a puzzle's accent.
struct puzzle_colours {
    rgb accent, outline, rim_shade, rim_light;
    rgb panel, name;
    joint_colours joints;
    std::array<rgb, 10> rows; // cell tones; as many as the puzzle has rows of one tone
};

puzzle_colours colours_of(int type);

// How a picture is written whose ink stands on a known ground of one colour.
finish on_ground(rgb ground);

// One line of text in Dosis Bold whose capitals' middle lies at (cx, cy), its baseline on a whole pixel.
void print(cairo_t *cr, double cap_height, double cx, double cy, std::string_view utf8, rgb colour);

} // namespace art
