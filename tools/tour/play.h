// play.h: playing a puzzle on the play screen, from the first help bubble to the completion dialog.
//
// One thread. Starts when the play screen has been asked for; ends when the completion dialog is there.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle_kinds.h"

// The player has not played this puzzle before. `wander`: help, Escape and back, a wrong drop or answer on the way.
void play_puzzle(const puzzle_kind &kind, bool wander);
