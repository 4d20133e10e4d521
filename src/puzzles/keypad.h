// keypad.h: typing the answer to the top card's problem, in the types with BOARD_HAS_KEYPAD. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

[[nodiscard]] i32 keypad_build(board *b); // the twelve keys; 1, or -1 when out of memory

void board_keypad_enter(button *pressed, std::intptr_t board_address, std::intptr_t); // the enter key; arg1: the board

void keypad_update(board *b);          // one frame: flying digits, then the judgement
void keypad_reveal_answered(board *b); // what a right answer does to the top card's piece; there must be one

sprite *board_revealing_piece(const board *b); // the first piece that is growing out of the deck, or null
