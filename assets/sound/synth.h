// synth.h: plays notes on the instruments of a General MIDI sound bank.
//
// Chorus and reverb are off and everything runs in the calling thread, so the same notes always give
// the same samples. A synthesiser lives only for one sound: a reset one would still let the end of the
// sound before be heard. Failures print a message to stderr and give no result.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "pcm.h"

#include <span>
#include <string>

namespace sound {

// One preset of the bank, by its MIDI numbers.
struct instrument {
    int bank = 0;
    int program = 0;
};

struct note {
    instrument played_on;
    int key = 0;         // MIDI key, 60 is middle C
    int velocity = 0;    // 1..127, also chooses softer or harder samples
    double start = 0;    // seconds from the start of the sound
    double length = 0;   // seconds until the key is released; the instrument's own ending follows
    double pan = 0;      // -1 left .. 1 right
    double bend = 0;     // semitones by which the pitch has moved when the key is released
    bool damped = false; // dies away while the key is held, whatever the instrument does
};

// The notes played together from silence, at least `frames` long, on the bank in `bank_file`. Fails (fail.h) when the
// file is missing or is not a sound bank, when the bank lacks an instrument, or when there are more notes than
// channels.
pcm play(const std::string &bank_file, std::span<const note> notes, std::size_t frames);

} // namespace sound
