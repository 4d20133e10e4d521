// pcm.h: stereo sound in memory, the form in which every stage of the sound program hands it on.
//
// Plain data, owned by whoever holds it. One thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

namespace sound {

inline constexpr int SAMPLE_RATE = 44100; // frames a second; the game's mixer does not resample
inline constexpr std::size_t CHANNELS = 2;

// Samples of the left and right channel, -1..1 at full scale, both of one length.
struct pcm {
    std::vector<float> channel[CHANNELS];
};

// The number of whole frames in a time in seconds.
inline std::size_t frames_of(double seconds) {
    return static_cast<std::size_t>(std::lround(seconds * SAMPLE_RATE));
}

// The amplitude factor of a level in decibels.
inline double amplitude_of(double decibels) {
    constexpr double DECIBELS_PER_DECADE = 20;
    return std::pow(10.0, decibels / DECIBELS_PER_DECADE);
}

} // namespace sound
