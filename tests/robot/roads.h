// roads.h: whole visits, from the program's start to its end.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

void road_short();  // both counting puzzles, every screen, and a second start
void road_long();   // all eleven puzzles
void road_signal(); // a run, then SIGTERM; the second start knows the run
