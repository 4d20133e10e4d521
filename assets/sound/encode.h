// encode.h: Ogg Vorbis files from finished sounds.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "pcm.h"

#include <filesystem>

namespace sound {

// Writes `in` to `path` as one Ogg Vorbis stream with the given serial number (two streams of one
// collection should differ in it). Failures are exceptions (fail.h).
void write_ogg(const std::filesystem::path &path, const pcm &in, int serial);

} // namespace sound
