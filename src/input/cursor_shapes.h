// cursor_shapes.h: the mouse pointer's shapes. Constants only.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "resources/picture_set.h"

enum cursor_shape_id : i32 { CURSOR_ARROW, CURSOR_OPEN_HAND, CURSOR_CLOSED_HAND, CURSOR_SHAPE_COUNT };

struct cursor_shape {
    picture_set pictures;
    point hot; // the picture's pixel that lies on the mouse position
};
inline constexpr cursor_shape CURSOR_SHAPES[CURSOR_SHAPE_COUNT] = {
    {{"control/mouse/001/", 1}, {0, 0}}, // arrow
    {{"control/mouse/002/", 1}, {4, 2}}, // open hand
    {{"control/mouse/003/", 1}, {4, 1}}, // closed hand
};
