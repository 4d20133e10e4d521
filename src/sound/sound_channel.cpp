// sound_channel.cpp: decodes a sound file from memory, ahead of its playing, and mixes what was decoded.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sound/sound_channel.h"

#include "core/base/log.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

static_assert(std::endian::native == std::endian::little, "samples are mixed as the decoder stores them");

namespace {

// --- The file in memory, as the decoder sees it --------------------------------------------------

std::size_t memory_read(void *to, std::size_t size, std::size_t count, void *source) {
    auto *channel = static_cast<sound_channel *>(source);
    const auto left = static_cast<std::size_t>(channel->file->size - channel->position);
    const std::size_t bytes = std::min(size * count, left);
    std::memcpy(to, channel->file->data + channel->position, bytes);
    channel->position += static_cast<i32>(bytes);
    return bytes;
}

int memory_seek(void *source, ogg_int64_t offset, int whence) {
    auto *channel = static_cast<sound_channel *>(source);
    ogg_int64_t base = 0;
    if (whence == SEEK_CUR)
        base = channel->position;
    else if (whence == SEEK_END)
        base = channel->file->size;
    else if (whence != SEEK_SET)
        return EINVAL;
    if (offset < -base || offset > channel->file->size - base)
        return -1;
    channel->position = static_cast<i32>(base + offset);
    return channel->position;
}

int memory_close(void *) {
    return 1; // the bank keeps the file for the next time
}

long memory_tell(void *source) {
    return static_cast<sound_channel *>(source)->position;
}

constexpr ov_callbacks MEMORY_CALLBACKS = {memory_read, memory_seek, memory_close, memory_tell};

// --- Chunks --------------------------------------------------------------------------------------

pcm_chunk *chunk_create(i32 samples) {
    auto *chunk = static_cast<pcm_chunk *>(std::calloc(1, sizeof(pcm_chunk)));
    if (chunk != nullptr)
        chunk->samples = static_cast<i16 *>(std::malloc(static_cast<std::size_t>(samples) * sizeof(i16)));
    if (chunk == nullptr || chunk->samples == nullptr) {
        log_out_of_memory();
        std::free(chunk);
        return nullptr;
    }
    return chunk;
}

void chunk_free(pcm_chunk *chunk) {
    std::free(chunk->samples);
    std::free(chunk);
}

} // namespace

bool sound_channel_start(sound_channel *channel, i32 number, const sound_file *file) {
    channel->sound = number;
    channel->flags = 0;
    channel->file = file;
    channel->position = 0;
    channel->chunks.free_item = chunk_free;
    if (ov_open_callbacks(channel, &channel->vorbis, nullptr, 0, MEMORY_CALLBACKS) < 0) {
        log_error("Warning: Could not decode sound file %s\n", SOUND_TABLE[number].name);
        return false;
    }
    channel->flags = CHANNEL_ACTIVE;
    return true;
}

void sound_channel_stop(sound_channel *channel) {
    if (!sound_channel_active(channel))
        return;
    ov_clear(&channel->vorbis);
    channel->flags = 0;
    ptr_array_clear(&channel->chunks);
}

// --- Decoding ahead ------------------------------------------------------------------------------

namespace {

constexpr i32 STAGING_SAMPLES = 4096;
constexpr int LITTLE_ENDIAN_BYTES = 0, WORD_BYTES = 2, SIGNED_WORDS = 1; // ov_read's words for our sample format

// Spreads mono to both sides; of more than two channels the first two are kept.
void to_stereo(const i16 *from, i32 channels, i16 *to, i32 frames) {
    const i32 right = channels > 1 ? 1 : 0;
    for (i32 i = 0; i < frames; ++i, from += channels) {
        *to++ = from[0];
        *to++ = from[right];
    }
}

// Decodes at most `room` samples. The samples written; 0 at the end and where the stream is damaged.
i32 decode_some(sound_channel *channel, i16 *to, i32 room) {
    alignas(i16) char staging[STAGING_SAMPLES * WORD_BYTES];
    const i32 room_frames = room / SOUND_CHANNELS;
    const i32 expected = ov_info(&channel->vorbis, -1)->channels;
    const i32 wanted = std::min(room_frames * expected, STAGING_SAMPLES) * WORD_BYTES;
    int link = 0;
    const long bytes = ov_read(&channel->vorbis, staging, wanted, LITTLE_ENDIAN_BYTES, WORD_BYTES, SIGNED_WORDS, &link);
    if (bytes < 0)
        log_error("Warning: Sound file %s is damaged\n", SOUND_TABLE[channel->sound].name);
    if (bytes <= 0)
        return 0;
    // A chained stream may have gone on with another number of channels.
    const i32 channels = ov_info(&channel->vorbis, link)->channels;
    const i32 frames = std::min(static_cast<i32>(bytes) / (channels * WORD_BYTES), room_frames);
    to_stereo(reinterpret_cast<const i16 *>(staging), channels, to, frames);
    return frames * SOUND_CHANNELS;
}

void fill_chunk(sound_channel *channel, pcm_chunk *chunk, i32 samples) {
    while (chunk->count < samples) {
        const i32 added = decode_some(channel, chunk->samples + chunk->count, samples - chunk->count);
        chunk->count += added;
        if (added < 1) {
            channel->flags |= CHANNEL_ENDED;
            return;
        }
    }
}

} // namespace

i32 sound_channel_decode(sound_channel *channel, i32 chunks, i32 chunk_samples) {
    i32 added = 0;
    while (added < chunks && (channel->flags & CHANNEL_ENDED) == 0) {
        pcm_chunk *chunk = chunk_create(chunk_samples);
        if (chunk == nullptr)
            return -1;
        fill_chunk(channel, chunk, chunk_samples);
        if (chunk->count == 0) {
            chunk_free(chunk);
        } else if (ptr_array_append(&channel->chunks, chunk) >= 0) {
            ++added;
        } else {
            chunk_free(chunk);
            return -1;
        }
    }
    return added;
}

// --- Mixing --------------------------------------------------------------------------------------

namespace {

// A plain loop over two arrays that do not overlap, which compilers turn into vector instructions.
void add_saturated(i16 *__restrict mix, const i16 *__restrict samples, i32 count, i32 volume) {
    constexpr i32 low = std::numeric_limits<i16>::min(), high = std::numeric_limits<i16>::max();
    for (i32 i = 0; i < count; ++i) {
        const i32 sum = mix[i] + ((samples[i] * volume) >> VOLUME_SHIFT);
        mix[i] = static_cast<i16>(std::clamp(sum, low, high));
    }
}

void drop_oldest(ptr_array<pcm_chunk> *chunks) {
    chunk_free(chunks->items[0]);
    chunks->items[0] = nullptr;
    ptr_array_compact_ordered(chunks);
}

} // namespace

i32 sound_channel_mix(sound_channel *channel, std::span<i16> mix, i32 volume) {
    const auto room = static_cast<i32>(mix.size());
    i32 mixed = 0;
    while (mixed < room && channel->chunks.count > 0) {
        pcm_chunk *chunk = channel->chunks.items[0];
        const i32 count = std::min(chunk->count - chunk->taken, room - mixed);
        add_saturated(mix.data() + mixed, chunk->samples + chunk->taken, count, volume);
        mixed += count;
        chunk->taken += count;
        if (chunk->taken == chunk->count)
            drop_oldest(&channel->chunks);
    }
    return mixed;
}
