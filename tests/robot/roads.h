// roads.h: whole visits, from the program's start to its end.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <vector>

void road_short();                             // both counting puzzles, every screen, and a second start
void road_long(const std::vector<int> &types); // these puzzles, with all detours
void road_tour();                              // for visitors to watch: each screen, each style of play
void road_signal();                            // a run, then SIGTERM; the second start knows the run
