// heard.h: the sounds asked for. This program's own sound_play writes them down instead of playing.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "sound/sound.h"

#include <utility>
#include <vector>

inline std::vector<i32> heard_sounds;

// What was asked for since the last call.
inline std::vector<i32> take_heard() {
    return std::exchange(heard_sounds, {});
}
