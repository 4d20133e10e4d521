// column.h: the column of buttons at the window's right edge.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline constexpr i32 COLUMN_RIGHT = 795;  // the buttons' right end
inline constexpr i32 COLUMN_BOTTOM = 595; // bottom of their lowest button
inline constexpr i32 BUTTON_GAP = 5;      // between the buttons

// Top of the nth button from the bottom (1 the lowest) in a column of buttons h pixels high.
constexpr i32 column_top(i32 n, i32 h) {
    return COLUMN_BOTTOM + BUTTON_GAP - n * (h + BUTTON_GAP);
}
