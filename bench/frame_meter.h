// frame_meter.h: what a frame of the running program costs, in processor time, allocations and bytes.
//
// There is no render thread: the meter plays each frame's list where the frame ends, so that every frame is recorded,
// played and measured alone. Main thread of the program.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "program/player.h"

#include <vector>

struct frame_cost {
    double recording, playing;      // seconds: all that the main loop does, and the render thread's pass
    double same_blits, whole_blits; // seconds that SDL's blits take for the same list, and for all pictures anew
    i32 allocations;                // of recording and playing
    i32 pictures;                   // and characters that are drawn
    i64 bytes;                      // that the list writes
};

extern const harness_calls METERED; // for play_game

// Empties the list of frames and measures from now on, if wanted beside SDL's blits.
void frame_meter_begin(bool with_sdl);
std::vector<frame_cost> frame_meter_end();
frame_cost frame_meter_last();
