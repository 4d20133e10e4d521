// generators.h: making the pieces of a run. Main thread.
//
// Label i always belongs in cell i, counted row by row; only where a piece waits is random.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

// Creates one piece for each cell, after cells_build; 1, or -1 when out of memory (logged).
[[nodiscard]] i32 pieces_generate(board *b);
