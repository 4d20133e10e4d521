// ogg_maker.h: small Ogg Vorbis files for the mixer to play, and what they decode to.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "support/temp_folder.h"

struct wave {
    int channels = 2;
    int rate = 44100; // frames per second
    int frames = 44100;
    float level = 0.5F;   // of full scale
    float hertz = 440.0F; // of the first channel; each further one is a fifth higher
};

file_bytes make_ogg(const wave &w);

// The stream as interleaved 16-bit samples, decoded from a file without the program's own code.
std::vector<i16> decode_ogg(const std::filesystem::path &path);
