// check_sound.h: whether the game can play a sound. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "check.h"
#include "entries.h"

// Rate, channels and seconds of a sound; without seconds when it cannot be decoded.
struct sound_facts {
    i32 rate, channels;
    double seconds;
    std::string fault; // empty for none
};
sound_facts sound_measure(const std::string &bytes);

void check_sound(const kit_entry &entry, const std::string &bytes, std::vector<finding> *findings);
