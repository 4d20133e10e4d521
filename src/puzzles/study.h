// study.h: the board in study mode, where pieces are taken out and put back by clicks. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

void board_study_begin(board *b); // after board_start: study place on the screen, every piece in its cell
void board_study_fill(board *b);  // every piece shows
void board_study_clear(board *b); // no piece shows
void board_study_toggle(board *b, i32 mx, i32 my); // a click: the piece of the cell there leaves or flies in
