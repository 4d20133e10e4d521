// debug_actions.h: what Ctrl and a letter do in the hidden debug mode. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

void board_debug_reveal(board *b);     // Ctrl+a: keypad boards: as if the right answer had been typed
void board_debug_place_one(board *b);  // Ctrl+w: places the first loose piece that stays loose
void board_debug_place_most(board *b); // Ctrl+d: places all but three
void board_debug_finish(board *b);     // Ctrl+c: ends the run
