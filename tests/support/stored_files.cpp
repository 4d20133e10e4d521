// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/stored_files.h"

static constexpr int PUZZLES = 11, PLACES = 3;

static void put_string(file_bytes *bytes, const std::string &text) {
    append_i32(bytes, static_cast<int>(text.size()));
    for (const char c : text)
        bytes->push_back(static_cast<unsigned char>(c + 128));
}

file_bytes stored_prefs(const std::string &name) {
    file_bytes bytes;
    append_i32(&bytes, 1);
    put_string(&bytes, name);
    append_i32(&bytes, 1);
    return bytes;
}

file_bytes stored_scores(const std::string &name, int runs) {
    file_bytes bytes;
    for (int puzzle = 0; puzzle < PUZZLES; ++puzzle) {
        for (int place = 0; place < PLACES; ++place) {
            append_i32(&bytes, 100 + place);
            put_string(&bytes, name);
        }
        append_i32(&bytes, runs);
        for (int run = 0; run < runs; ++run) {
            put_string(&bytes, "2004-03-07 14:05");
            append_i32(&bytes, 100 + run);
            put_string(&bytes, name);
        }
    }
    append_i32(&bytes, 1);
    put_string(&bytes, name);
    append_i32(&bytes, 0x7FF);
    append_i32(&bytes, 0xFFF);
    return bytes;
}

namespace {

struct fields {
    const file_bytes &bytes;
    std::size_t at = 0;
    bool whole = true;

    int byte() {
        whole = whole && at < bytes.size();
        return whole ? bytes[at++] : 0;
    }
    int number() {
        unsigned value = 0;
        for (int i = 0; i < 4; ++i)
            value = value << 8 | static_cast<unsigned>(byte());
        return static_cast<int>(value);
    }
    std::string text() {
        std::string text;
        for (int length = number(); length > 0 && whole; --length)
            text += static_cast<char>(byte() - 128);
        return text;
    }
};

} // namespace

std::optional<std::string> name_in_prefs(const file_bytes &bytes) {
    fields in{bytes};
    in.number();
    std::string name = in.text();
    in.number();
    return in.whole ? std::optional(name) : std::nullopt;
}

std::optional<std::set<std::string>> names_in_scores(const file_bytes &bytes) {
    fields in{bytes};
    std::set<std::string> everywhere;
    for (int puzzle = 0; puzzle < PUZZLES; ++puzzle) {
        for (int place = 0; place < PLACES; ++place) {
            in.number();
            in.text();
        }
        std::set<std::string> here;
        for (int runs = in.number(); runs > 0 && in.whole; --runs) {
            in.text();
            in.number();
            here.insert(in.text());
        }
        if (puzzle == 0)
            everywhere = here;
        std::erase_if(everywhere, [&](const std::string &name) { return !here.contains(name); });
    }
    std::set<std::string> players;
    for (int left = in.number(); left > 0 && in.whole; --left) {
        players.insert(in.text());
        in.number();
        in.number();
    }
    std::erase_if(everywhere, [&](const std::string &name) { return !players.contains(name); });
    return in.whole ? std::optional(everywhere) : std::nullopt;
}
