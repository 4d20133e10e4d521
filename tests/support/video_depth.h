// video_depth.h: choosing the screen's depth and pitch, failing surface locks, and seeing what is shown.
//
// The linker sends SDL_SetVideoMode, SDL_LockSurface, SDL_UnlockSurface and SDL_UpdateRects of everything linked
// statically through here. Each passes through until a test switches it on.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/types.h"

#include <SDL.h>

#include <vector>

void fake_video_reset(); // everything passes through; frees the surface of fake_video_pitch

void fake_video_refuse(bool (*refuse)(int bits, u32 flags)); // modes that cannot be set; null for none

// Modes give a surface whose rows are this many pixels longer than the window, and that must be locked.
void fake_video_pitch(int extra_pixels);
void fake_video_fail_lock(bool on); // of such a surface
int fake_video_locks();             // locks now open on it

struct video_mode {
    int bits;
    u32 flags;
    bool operator==(const video_mode &) const = default;
};
std::vector<video_mode> fake_video_modes(); // asked for since the reset

void fake_video_watch_updates();                         // from now on SDL_UpdateRects is written down
std::vector<std::vector<SDL_Rect>> fake_video_updates(); // the rectangles of each call
