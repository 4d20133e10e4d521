// board_draw.h: recording a run. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

void board_draw(const board *b);            // the moving parts, into this frame's list
void board_draw_background(const board *b); // the still parts, into the background
