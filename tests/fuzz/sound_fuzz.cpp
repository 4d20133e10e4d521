// Sounds: any bytes in a sound entry are played to their end or dropped, through the archive, the decoder and the
// mixer.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "resources/archive.h"
#include "sound/sound.h"
#include "support/archive_builder.h"

#include <SDL.h>
#include <ogg/ogg.h>
#include <sanitizer/lsan_interface.h>
#include <vorbis/vorbisfile.h>

#include <algorithm>

extern "C" {
int __wrap_SDL_OpenAudio(SDL_AudioSpec *wanted, SDL_AudioSpec *obtained);
int __real_ov_open_callbacks(void *source, OggVorbis_File *file, const char *begun, long length, ov_callbacks calls);
int __wrap_ov_open_callbacks(void *source, OggVorbis_File *file, const char *begun, long length, ov_callbacks calls);
}

static constexpr u32 BUFFER_BYTES = 16384;
static constexpr int BUFFERS = 64; // three seconds; longer sounds are cut off

// The library does not free all it has made when a chained stream turns out to be damaged.
int __wrap_ov_open_callbacks(void *source, OggVorbis_File *file, const char *begun, long length, ov_callbacks calls) {
    const __lsan::ScopedDisabler ignored;
    return __real_ov_open_callbacks(source, file, begun, length, calls);
}

// Nobody but the fuzzer asks for samples.
int __wrap_SDL_OpenAudio(SDL_AudioSpec *wanted, SDL_AudioSpec *) {
    wanted->size = BUFFER_BYTES;
    return 0;
}

// Otherwise hardly any damage would get past the first look.
void fuzz_repair_sound(std::span<u8> bytes) {
    constexpr std::size_t fixed_part = 27, count_at = 26; // of a page's header
    static constexpr u8 MARK[] = {'O', 'g', 'g', 'S'};
    for (auto at = bytes.begin();
         (at = std::search(at, bytes.end(), std::begin(MARK), std::end(MARK))) != bytes.end();) {
        const std::span<u8> page(at, bytes.end());
        ++at;
        if (page.size() < fixed_part || page.size() < fixed_part + page[count_at])
            return;
        const std::span<u8> lengths = page.subspan(fixed_part, page[count_at]);
        const auto header = static_cast<long>(fixed_part + lengths.size());
        long body = 0;
        for (const u8 length : lengths)
            body += length;
        if (header + body <= static_cast<long>(page.size())) {
            ogg_page whole = {page.data(), header, page.data() + header, body};
            ogg_page_checksum_set(&whole);
        }
    }
}

void fuzz_sound(fuzz_input input) {
    fuzz_write("data.dar", archive_builder().add("ogg/click.ogg", file_bytes(input.begin(), input.end())).bytes());
    must(data_archive_open() == 1 && sound_init() == 1);
    sound_set_effect_volume(input.empty() ? 0 : input.back());
    std::vector<u8> stream(BUFFER_BYTES);
    sound_play(SOUND_CLICK);
    for (int i = 0; i < BUFFERS; ++i) {
        if (i == 1)
            sound_play(SOUND_CLICK); // starts over
        sound_update();
        sound_mix_callback(nullptr, stream.data(), static_cast<int>(stream.size() - static_cast<std::size_t>(i % 7)));
    }
    sound_shutdown();
    data_archive_close();
}
