// mix_bench.cpp: mixing one buffer of sound beside SDL_mixer's callback and SDL_MixAudio for each channel.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "benches.h"

#include "pairs.h"
#include "sound/sound.h"
#include "sound/sound_channel.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

static SDL_AudioSpec caught; // what SDL_mixer asked SDL for

// Stands in for SDL's own: there is no device, the callback is called from here.
extern "C" int SDL_OpenAudio(SDL_AudioSpec *wanted, SDL_AudioSpec *obtained) {
    wanted->size = wanted->samples * wanted->channels * static_cast<Uint32>(sizeof(i16));
    caught = *wanted;
    if (obtained != nullptr)
        *obtained = *wanted;
    return 0;
}

namespace {

constexpr double PERCENT = 100, ONE_PERCENT = 1;
constexpr i32 BUFFER_FRAMES = 4096, SAMPLES = BUFFER_FRAMES * SOUND_CHANNELS;
constexpr i32 BUFFERS = 64;               // of sound that a channel holds
constexpr int EFFECT_VOLUME = VOLUME_MAX; // as the program plays
constexpr u32 BYTES = SAMPLES * sizeof(i16);
constexpr double PERIOD = static_cast<double>(BUFFER_FRAMES) / SOUND_RATE; // seconds

// Each channel plays the same long chunk, which never ends: what was taken is given back.
struct mixing {
    std::vector<i16> sound = std::vector<i16>(static_cast<std::size_t>(SAMPLES) * BUFFERS);
    std::array<sound_channel, MIXER_CHANNELS> channels{};
    std::array<pcm_chunk, MIXER_CHANNELS> chunks{};
    std::vector<i16> mix = std::vector<i16>(SAMPLES), stream = mix;
    i32 buffer = 0;

    mixing() {
        for (i16 &sample : sound)
            sample = static_cast<i16>(std::rand());
        for (std::size_t i = 0; i < channels.size(); ++i) {
            chunks[i] = {sound.data(), static_cast<i32>(sound.size()), 0};
            ptr_array_append(&channels[i].chunks, &chunks[i]);
        }
    }
    i32 next() {
        buffer = (buffer + 1) % (BUFFERS - 1);
        return buffer * SAMPLES;
    }
};

// What the audio callback does with this many channels playing.
void mix_ours(mixing *with, i32 count) {
    const i32 at = with->next();
    std::ranges::fill(with->mix, i16{0});
    for (i32 i = 0; i < count; ++i) {
        with->chunks[static_cast<std::size_t>(i)].taken = at;
        sound_channel_mix(&with->channels[static_cast<std::size_t>(i)], with->mix, EFFECT_VOLUME);
    }
    std::ranges::fill(with->stream, i16{0}); // SDL clears the stream before it asks
    SDL_MixAudio(reinterpret_cast<u8 *>(with->stream.data()), reinterpret_cast<u8 *>(with->mix.data()), BYTES,
                 SDL_MIX_MAXVOLUME);
}

void mix_audio(mixing *with, i32 count) {
    const i32 at = with->next();
    std::ranges::fill(with->stream, i16{0});
    for (i32 i = 0; i < count; ++i)
        SDL_MixAudio(reinterpret_cast<u8 *>(with->stream.data()), reinterpret_cast<u8 *>(with->sound.data() + at),
                     BYTES, EFFECT_VOLUME);
}

// SDL_mixer with this many channels playing the same sound.
void mixer_start(mixing *with, i32 count) {
    static bool open = false;
    if (!open && Mix_OpenAudio(SOUND_RATE, AUDIO_S16LSB, SOUND_CHANNELS, BUFFER_FRAMES) < 0) {
        std::fprintf(stderr, "benchmark: SDL_mixer: %s\n", Mix_GetError());
        std::exit(EXIT_FAILURE);
    }
    open = true;
    Mix_AllocateChannels(MIXER_CHANNELS);
    Mix_HaltChannel(-1);
    static Mix_Chunk chunk;
    chunk = {0, reinterpret_cast<u8 *>(with->sound.data()), static_cast<u32>(with->sound.size() * sizeof(i16)),
             EFFECT_VOLUME};
    for (i32 i = 0; i < count; ++i)
        Mix_PlayChannel(i, &chunk, -1);
}

void mix_mixer(mixing *with) {
    std::ranges::fill(with->stream, i16{0});
    caught.callback(caught.userdata, reinterpret_cast<u8 *>(with->stream.data()), BYTES);
}

} // namespace

void add_mix_benches() {
    const auto with = std::make_shared<mixing>();
    for (const i32 count : {1, 4, MIXER_CHANNELS}) {
        const std::string figure = "mixing " + std::to_string(count) + (count == 1 ? " channel" : " channels");
        const way set_up = [=] { mixer_start(with.get(), count); };
        const way ours = [=] { mix_ours(with.get(), count); };
        compare(figure, set_up, ours,
                {{"SDL_mixer", {[=] { mix_mixer(with.get()); }}, NO_AIM.limit},
                 {"SDL_MixAudio", {[=] { mix_audio(with.get(), count); }}, NO_AIM.limit}},
                SHORT_MEASUREMENTS);
        measure(
            figure + ", of a callback's period", "%", set_up, ours, [](double s) { return s / PERIOD * PERCENT; },
            {false, ONE_PERCENT}, SHORT_MEASUREMENTS);
    }
}
