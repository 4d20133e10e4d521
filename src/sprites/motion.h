// motion.h: slow motion in whole numbers.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline constexpr i32 MOTION_PIXEL = 100; // speeds and remainders are in hundredths of a pixel

// Moves a position by one frame at this speed; the remainder keeps what does not make a whole pixel.
constexpr void drift(i32 &position, i32 &remainder, i32 velocity) {
    remainder += velocity;
    position += remainder / MOTION_PIXEL;
    remainder %= MOTION_PIXEL;
}
