// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "tools/sample.h"

#include "entries.h"
#include "unit/sound/ogg_maker.h"

#include <map>
#include <random>

namespace {

constexpr std::string_view SYMBOLS = ".+@#$%&*=-;>,')!~{]^/(_:<[}|1234567890abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN";

constexpr i32 HOLE_EVERY = 7; // pixels of a row

using dice = std::mt19937;

// Its own arithmetic: the library's distributions may differ between machines.
i32 roll(dice *d, i32 low, i32 high) {
    return low + static_cast<i32>((*d)() % static_cast<u32>(high - low + 1));
}

xpm_shape random_shape(dice *d, const kit_entry &entry) {
    xpm_shape shape = {roll(d, entry.size.min_w, entry.size.max_w), roll(d, entry.size.min_h, entry.size.max_h)};
    constexpr i32 large = 200; // pixels; large pictures are kept simple, so that a hundred archives are made soon
    if (shape.width < large)
        shape.symbol_length = roll(d, 0, 9) == 0 ? 3 : roll(d, 1, 2);
    shape.colors = roll(d, 1, shape.symbol_length == 1 ? static_cast<i32>(SYMBOLS.size()) : 200);
    if (entry.name.starts_with("xpm/font/")) {
        shape.width = roll(d, 1, 5); // so that the titles fit
        shape.colors = std::max(shape.colors, 2);
        shape.empty_rows = roll(d, 0, KIT_GLYPH_BELOW);
        shape.height = shape.empty_rows + roll(d, 1, KIT_GLYPH_ABOVE);
    }
    return shape;
}

std::string random_text(dice *d) {
    std::string text;
    for (i32 words = roll(d, 0, 25); words > 0; --words)
        text += std::string(static_cast<std::size_t>(roll(d, 1, 7)), static_cast<char>(roll(d, 'a', 'z'))) + ' ';
    return text;
}

// Of a few that are made once: encoding is slow.
std::string random_sound(dice *d) {
    static std::vector<file_bytes> sounds;
    for (i32 frames = 1; sounds.size() < 6; frames *= 5)
        sounds.push_back(make_ogg({.channels = 1 + frames % 2, .frames = frames}));
    const file_bytes &bytes = sounds[static_cast<std::size_t>(roll(d, 0, 5))];
    return {bytes.begin(), bytes.end()};
}

std::string symbol(i32 number, i32 length) {
    std::string text;
    for (i32 i = 0; i < length; ++i, number /= static_cast<i32>(SYMBOLS.size()))
        text += SYMBOLS[static_cast<std::size_t>(number) % SYMBOLS.size()];
    return text;
}

} // namespace

std::string sample_xpm(const xpm_shape &shape) {
    std::string text = "\"" + std::to_string(shape.width) + " " + std::to_string(shape.height) + " " +
                       std::to_string(shape.colors) + " " + std::to_string(shape.symbol_length) + "\"\n";
    for (i32 i = 0; i < shape.colors; ++i) {
        char color[16];
        std::snprintf(color, sizeof color, "#%02X%02X%02X", i * 7 % 128, i * 5 % 256, i % 256);
        text += "\"" + symbol(i, shape.symbol_length) + " c " + (i == 0 ? shape.first : color) + "\"\n";
    }
    const i32 patterns = std::max(shape.colors - 1, 1); // rows begin with different colours
    const auto row = [&](i32 first, bool empty) {
        std::string line = "\"";
        for (i32 x = 0; x < shape.width; ++x) {
            const bool hole = empty || shape.colors == 1 || x % HOLE_EVERY == HOLE_EVERY - 1;
            line += symbol(hole ? 0 : 1 + (x + first) % patterns, shape.symbol_length);
        }
        return line + "\"\n";
    };
    std::vector<std::string> rows;
    for (i32 y = 0; y < std::min(shape.height, patterns); ++y)
        rows.push_back(row(y, false));
    const std::string empty = row(0, true);
    for (i32 y = 0; y < shape.height; ++y)
        text += y < shape.empty_rows ? empty : rows[static_cast<std::size_t>(y % patterns)];
    return text;
}

archive_file make_sample(unsigned seed) {
    dice d(seed);
    archive_file archive;
    std::map<std::string, xpm_shape> shapes;
    for (const kit_entry &entry : kit_entries()) {
        std::string bytes;
        if (entry.kind == ENTRY_PICTURE) {
            xpm_shape &shape = shapes[entry.name] = random_shape(&d, entry);
            if (!entry.alike.empty()) {
                shape.width = shapes[entry.alike].width;
                shape.height = shapes[entry.alike].height;
            }
            bytes = sample_xpm(shape);
        } else {
            bytes = entry.kind == ENTRY_SOUND ? random_sound(&d) : random_text(&d);
        }
        archive.entries.push_back({entry.name, bytes});
    }
    return archive;
}

std::string &sample_bytes(archive_file &archive, const std::string &name) {
    return const_cast<archive_entry *>(archive_find(archive, name))->bytes;
}
