// encode.h: Ogg Vorbis files from finished sounds.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "pcm.h"

#include <string>

namespace sound {

// Writes `in` to `path` as one Ogg Vorbis stream with the given serial number (two streams of one
// collection should differ in it). False, with a message on stderr, when the file cannot be written.
[[nodiscard]] bool write_ogg(const std::string &path, const pcm &in, int serial);

} // namespace sound
