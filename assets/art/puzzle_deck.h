// puzzle_deck.h: deck, next button and keys; and the keypad of the puzzles with typed answers.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

namespace art {

void make_deck(int type);   // the deck, and the looks of all keys
void make_keypad(int type); // input and deck/symbols

} // namespace art
