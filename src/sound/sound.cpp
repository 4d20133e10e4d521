// sound.cpp: the audio device, the requests of a frame, and the channels that play them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sound/sound.h"

#include "core/base/log.h"
#include "sound/sound_bank.h"
#include "sound/sound_channel.h"

#include <SDL.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iterator>

namespace {

constexpr u16 BUFFER_FRAMES = 4096; // sample frames that SDL asks for at a time
constexpr i32 QUEUE_GROWTH = 16;    // requests

// The requests of this frame. Main thread only.
struct request_queue {
    i32 *numbers; // owned
    i32 count;
    i32 capacity;
};

// Guarded by SDL_LockAudio once the device is open.
struct mixer_state {
    sound_channel channels[MIXER_CHANNELS];
    i16 *mix;        // owned; the sum of one buffer
    i32 mix_samples; // its length, which is that of a chunk
};

bool enabled; // the device is open
request_queue requests;
mixer_state mixer;
std::atomic<i32> effect_volume = VOLUME_MAX;
i32 music_volume = VOLUME_MAX; // kept for music channels, of which there are none yet

struct audio_lock {
    audio_lock() { SDL_LockAudio(); }
    ~audio_lock() { SDL_UnlockAudio(); }
    audio_lock(const audio_lock &) = delete;
    audio_lock &operator=(const audio_lock &) = delete;
};

} // namespace

// --- Start-up ------------------------------------------------------------------------------------

i32 sound_init() {
    SDL_AudioSpec format = {};
    format.freq = SOUND_RATE;
    format.format = AUDIO_S16LSB;
    format.channels = SOUND_CHANNELS;
    format.samples = BUFFER_FRAMES;
    format.callback = sound_mix_callback;
    // Without a second record SDL converts to what the device can do.
    if (SDL_OpenAudio(&format, nullptr) < 0)
        return -1;
    constexpr i32 usual_samples = BUFFER_FRAMES * SOUND_CHANNELS;
    const i32 reported = static_cast<i32>(format.size / sizeof(i16));
    mixer.mix_samples = reported > 0 ? reported / SOUND_CHANNELS * SOUND_CHANNELS : usual_samples;
    mixer.mix = static_cast<i16 *>(std::calloc(static_cast<std::size_t>(mixer.mix_samples), sizeof(i16)));
    if (mixer.mix == nullptr) {
        log_out_of_memory();
        SDL_CloseAudio();
        return -1;
    }
    enabled = true;
    log_error("Sound enabled.\n");
    return 1;
}

void sound_set_effect_volume(i32 volume) {
    effect_volume = std::clamp(volume, 0, VOLUME_MAX);
}

void sound_set_music_volume(i32 volume) {
    music_volume = std::clamp(volume, 0, VOLUME_MAX);
}

void sound_resume() {
    if (enabled)
        SDL_PauseAudio(0);
}

// --- Asking for sounds ---------------------------------------------------------------------------

void sound_play(i32 number) {
    if (!enabled || number < 0 || number >= SOUND_COUNT)
        return;
    if (requests.count == requests.capacity) {
        const auto grown = static_cast<std::size_t>(requests.capacity) + QUEUE_GROWTH;
        auto *numbers = static_cast<i32 *>(std::realloc(requests.numbers, grown * sizeof(i32)));
        if (numbers == nullptr) {
            log_out_of_memory();
            return;
        }
        requests.numbers = numbers;
        requests.capacity += QUEUE_GROWTH;
    }
    requests.numbers[requests.count++] = number;
}

// --- End of the frame ----------------------------------------------------------------------------

namespace {

bool plays(const sound_channel &channel, i32 number) {
    return sound_channel_active(&channel) && channel.sound == number;
}

// A limited sound that is asked for again starts over.
void make_way(i32 number) {
    const i32 at_most = SOUND_TABLE[number].at_most;
    const auto playing = std::ranges::count_if(mixer.channels, [=](const auto &c) { return plays(c, number); });
    if (at_most == SOUND_UNLIMITED || playing < at_most)
        return;
    for (sound_channel &channel : mixer.channels)
        if (plays(channel, number))
            sound_channel_stop(&channel);
}

// Null when all are busy.
sound_channel *free_channel() {
    auto *channel = std::ranges::find_if_not(mixer.channels, [](const auto &c) { return sound_channel_active(&c); });
    return channel != std::end(mixer.channels) ? channel : nullptr;
}

// A sound that cannot be had leaves the channel free.
void start(sound_channel *channel, i32 number) {
    const sound_file *file = sound_bank_get(number);
    static_cast<void>(file != nullptr && sound_channel_start(channel, number, file));
}

void keep_supplied(sound_channel *channel) {
    const i32 missing = CHANNEL_AHEAD - channel->chunks.count;
    const bool failed = sound_channel_decode(channel, missing, mixer.mix_samples) < 0;
    const bool played = (channel->flags & CHANNEL_ENDED) != 0 && channel->chunks.count == 0;
    if (failed || played)
        sound_channel_stop(channel);
}

} // namespace

void sound_update() {
    if (!enabled)
        return;
    const audio_lock guards_channels;
    for (i32 i = 0; i < requests.count; ++i) {
        make_way(requests.numbers[i]);
        sound_channel *channel = free_channel();
        if (channel == nullptr)
            break; // what was asked for later is dropped, too
        start(channel, requests.numbers[i]);
    }
    requests.count = 0;
    for (sound_channel &channel : mixer.channels)
        if (sound_channel_active(&channel))
            keep_supplied(&channel);
}

// --- SDL's audio thread --------------------------------------------------------------------------

void sound_mix_callback(void *, u8 *stream, int length) {
    const i32 volume = effect_volume;
    while (length > 0) {
        const i32 samples = std::min(length / static_cast<i32>(sizeof(i16)), mixer.mix_samples);
        const auto bytes = static_cast<i32>(static_cast<std::size_t>(samples) * sizeof(i16));
        const std::span<i16> mix(mixer.mix, static_cast<std::size_t>(samples));
        std::ranges::fill(mix, i16{0});
        i32 longest = 0;
        for (sound_channel &channel : mixer.channels)
            if (sound_channel_active(&channel))
                longest = std::max(longest, sound_channel_mix(&channel, mix, volume));
        if (longest == 0)
            return;
        SDL_MixAudio(stream, reinterpret_cast<const u8 *>(mixer.mix), static_cast<u32>(longest) * sizeof(i16),
                     SDL_MIX_MAXVOLUME);
        stream += bytes;
        length -= bytes;
    }
}

// --- Exit ----------------------------------------------------------------------------------------

void sound_shutdown() {
    if (enabled) {
        SDL_PauseAudio(1);
        SDL_CloseAudio(); // ends the audio thread
    }
    enabled = false;
    for (sound_channel &channel : mixer.channels)
        sound_channel_stop(&channel);
    std::free(mixer.mix);
    std::free(requests.numbers);
    mixer = {};
    requests = {};
    sound_bank_free();
}
