// play.h: playing a puzzle on the play screen, from the first help bubble to the completion dialog.
//
// One thread. Starts when the play screen has been asked for; ends when the completion dialog is there.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle_kinds.h"

// What to do on the way besides solving the puzzle.
struct play_detours {
    bool help_expected;  // the player has not played this puzzle before
    bool wander = false; // help, Escape and back, wrong drops or answers
};

run_span play_puzzle(const puzzle_kind &kind, const play_detours &detours);
