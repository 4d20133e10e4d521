// play_parts.h: what all styles of play share, and the styles with a deck.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"
#include "puzzle_kinds.h"

// Places are those of a piece's corner, the grip where it is held, counted from there.
point play_grip();           // the usual one
point play_near(int cell);   // where a piece for this cell is dropped: near enough to snap
void play_lift(point piece); // takes it up and lays it down again
// Whether the piece fits the cell and then lies there exactly. The last one is taken away before that can be seen.
bool play_place(point piece, point grip, int cell, bool last);
// The piece of one cell onto another: stays there loosely.
void play_drop_wrongly(point piece, point grip, int cell, int other_cell);

void play_deck(const puzzle_kind &kind, bool wander);
void play_keypad(const puzzle_kind &kind, bool wander);
