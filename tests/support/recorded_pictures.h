// recorded_pictures.h: which drawing commands carry a picture: those whose operands begin with one.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "graphics/draw_ops.h"

template <class Operands> inline constexpr bool begins_with_picture = requires(Operands o) {
    o.picture;
};

#define PICTURE_ROW(id, operands, player, reach) begins_with_picture<operands>,
inline constexpr bool TAKES_PICTURE[] = {DRAW_MANIFEST(PICTURE_ROW)};
#undef PICTURE_ROW
