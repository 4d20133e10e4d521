// ears.cpp: finding sounds in the recording.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "ears.h"
#include "library.h"
#include "robot.h"

#include <vorbis/vorbisfile.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <vector>

using samples = std::vector<std::int16_t>;

static constexpr std::size_t CHUNK = 8192;  // samples, both channels, that are played in one go: sounds begin there
static constexpr std::size_t PATIENCE = 16; // chunks after its cause in which a sound must begin
static constexpr std::size_t BEFORE = 2;    // chunks by which the robot may be late to note a cause
static constexpr double PRESENT = 0.6;      // share of a sound's strength that must be found to call it heard
static constexpr double MOST = 0.9;         // of the placements: one may be cut off by the next in the same chunk
static constexpr int LOUDEST = 32767, PLACEMENTS = 6;

struct cause {
    std::size_t file;  // index of the recording
    std::size_t chunk; // where the recording ended at the time
    std::string sound; // empty: a placement
};

static std::vector<std::string> files;
static std::vector<cause> causes;

void ears_open(const std::string &recording) {
    files.push_back(recording);
}

void ears_note(const std::string &sound) {
    if (files.empty())
        return;
    std::error_code none_yet;
    const auto size = std::filesystem::file_size(files.back(), none_yet);
    causes.push_back({files.size() - 1, none_yet ? 0 : size / sizeof(std::int16_t) / CHUNK, sound});
}

void ears_note_placement() {
    ears_note("");
}

// --- Decoding --------------------------------------------------------------------------------------------------

struct memory_file {
    std::string bytes;
    std::size_t position = 0;
};

static std::size_t read_memory(void *to, std::size_t size, std::size_t count, void *source) {
    auto *file = static_cast<memory_file *>(source);
    const std::size_t bytes = std::min(size * count, file->bytes.size() - file->position);
    std::memcpy(to, file->bytes.data() + file->position, bytes);
    file->position += bytes;
    return bytes;
}

// The sound's first chunk.
static const samples &beginning(const std::string &sound) {
    static std::map<std::string, samples> known;
    samples &decoded = known[sound];
    if (!decoded.empty())
        return decoded;
    memory_file file = {library_sound(sound + ".ogg")};
    OggVorbis_File vorbis;
    robot_expect(ov_open_callbacks(&file, &vorbis, nullptr, 0, {read_memory, nullptr, nullptr, nullptr}) == 0,
                 "the sound " + sound + " can be decoded");
    decoded.resize(CHUNK);
    for (std::size_t filled = 0; filled < CHUNK * sizeof(std::int16_t);) {
        const long got = ov_read(&vorbis, reinterpret_cast<char *>(decoded.data()) + filled,
                                 static_cast<int>(CHUNK * sizeof(std::int16_t) - filled), 0, 2, 1, nullptr);
        if (got <= 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    ov_clear(&vorbis);
    return decoded;
}

static samples load(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    samples recording(bytes.size() / sizeof(std::int16_t));
    std::memcpy(recording.data(), bytes.data(), recording.size() * sizeof(std::int16_t));
    return recording;
}

// --- Judging ---------------------------------------------------------------------------------------------------

// How much of the sound is in the chunk: about 1 where it begins, whatever else is heard, else about 0.
static double strength(const samples &recording, std::size_t chunk, const samples &sound) {
    double both = 0, own = 0;
    for (std::size_t i = 0; i < CHUNK; ++i) {
        const double s = sound[i];
        both += s * recording[chunk * CHUNK + i];
        own += s * s;
    }
    return own == 0 ? 0 : both / own;
}

static bool heard(const samples &recording, const cause &c) {
    const std::size_t end = std::min(c.chunk + PATIENCE, recording.size() / CHUNK);
    for (std::size_t chunk = c.chunk - std::min(c.chunk, BEFORE); chunk < end; ++chunk) {
        if (!c.sound.empty() && strength(recording, chunk, beginning(c.sound)) > PRESENT)
            return true;
        for (int number = 1; c.sound.empty() && number <= PLACEMENTS; ++number)
            if (strength(recording, chunk, beginning("piece_place" + std::to_string(number))) > PRESENT)
                return true;
    }
    return false;
}

static void check_level(const samples &recording, std::size_t first_chunk) {
    const auto silence_end =
        recording.begin() + static_cast<std::ptrdiff_t>(std::min(first_chunk * CHUNK, recording.size()));
    robot_expect(std::all_of(recording.begin(), silence_end, [](int s) { return s == 0; }),
                 "it is silent before the first sound");
    robot_expect(std::none_of(recording.begin(), recording.end(), [](int s) { return s >= LOUDEST || s < -LOUDEST; }),
                 "no sample of the sound is clipped");
}

void ears_check() {
    std::size_t placements = 0, placements_heard = 0;
    for (std::size_t file = 0; file < files.size(); ++file) {
        const samples recording = load(files[file]);
        robot_expect(!recording.empty(), "sound was recorded");
        bool first = true;
        for (const cause &c : causes) {
            if (c.file != file)
                continue;
            if (first)
                check_level(recording, c.chunk);
            first = false;
            const bool found = heard(recording, c);
            robot_expect(c.sound.empty() || found, "the sound " + c.sound + " is heard " +
                                                       std::to_string(c.chunk * CHUNK / 88200) +
                                                       " seconds into recording " + std::to_string(file + 1));
            placements += c.sound.empty() ? 1U : 0U;
            placements_heard += c.sound.empty() && found ? 1U : 0U;
        }
    }
    robot_say("has heard " + std::to_string(causes.size() - placements) + " sounds and " +
              std::to_string(placements_heard) + " of " + std::to_string(placements) + " placements");
    robot_expect(static_cast<double>(placements_heard) >= MOST * static_cast<double>(placements),
                 "nearly all placements are heard");
}
