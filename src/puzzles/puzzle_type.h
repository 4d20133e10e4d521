// puzzle_type.h: setting a board up as one of the eleven puzzle types, from the tables of puzzle_layout.h.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

// Sets folder, geometry, features and places of the board; 1, or -1 when out of memory (logged).
[[nodiscard]] i32 puzzle_type_init(board *b, i32 type);
