// sound.h: the fifteen sound effects.
//
// Main thread; mixing runs on SDL's audio thread. Without an audio device every call does nothing. A sound that
// cannot be had is logged and not heard; the module owns everything.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

enum sound_id : i32 {
    SOUND_BOARD_SLIDE,
    SOUND_PIECE_DISAPPEAR,
    SOUND_PIECE_RETURN,
    SOUND_SCORE_SHOW,
    SOUND_PUZZLE_COMPLETE,
    SOUND_CLICK,
    SOUND_INCORRECT_NUMBER,
    SOUND_PIECE_EMERGE,
    SOUND_PIECE_PLACE_1,
    SOUND_PIECE_PLACE_6 = SOUND_PIECE_PLACE_1 + 5,
    SOUND_SCORE_LOG,
    SOUND_COUNT
};

inline constexpr i32 MIXER_CHANNELS = 16; // sounds that can play at once

[[nodiscard]] i32 sound_init();           // 1, or -1 when the device cannot be opened; it stays silent till resumed
void sound_set_effect_volume(i32 volume); // 0..128; values beyond are brought in
void sound_set_music_volume(i32 volume);  // likewise
void sound_resume();                      // lets the device play
void sound_play(i32 number);              // asks for a sound_id at the end of this frame; other numbers are ignored
void sound_update();                      // once a frame: starts what was asked for, decodes ahead
void sound_shutdown();                    // closes the device and forgets all files; safe when sound_init never ran

// SDL's audio thread calls it for so many bytes more. It adds the next samples of every playing channel to the stream
// under SDL's own lock, which the main thread takes while it changes channels, and neither allocates, decodes nor reads
// files.
void sound_mix_callback(void *unused, u8 *stream, int length);
