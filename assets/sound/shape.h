// shape.h: what turns played notes into a finished sound: soft noise, cutting, fading, levelling.
//
// Pure functions over pcm; no failures, no state. The noise comes from a generator that is seeded by
// the caller, so it is the same in every run. One thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "pcm.h"

#include <cstdint>

namespace sound {

// A breath of band-passed noise: air, paper or the dull part of a knock.
struct noise {
    double start = 0;     // seconds
    double length = 0;    // seconds
    double rise = 0;      // seconds until it is loudest
    double fall = 1;      // how steeply it falls after that: 1 a bell, 4 a puff
    double from_hz = 0;   // middle of the band at the start ...
    double to_hz = 0;     // ... and at the end
    double sharpness = 1; // the band filter's Q
    double grain_hz = 0;  // how often the surface catches; 0 is smooth
    double level_db = 0;  // against full scale
};

// Adds `layer` to `out`, as far as it lies inside it.
void add_noise(pcm &out, const noise &layer, std::uint64_t seed);

// Cuts off the silence before the first audible frame and everything after `seconds`, then fades in
// over a moment and out over the last `fade` seconds.
void cut_and_fade(pcm &out, double seconds, double fade);

// Scales `out` until its loudest eighth of a second has the loudness `target` (LUFS), or its highest
// peak the ceiling, whichever is the quieter. Returns the loudness reached.
double set_loudness(pcm &out, double target);

} // namespace sound
