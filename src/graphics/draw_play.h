// draw_play.h: playing a list of drawing commands onto the frame buffers. Under the surface lock, in a screen_access.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"

#include <span>

// Plays the commands in order. An unknown or cut command is logged and ends the list.
void draw_list_play(std::span<const u8> list);

// Whether any part of a picture at (x, y) can be on the screen; commands for pictures that cannot do nothing.
constexpr bool draw_is_visible(const image &picture, i32 x, i32 y) {
    return x + picture.width >= 0 && y + picture.height >= 0 && x < SCREEN_WIDTH && y < SCREEN_HEIGHT;
}
