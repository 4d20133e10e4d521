// study.h: the ways through the study screen.
//
// One thread. A function starts on the screen that it is named after, waits for what it should see and ends when the
// next screen is seen; it gives up when that does not come.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle_kinds.h"

// Waits for the full board; on a player's first visit the help shows by itself and is clicked away.
void study_enter(const puzzle_kind &kind);
void study_explore(const puzzle_kind &kind); // a piece out and in again, clear, fill, help
void study_play();                           // through the name dialog to the play screen
void study_back();
