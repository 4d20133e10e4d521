// xpm_format.h: what all who read or write XPM texts must agree on. Constants only.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <string_view>

// The characters of symbols, in the order in which colours are numbered.
inline constexpr std::string_view XPM_ALPHABET =
    " .+@#$%&*=-;>,')!~{]^/(_:<[}|1234567890abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ`";
static_assert(XPM_ALPHABET.size() == 92);

inline constexpr u32 XPM_KEY = 0xEA008A;  // the colour that is transparent, 0xRRGGBB
inline constexpr i32 XPM_MAX_SIDE = 8192; // pixels in a direction that the game accepts
