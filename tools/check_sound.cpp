// check_sound.cpp: decoding a sound whole.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "check_sound.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vorbis/vorbisfile.h>

namespace {

struct memory_file {
    const std::string &bytes;
    std::size_t position;
};

std::size_t memory_read(void *to, std::size_t size, std::size_t count, void *source) {
    auto *file = static_cast<memory_file *>(source);
    const std::size_t n = std::min(size * count, file->bytes.size() - file->position);
    std::memcpy(to, file->bytes.data() + file->position, n);
    file->position += n;
    return n;
}

// Without seeking, a stream is read once from head to tail, as it is played.
constexpr ov_callbacks CALLBACKS = {memory_read, nullptr, nullptr, nullptr};

constexpr int LITTLE_ENDIAN_BYTES = 0, WORD_BYTES = 2, SIGNED_WORDS = 1;

struct decoder {
    OggVorbis_File vorbis = {};
    bool open = false;

    decoder() = default;
    decoder(const decoder &) = delete;
    decoder &operator=(const decoder &) = delete;
    ~decoder() {
        if (open)
            ov_clear(&vorbis);
    }
};

// Whether the last page is there to its end and says that it is the last.
bool ends_whole(const std::string &bytes) {
    constexpr std::size_t flags_at = 5, segments_at = 26, header_bytes = 27;
    constexpr u8 last_page = 4;
    const std::size_t page = bytes.rfind("OggS");
    if (page == std::string::npos || bytes.size() - page < header_bytes)
        return false;
    const auto byte = [&](std::size_t at) { return static_cast<u8>(bytes[page + at]); };
    std::size_t size = header_bytes + byte(segments_at);
    for (std::size_t i = header_bytes; i < header_bytes + byte(segments_at) && page + i < bytes.size(); ++i)
        size += byte(i);
    return (byte(flags_at) & last_page) != 0 && page + size <= bytes.size();
}

std::string seconds_text(double seconds) {
    std::array<char, 32> text = {};
    std::snprintf(text.data(), text.size(), "%.1f", seconds);
    return text.data();
}

} // namespace

sound_facts sound_measure(const std::string &bytes) {
    memory_file file = {bytes, 0};
    decoder sound;
    sound.open = ov_open_callbacks(&file, &sound.vorbis, nullptr, 0, CALLBACKS) == 0;
    if (!sound.open)
        return {0, 0, 0, "not an Ogg Vorbis sound"};
    sound_facts facts = {0, 0, 0, {}};
    std::array<char, 4096> samples;
    int link = 0;
    for (;;) {
        const long n = ov_read(&sound.vorbis, samples.data(), static_cast<int>(samples.size()), LITTLE_ENDIAN_BYTES,
                               WORD_BYTES, SIGNED_WORDS, &link);
        const vorbis_info *info = ov_info(&sound.vorbis, -1);
        if (facts.rate != 0 && n > 0 && (info->rate != facts.rate || info->channels != facts.channels))
            facts.fault = "several sounds in one file";
        if (n < 0)
            facts.fault = "damaged";
        if (n <= 0)
            break;
        facts.rate = static_cast<i32>(info->rate);
        facts.channels = info->channels;
        facts.seconds += static_cast<double>(n) / (WORD_BYTES * info->channels) / static_cast<double>(info->rate);
    }
    if (facts.fault.empty() && !ends_whole(bytes))
        facts.fault = "cut short";
    if (facts.fault.empty() && facts.seconds <= 0)
        facts.fault = "empty";
    return facts;
}

void check_sound(const kit_entry &entry, const std::string &bytes, std::vector<finding> *findings) {
    const sound_facts facts = sound_measure(bytes);
    if (!facts.fault.empty()) {
        findings->push_back({entry.name, "a sound that is " + facts.fault, "one whole Ogg Vorbis sound"});
        return;
    }
    if (facts.rate != KIT_SOUND_RATE)
        findings->push_back({entry.name, std::to_string(facts.rate) + " samples a second",
                             std::to_string(KIT_SOUND_RATE) + "; any other plays too fast or too slow"});
    if (facts.channels > KIT_SOUND_MAX_CHANNELS)
        findings->push_back({entry.name, std::to_string(facts.channels) + " channels", "mono or stereo"});
    if (facts.seconds > KIT_SOUND_MAX_SECONDS)
        findings->push_back(
            {entry.name, seconds_text(facts.seconds) + " seconds", "at most " + seconds_text(KIT_SOUND_MAX_SECONDS)});
}
