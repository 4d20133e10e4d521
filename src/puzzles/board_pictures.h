// board_pictures.h: loading and freeing the pictures of a puzzle type. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

// Loads what the board's type needs; 1, or -1 at the first picture that cannot be loaded (earlier ones stay).
[[nodiscard]] i32 board_load_pictures(board *b);

void board_free_images(board *b); // waits until no recorded list refers to them any more
