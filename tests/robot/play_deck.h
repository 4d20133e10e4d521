// play_deck.h: playing with a deck of cards, and what all styles of play share.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"
#include "puzzle_kinds.h"

void play_take(point at); // presses the button there until a piece is held
// Places of the piece's corner, the grip counted from there. The drop must be waited for before the pointer moves on.
void play_drag(point piece, point to, point grip);
point play_grip();
point play_careless(point place); // near enough to snap
bool play_snapped(int cell);      // whether a piece lies exactly in the cell, or soon will

void play_deck(const puzzle_kind &kind, bool wander);
void play_keypad(const puzzle_kind &kind, bool wander);
