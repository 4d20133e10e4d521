// effect_pictures.h: the effects' picture sets. Constants only.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "resources/picture_set.h"

inline constexpr picture_set FLARE_SET = {"field/flare/", 5};
inline constexpr picture_set BURN_SMALL_SET = {"field/burn/small/", 18}, BURN_LARGE_SET = {"field/burn/large/", 18};
static_assert(BURN_SMALL_SET.count == BURN_LARGE_SET.count, "a burn may change its size at any picture");

inline constexpr i32 CONFETTI_COLOURS = 15;
inline constexpr i32 CONFETTI_FLUTTER = 4; // pictures of a colour
inline constexpr picture_set CONFETTI_SET = {"field/confetti/", CONFETTI_COLOURS *CONFETTI_FLUTTER};
