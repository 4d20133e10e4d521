// deck_draw.h: recording the deck. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

void deck_draw(const board *b);                                            // stack, cards and what is on them
void board_draw_card_text(const board *b, i32 x, i32 y, const char *text); // x, y: the card's corner
