// video_depth.h: choosing the screen's depth and pitch, failing surface locks, and seeing what is shown.
//
// The linker sends SDL_SetVideoMode, SDL_LockSurface, SDL_UnlockSurface and SDL_UpdateRects of everything linked
// statically through here. Each passes through until a test says otherwise.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <SDL.h>

#include <vector>

struct fake_video_state {
    // What a test sets.
    bool (*refuse)(int bits, u32 flags) = nullptr; // modes that cannot be set
    int extra_pixels = 0;   // modes give a surface whose rows are so much longer than the window, and must be locked
    bool fail_lock = false; // of such a surface
    int fail_lock_in = 0;   // the nth lock from now on alone fails
    bool watching = false;  // updates are written down; only without a render thread
    // What it learns.
    int locks = 0;                              // open on such a surface
    std::vector<std::vector<SDL_Rect>> updates; // the rectangles of each call
    SDL_Surface *surface = nullptr;             // owned; of the longer rows
};
inline fake_video_state fake_video;

void fake_video_reset(); // everything passes through
