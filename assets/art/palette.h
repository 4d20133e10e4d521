// palette.h: the game's colours. Day is the craft table of play and study, night the blackboard of the
// title, splash, score log and credits; each of the eleven puzzles owns one accent.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "colour.h"
#include "core/base/puzzle_info.h"

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
    const char *icon; // text on its list row, empty for a drawn icon
    rgb accent;
    bool white_ink; // icon ink on the accent: white or near-black
};

inline constexpr puzzle_look PUZZLE_LOOKS[PUZZLE_COUNT] = {
    {"+5", hex(0x52B6EE), false}, {"×5", hex(0xE58A12), false}, {"+10", hex(0x2F5BBA), true},
    {"×10", hex(0xA23A12), true}, {"÷5", hex(0x86E8DC), false}, {"÷10", hex(0x0A5545), true},
    {"", hex(0xD48FB2), false},   {"", hex(0x74288E), true},    {"", hex(0x857D70), false},
    {"", hex(0x7FC97A), false},   {"", hex(0xF8DE4A), false},
};
inline constexpr rgb ICON_INK = hex(0x060F22);

} // namespace art
