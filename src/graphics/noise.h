// noise.h: random colours. From the C library's generator, which any thread may use.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <cstdlib>

// The lowest limit for which a number is drawn. A limit of 1 can only give 0, but pictures draw for it all the same
// and areas do not, and the number drawn shifts all that follow.
inline constexpr u8 PICTURE_NOISE_LOWEST = 1, AREA_NOISE_LOWEST = 2;

// A random number below the limit, or 0 without a draw where the limit is below the lowest.
inline u8 noise_channel(u8 limit, u8 lowest) {
    return limit >= lowest ? static_cast<u8>(std::rand() % limit) : u8{0};
}

// Each channel below its limit, drawn in the order red, green, blue.
inline rgb noise_colour(rgb limits, u8 lowest) {
    const u8 red = noise_channel(limits.r, lowest);
    const u8 green = noise_channel(limits.g, lowest);
    return {red, green, noise_channel(limits.b, lowest)};
}
