// sound_channel.h: one playing sound: its decoder and the audio decoded ahead.
//
// The main thread starts, decodes and stops; the audio thread only takes samples with sound_channel_mix, which
// neither decodes nor allocates. Everything here is called under SDL_LockAudio, which guards the channels.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/containers.h"
#include "core/base/types.h"
#include "sound/sound_bank.h"

#include <vorbis/vorbisfile.h>

#include <span>

inline constexpr i32 SOUND_RATE = 44100; // sample frames per second
inline constexpr i32 SOUND_CHANNELS = 2; // samples in a frame, left and right
inline constexpr i32 VOLUME_MAX = 128;   // passes samples unchanged
inline constexpr i32 VOLUME_SHIFT = 7;   // log2 of it

inline constexpr u32 CHANNEL_ACTIVE = 0x1;  // plays a sound; its decoder is open
inline constexpr u32 CHANNEL_ENDED = 0x100; // the decoder has reached the end

inline constexpr i32 CHANNEL_AHEAD = 32; // chunks decoded ahead, about three seconds

// Decoded audio: interleaved signed 16-bit stereo.
struct pcm_chunk {
    i16 *samples; // owned
    i32 count;    // samples in it
    i32 taken;    // samples that have been mixed
};

struct sound_channel {
    i32 sound; // a sound_id
    u32 flags;
    const sound_file *file;      // borrowed from the bank
    i32 position;                // the decoder's read position in the file, bytes
    OggVorbis_File vorbis;       // open while active
    ptr_array<pcm_chunk> chunks; // oldest first; owned
};

// Whether it plays; a channel that does not is free.
inline bool sound_channel_active(const sound_channel *channel) {
    return (channel->flags & CHANNEL_ACTIVE) != 0;
}

// Opens the decoder on a free channel; false when the file is no Vorbis stream (logged, the channel stays free).
[[nodiscard]] bool sound_channel_start(sound_channel *channel, i32 number, const sound_file *file);

// Decodes up to so many chunks of so many samples, fewer where the stream ends; the number, or -1 when memory
// is short (logged). A damaged stream ends where the damage is (logged).
[[nodiscard]] i32 sound_channel_decode(sound_channel *channel, i32 chunks, i32 chunk_samples);

// Adds the channel's next samples, as many as there are, to the mix. The number of samples added.
i32 sound_channel_mix(sound_channel *channel, std::span<i16> mix, i32 volume);

void sound_channel_stop(sound_channel *channel); // nothing on a free channel
