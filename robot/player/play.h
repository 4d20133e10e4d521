// play.h: playing a puzzle on the play screen, and what its styles share.
//
// One thread. Places are those of a piece's corner, the grip where it is held, counted from there.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"
#include "puzzle_kinds.h"

// From the first help bubble to the completion dialog; the player has not played this puzzle before. `wander`: help,
// Escape and back, a wrong drop or answer on the way.
void play_puzzle(const puzzle_kind &kind, bool wander);

point play_grip();           // the usual one
point play_near(int cell);   // where a piece for this cell is dropped: near enough to snap
void play_lift(point piece); // takes it up and lays it down again
// Whether the piece fits the cell and then lies there exactly. The last one is taken away before that can be seen.
bool play_place(point piece, point grip, int cell, bool last);
// The piece of one cell onto another: stays there loosely.
void play_drop_wrongly(point piece, point grip, int cell, int other_cell);
