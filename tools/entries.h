// entries.h: every entry that the game reads from its archive, from one table: name, kind, size and role. Immutable;
// any thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <string>
#include <string_view>
#include <vector>

enum entry_kind : i32 { ENTRY_PICTURE, ENTRY_SOUND, ENTRY_TEXT };

// A picture's size in pixels, both ends included.
struct size_rule {
    i32 min_w, max_w, min_h, max_h;
};

inline constexpr i32 NO_PUZZLE = -1;

struct kit_entry {
    std::string name;
    entry_kind kind;
    size_rule size;    // pictures
    std::string alike; // picture whose size it must share; empty for none
    i32 series;        // number of pictures in its numbered series; 1: a picture by itself
    i32 puzzle;        // texts and puzzle pictures: the type, 0..10; else NO_PUZZLE
    std::string role;
};

// All of them, in the order of their names.
const std::vector<kit_entry> &kit_entries();

const kit_entry *kit_find(std::string_view name); // null for a name that the game never asks for

bool size_fits(const size_rule &rule, i32 width, i32 height);
std::string size_rule_text(const size_rule &rule); // such as "57x52", or "8 to 40 wide and 31 high"

// What sounds and texts must keep to.
inline constexpr i32 KIT_SOUND_RATE = 44100;        // Hz
inline constexpr i32 KIT_SOUND_MAX_CHANNELS = 2;    // mono or stereo
inline constexpr double KIT_SOUND_MAX_SECONDS = 10; // a sound may be asked for again while it plays
inline constexpr i32 KIT_STRIP_GAP = 2;             // pixels between the board and the strip below it
inline constexpr i32 KIT_GLYPH_ABOVE = 15;          // rows of ink above the reference line
inline constexpr i32 KIT_GLYPH_BELOW = 4;           // and below it
inline constexpr i32 KIT_TITLE_WIDTH = 142;         // pixels that the list leaves for a puzzle's title
