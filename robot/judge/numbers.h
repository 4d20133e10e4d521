// numbers.h: do the labels of a puzzle show the numbers that they should?
//
// One thread. The robot was never taught digits: it takes the labels apart, and expects that each part looks most like
// another that should be the same digit.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "player/puzzle_kinds.h"

// Every label is the product of its row and column: gives up on one that shows another number. Puzzles whose labels
// are not products pass.
void numbers_check_labels(const puzzle_kind &kind);
