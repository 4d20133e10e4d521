// palette.h: the game's colours. Day is the craft table of play and study, night the blackboard of the
// title, splash, score log and credits; each of the eleven puzzles owns one accent.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

#include <array>

namespace art {

// Day world.
inline constexpr rgb PAPER_LIGHT = hex(0xC7DCE9), PAPER = hex(0xB8D1E1), PAPER_DARK = hex(0xA8C5D8);
// Pieces are exact in 5-6-5, so that all parts of one keep the same tone.
inline constexpr rgb CREAM = hex(0xFFF3DE), CREAM_LIGHT = hex(0xFFFBEF), CREAM_SHADE = hex(0xC5A26B);
inline constexpr rgb PRINT = hex(0x2B1C10);
inline constexpr rgb WOOD = hex(0xDDB47C), WOOD_LIGHT = hex(0xF0D2A0), WOOD_SHADE = hex(0xA9783F),
                     WOOD_OUTLINE = hex(0x6E4A22), TRAY_FLOOR = hex(0xBF9160);

// Night world.
inline constexpr rgb NIGHT_CENTRE = hex(0x14284C), NIGHT = hex(0x10203E), NIGHT_EDGE = hex(0x0A1530);
inline constexpr rgb CHALK = hex(0xE8EEF8), STRIP = hex(0x0B1731), STRIP_LINE = hex(0x2B4472);
inline constexpr rgb SUBHEADING = hex(0xFFE9A8), FOOTER_NUMERAL = hex(0xA9BEE0), FOOTER_LINE = hex(0x8FA8D0);

// One puzzle's identity, indexed by puzzle type 0..10.
struct puzzle_look {
    const char *folder; // below xpm/
    const char *title;  // as the game prints it
    const char *icon;   // text on its list row, empty for a drawn icon
    rgb accent;
    bool white_ink; // icon ink on the accent: white or near-black
};

inline constexpr std::array<puzzle_look, 11> PUZZLE_LOOKS = {{
    {"puzzle/mult_15", "Counting by 1's - 5's", "+5", hex(0x52B6EE), false},
    {"puzzle/mult2_15", "Multiplication 1 - 5", "×5", hex(0xE58A12), false},
    {"puzzle/mult_610", "Counting by 6's - 10's", "+10", hex(0x2F5BBA), true},
    {"puzzle/mult2_610", "Multiplication 6 - 10", "×10", hex(0xA23A12), true},
    {"puzzle/div_15", "Division by 1 - 5", "÷5", hex(0x86E8DC), false},
    {"puzzle/div_610", "Division by 6 - 10", "÷10", hex(0x0A5545), true},
    {"puzzle/consumer", "Consumer Math", "", hex(0xD48FB2), false},
    {"puzzle/fraction", "Simplifying Fractions", "", hex(0x74288E), true},
    {"puzzle/factor", "Factors", "", hex(0x857D70), false},
    {"puzzle/money", "Adding Money", "", hex(0x7FC97A), false},
    {"puzzle/time", "Time", "", hex(0xF8DE4A), false},
}};
inline constexpr rgb ICON_INK = hex(0x060F22);

// The order in which the title and splash screens list the types.
inline constexpr std::array<int, 11> LIST_ORDER = {0, 10, 2, 9, 1, 3, 4, 5, 6, 7, 8};

} // namespace art
