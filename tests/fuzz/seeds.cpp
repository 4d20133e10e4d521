// seeds.cpp: writes the inputs that the fuzzers start from: a folder for each, a few small files.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "../unit/sound/ogg_maker.h"
#include "support/stored_files.h"

#include <algorithm>
#include <cstdio>
#include <random>

namespace {

std::filesystem::path root;

void seed(const std::string &fuzzer, const std::string &name, const file_bytes &bytes) {
    std::filesystem::create_directories(root / fuzzer);
    write_file(root / fuzzer / name, bytes);
}

void picture_seeds() {
    const std::string one = make_xpm({"a c #FF0000", "b c #EA008A", "  c None"}, {"aab", "b a"});
    const std::string two = make_xpm({"a. c #10ff07", ".b c #EA008A"}, {"a..ba.", ".b.ba."}, 2);
    const std::string three = make_xpm({"a.1 c #10ff07", ".b2 c red"}, {"a.1.b2", ".b2.b2"}, 3);
    for (const std::string &text : {one, two, three})
        for (const char depth : {'0', '1'})
            seed("xpm", std::to_string(text.size()) + depth, to_bytes(depth + text));
    seed("archive", "none", archive_builder().bytes());
    seed("archive", "some",
         archive_builder().add("txt/a", "some text\n").add("xpm/a.xpm", one).add("ogg/click.ogg", "no sound").bytes());
    seed("archive", "twice", archive_builder().add("txt/a", "1").add("txt/a", "").add_raw("xpm/a.xpm", 900, 1).bytes());
}

void saved_seeds() {
    for (const char *name : {"", "Ann", "A name of so many letters"})
        seed("prefs", std::to_string(std::string(name).size()), stored_prefs(name));
    for (const int runs : {0, 1, 20})
        seed("scores", std::to_string(runs), stored_scores(runs == 0 ? "" : "ann lee", runs));
}

file_bytes joined(file_bytes first, const file_bytes &second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

void sound_seeds() {
    std::vector<file_bytes> streams;
    for (const int rate : {8000, 44100, 96000})
        for (const int channels : {1, 2, 6})
            streams.push_back(make_ogg({.channels = channels, .rate = rate, .frames = rate / 40}));
    streams.push_back(joined(streams[0], streams[4])); // mono, then stereo at another rate
    streams.push_back(joined(make_ogg({.channels = 6, .frames = 4000}), streams[3])); // then mono, near a chunk's end
    streams.push_back(make_ogg({.frames = 0}));
    for (std::size_t i = 0; i < streams.size(); ++i) {
        seed("sound", std::to_string(i), streams[i]);
        streams[i].resize(streams[i].size() * 2 / 3);
        seed("sound", std::to_string(i) + "-cut", streams[i]);
    }
}

void drawing_seeds() {
    seed("text", "plain", to_bytes("1........Count by one's, then\nwrap this line of words and go on."));
    std::mt19937 dice(1);
    for (int i = 0; i < 16; ++i) {
        file_bytes bytes(static_cast<std::size_t>(64 + 32 * i));
        std::ranges::generate(bytes, [&] { return static_cast<unsigned char>(dice() % 4 == 0 ? dice() : dice() % 4); });
        seed("commands", std::to_string(i), bytes);
    }
}

} // namespace

int main(int count, char **arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", arguments[0]);
        return 1;
    }
    root = arguments[1];
    picture_seeds();
    saved_seeds();
    sound_seeds();
    drawing_seeds();
    return 0;
}
