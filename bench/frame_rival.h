// frame_rival.h: a list of drawing commands drawn with SDL's own blits, as a program without picture routines of its
// own would draw it; and what a list copies.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <span>

// Makes the surfaces that the list needs, outside of what is timed.
void rival_prepare(std::span<const u8> list);
void rival_draw(std::span<const u8> list);
void rival_draw_screen(); // the background whole, before a list: nothing is known of what has changed

i64 list_bytes(std::span<const u8> list); // that playing it writes
i32 list_pictures(std::span<const u8> list);
