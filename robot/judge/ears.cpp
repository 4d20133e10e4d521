// ears.cpp: finding sounds in the recording.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "ears.h"
#include "player/game.h"
#include "player/library.h"
#include "player/robot.h"

#include <vorbis/vorbisfile.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <vector>

using samples = std::vector<std::int16_t>;

static constexpr const char *PACE = "93";    // ms of sound that SDL writes at a time: real time
static constexpr std::size_t CHUNK = 8192;   // samples, both channels, that are played in one go: sounds begin there
static constexpr std::size_t SECOND = 88200; // samples
static constexpr std::size_t PATIENCE = 16;  // chunks after its cause in which a sound must begin
static constexpr std::size_t BEFORE = 2;     // chunks by which the robot may be late to note a cause
static constexpr double PRESENT = 0.6;       // share of a sound's strength that must be found to call it heard
static constexpr double MOST = 0.9;          // of the placements: one may be cut off by the next in the same chunk
static constexpr int LOUDEST = 32767, PLACEMENTS = 6;

struct cause {
    std::size_t chunk; // where the recording ended at the time
    std::string sound;
};

struct recording {
    std::string name; // in the game's folder
    std::vector<cause> causes;
};

static std::vector<recording> recordings;

void ears_record() {
    recordings.push_back({"sound" + std::to_string(recordings.size() + 1) + ".raw", {}});
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", (game_folder() / recordings.back().name).c_str(), 1);
    setenv("SDL_DISKAUDIODELAY", PACE, 1);
}

void ears_note(const std::string &sound) {
    if (recordings.empty())
        return;
    std::error_code none_yet;
    const auto size = std::filesystem::file_size(game_folder() / recordings.back().name, none_yet);
    recordings.back().causes.push_back({none_yet ? 0 : size / sizeof(std::int16_t) / CHUNK, sound});
}

// The first chunk of a file of the archive.
static const samples &beginning(const std::string &sound) {
    static std::map<std::string, samples> known;
    samples &decoded = known[sound];
    if (!decoded.empty())
        return decoded;
    std::string bytes = library_bytes("ogg/" + sound + ".ogg");
    OggVorbis_File vorbis;
    robot_expect(ov_open(fmemopen(bytes.data(), bytes.size(), "rb"), &vorbis, nullptr, 0) == 0,
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

// How much of the sound is in the chunk: about 1 where it begins, whatever else is heard, else about 0.
static double strength(const samples &heard, std::size_t chunk, const samples &sound) {
    double both = 0, own = 0;
    for (std::size_t i = 0; i < CHUNK; ++i) {
        const double s = sound[i];
        both += s * heard[chunk * CHUNK + i];
        own += s * s;
    }
    return own == 0 ? 0 : both / own;
}

static bool begins_near(const samples &heard, std::size_t chunk, const std::string &sound) {
    const std::size_t end = std::min(chunk + PATIENCE, heard.size() / CHUNK);
    for (std::size_t at = chunk - std::min(chunk, BEFORE); at < end; ++at)
        if (strength(heard, at, beginning(sound)) > PRESENT)
            return true;
    return false;
}

static bool placement_begins_near(const samples &heard, std::size_t chunk) {
    for (int number = 1; number <= PLACEMENTS; ++number)
        if (begins_near(heard, chunk, PLACEMENT + std::to_string(number)))
            return true;
    return false;
}

static samples load(const std::string &name) {
    const std::string bytes = game_file(name);
    samples heard(bytes.size() / sizeof(std::int16_t));
    std::memcpy(heard.data(), bytes.data(), heard.size() * sizeof(std::int16_t));
    robot_expect(!heard.empty(), "sound was recorded");
    return heard;
}

static void check_level(const samples &heard, std::size_t first_chunk) {
    const auto silence_end = heard.begin() + static_cast<std::ptrdiff_t>(std::min(first_chunk * CHUNK, heard.size()));
    robot_expect(std::all_of(heard.begin(), silence_end, [](int s) { return s == 0; }),
                 "it is silent before the first sound");
    robot_expect(std::none_of(heard.begin(), heard.end(), [](int s) { return s >= LOUDEST || s < -LOUDEST; }),
                 "no sample of the sound is clipped");
}

void ears_check() {
    int sounds = 0, placements = 0, placements_heard = 0;
    for (const recording &each : recordings) {
        const samples heard = load(each.name);
        robot_expect(!each.causes.empty(), "something was done that is heard");
        check_level(heard, each.causes[0].chunk);
        for (const auto &[chunk, sound] : each.causes) {
            if (sound == PLACEMENT) {
                ++placements;
                placements_heard += placement_begins_near(heard, chunk) ? 1 : 0;
                continue;
            }
            ++sounds;
            robot_expect(begins_near(heard, chunk, sound), "the sound " + sound + " is heard " +
                                                               std::to_string(chunk * CHUNK / SECOND) +
                                                               " seconds into " + each.name);
        }
    }
    robot_say("has heard " + std::to_string(sounds) + " sounds and " + std::to_string(placements_heard) + " of " +
              std::to_string(placements) + " placements");
    robot_expect(placements_heard >= MOST * placements, "nearly all placements are heard");
}
