// entry_names.cpp: putting names together.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "entry_names.h"

#include "graphics/glyph_names.h"

#include <cstdio>

std::string entry_of(const picture_set &set, i32 k) {
    char number[16];
    std::snprintf(number, sizeof number, "%.3i", k + 1);
    return PICTURE_FOLDER + std::string(set.prefix) + number + PICTURE_SUFFIX;
}

std::string entry_of_glyph(std::string_view name) {
    return PICTURE_FOLDER + std::string(GLYPH_FOLDER).append(name) + PICTURE_SUFFIX;
}

std::string entry_of_puzzle(i32 type, puzzle_picture id, i32 k) {
    const std::string name = std::string(PUZZLE_LAYOUTS[type].dir) + PUZZLE_PICTURES[id].name;
    return puzzle_picture_is_series(id) ? entry_of({name.c_str(), 0}, k) : PICTURE_FOLDER + name;
}
