// numbers.h: do the labels of a puzzle show the numbers that they should?
//
// One thread. The robot was never taught digits: it takes the labels apart into what hangs together, and expects
// that each part looks most like another that should be the same digit.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle_kinds.h"

bool numbers_known(const puzzle_kind &kind);        // whether every label is the product of its row and column
void numbers_check_labels(const puzzle_kind &kind); // gives up on a label that shows another number
