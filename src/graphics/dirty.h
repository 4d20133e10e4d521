// dirty.h: the rectangles that changed on the screen since it was last shown.
//
// Under the surface lock once the render thread runs, which the screens that draw directly hold, too.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <SDL_video.h>

#include <span>

void dirty_add(i32 x, i32 y, i32 w, i32 h); // marks a rectangle as changed, cut to the window
void dirty_flush();                         // shows what was marked
std::span<const SDL_Rect> dirty_rects();    // what has been collected, valid until the next change
bool dirty_show();                          // dirty_flush; whether anything that the window shows has changed
void dirty_free();                          // frees the list; it can be used again
