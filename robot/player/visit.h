// visit.h: visits to the puzzles, each from the title screen to the title screen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle_kinds.h"

struct visit_plan {
    bool play = true;   // else study the board only
    bool wander = true; // try everything that can be tried on the way
};

void visit(const puzzle_kind &kind, const visit_plan &plan = {}); // plays each puzzle once at most
