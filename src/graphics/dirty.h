// dirty.h: the rectangles that changed on the screen since it was last shown.
//
// Under the surface lock once the render thread runs. dirty_add and dirty_flush stand in graphics/render.h, for
// the screens that draw directly.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <SDL_video.h>

#include <span>

std::span<const SDL_Rect> dirty_rects(); // what has been collected, valid until the next change
bool dirty_show();                       // dirty_flush; whether anything that the window shows has changed
void dirty_free();                       // frees the list; it can be used again
