// entry_names.h: the names of pictures in the archive, below its folder of pictures.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/puzzle_pictures.h"

#include <string>
#include <string_view>

inline constexpr char PICTURE_FOLDER[] = "xpm/", PICTURE_SUFFIX[] = ".xpm";

std::string entry_of(const picture_set &set, i32 k); // the k-th of a set, from 0: "xpm/title/001.xpm"
std::string entry_of_glyph(std::string_view name);
std::string entry_of_puzzle(i32 type, puzzle_picture id, i32 k = 0); // the k-th of a series, from 0
