// deck.h: playing the puzzles with a deck, with the keypad or without.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle_kinds.h"

void play_deck(const puzzle_kind &kind, bool wander);
void play_keypad(const puzzle_kind &kind, bool wander);
