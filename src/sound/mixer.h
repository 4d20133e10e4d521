// mixer.h: the function that SDL's audio thread calls for more sound.
//
// It adds the next samples of every playing channel to the stream. It holds no lock but SDL's own, which the
// main thread takes while it changes channels, and it neither allocates, decodes nor reads files.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline constexpr i32 MIXER_CHANNELS = 16; // sounds that can play at once

// length in bytes; any length will do, though SDL asks for the size of its buffer.
void sound_mix_callback(void *unused, u8 *stream, int length);
