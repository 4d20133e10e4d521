// deck.h: the deck of cards that deals the pieces, of the types with BOARD_HAS_DECK. Main thread.
//
// The top card lies at slot 0. A piece in the pool has SPRITE_AVAILABLE; on a card it has not; taken or answered it
// has SPRITE_ANSWERED and is counted out of board.remaining.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

// A piece on the deck lies this far right of and below the deck's corner, in pixels.
inline constexpr i32 DECK_PIECE_OFFSET = 4;

[[nodiscard]] i32 deck_build(board *b); // next button and closed cards; 1, or -1 when out of memory

void board_deal(board *b); // a card from the pool goes under the others; with the pool used up they take turns
void board_deck_next(button *pressed, std::intptr_t board_address, std::intptr_t); // turns the deck; arg1: the board
void board_take_top_card(board *b, i32 mx, i32 my);                                // a click on no piece and no button
void board_lock_deck(board *b, i32 frames);                                        // hides the cards' faces

void deck_update(board *b); // one frame of the turning, and of the top card's piece
