// board_update.h: one frame of a run. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

void board_update(board *b);          // pieces, deck, keypad, keys, clock, completion, effects
void board_count_remaining(board *b); // counts the pieces that are not yet answered afresh
