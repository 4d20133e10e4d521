// headings.h: the symbols that head the board's columns and rows. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"

void headings_draw(const board *b); // into the background; nothing for the types without symbols
