// picture_xpm.cpp: reading XPM with the game's own decoder, and writing it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "picture.h"
#include "picture_parts.h"
#include "resources/xpm.h"

#include <cstdio>
#include <unordered_map>

namespace {

std::string symbol(std::size_t number, bool two_characters) {
    std::string s;
    if (two_characters)
        s += PICTURE_ALPHABET[number / PICTURE_ALPHABET.size()];
    return s + PICTURE_ALPHABET[number % PICTURE_ALPHABET.size()];
}

xpm_reading read_rows(xpm *source) {
    raster result = {source->width, source->height, {}};
    result.pixels.resize(static_cast<std::size_t>(source->width) * static_cast<std::size_t>(source->height));
    if (!xpm_read_pixels(source, result.pixels.data()))
        return {{}, source->color_count, "its rows are damaged or end early"};
    for (u32 &pixel : result.pixels)
        pixel = pixel == PICTURE_KEY ? 0 : PICTURE_OPAQUE | pixel;
    return {std::move(result), source->color_count, {}};
}

} // namespace

xpm_reading picture_from_xpm(std::string_view bytes) {
    video_format = {.depth = pixel32::BITS, .bytes_per_pixel = sizeof(pixel32::value), .shift = pixel32::SHIFT};
    xpm source;
    const bool opened = xpm_open(&source, {bytes.data(), bytes.size()});
    xpm_reading reading = opened ? read_rows(&source) : xpm_reading{{}, 0, "its size or its colours are damaged"};
    xpm_close(&source);
    return reading;
}

std::string picture_to_xpm(const raster &reduced) {
    std::unordered_map<u32, std::size_t> numbers; // of the colours, in the order of their first pixels
    std::vector<u32> colors;
    for (const u32 pixel : reduced.pixels)
        if (numbers.emplace(pixel, colors.size()).second)
            colors.push_back(pixel);
    const bool two_characters = colors.size() > PICTURE_ALPHABET.size();

    std::string out = "/* XPM */\nstatic char *picture[] = {\n";
    out += '"' + std::to_string(reduced.width) + ' ' + std::to_string(reduced.height) + ' ' +
           std::to_string(colors.size()) + (two_characters ? " 2\",\n" : " 1\",\n");
    for (std::size_t i = 0; i < colors.size(); ++i) {
        char color[16];
        std::snprintf(color, sizeof color, " c #%06X\",\n", colors[i] == 0 ? PICTURE_KEY : colors[i] & PICTURE_RGB);
        out += '"' + symbol(i, two_characters) + color;
    }
    std::size_t at = 0;
    for (i32 y = 0; y < reduced.height; ++y) {
        out += '"';
        for (i32 x = 0; x < reduced.width; ++x)
            out += symbol(numbers.at(reduced.pixels[at++]), two_characters);
        out += y + 1 < reduced.height ? "\",\n" : "\"};\n";
    }
    return out;
}
