// sound_bank.h: the table of the sound effects, and their files, kept in memory from their first use on.
//
// Main thread. The files stay until sound_bank_free, so decoders may read from them at any time before.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "sound/sound.h"

#include <iterator>

inline constexpr i32 SOUND_UNLIMITED = 0;

inline constexpr char SOUND_FOLDER[] = "ogg/"; // in the archive

struct sound_info {
    const char *name; // of the file in that folder
    i32 at_most;      // channels that may play it at once, or SOUND_UNLIMITED
};

inline constexpr sound_info SOUND_TABLE[] = {
    {"board_slide.ogg", 1},
    {"piece_disappear.ogg", 1},
    {"piece_return.ogg", 1},
    {"score_show.ogg", 1},
    {"puzzle_complete.ogg", SOUND_UNLIMITED},
    {"click.ogg", 1},
    {"incorrect_number.ogg", SOUND_UNLIMITED},
    {"piece_emerge.ogg", SOUND_UNLIMITED},
    {"piece_place1.ogg", 1},
    {"piece_place2.ogg", 1},
    {"piece_place3.ogg", 1},
    {"piece_place4.ogg", 1},
    {"piece_place5.ogg", 1},
    {"piece_place6.ogg", 1},
    {"score_log.ogg", 1},
};
static_assert(std::size(SOUND_TABLE) == SOUND_COUNT);

struct sound_file {
    u8 *data; // owned by the bank; null until loaded
    i32 size; // bytes
};

// The file of a sound, read from the archive on its first use; null when it cannot be had (logged). A sound
// that failed is tried again the next time.
[[nodiscard]] const sound_file *sound_bank_get(i32 number);
void sound_bank_free(); // all files; nothing may play any more
