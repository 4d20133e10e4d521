// picture.cpp: colours that turn transparent by accident, and writing XPM.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "picture.h"

#include <algorithm>
#include <cstdio>
#include <unordered_map>
#include <unordered_set>

namespace {

bool is_accident(u32 argb) {
    return argb >> 24 != 0 && picture_to_565(argb) == picture_to_565(XPM_KEY);
}

std::string symbol(std::size_t number, bool two_characters) {
    std::string s;
    if (two_characters)
        s += XPM_ALPHABET[number / XPM_ALPHABET.size()];
    return s + XPM_ALPHABET[number % XPM_ALPHABET.size()];
}

} // namespace

std::string picture_size_text(i32 width, i32 height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

std::string picture_accident(const raster &reduced, const raster &source) {
    const auto bad = std::ranges::find_if(reduced.pixels, is_accident);
    if (bad == reduced.pixels.end())
        return {};
    const auto at = static_cast<std::size_t>(bad - reduced.pixels.begin()),
               width = static_cast<std::size_t>(source.width);
    char text[128];
    std::snprintf(text, sizeof text, "the pixel %zu from the left and %zu from the top is #%06X", at % width + 1,
                  at / width + 1, source.pixels[at] & PICTURE_RGB);
    return text;
}

bool picture_fits_xpm(const raster &reduced) {
    const std::unordered_set<u32> colours(reduced.pixels.begin(), reduced.pixels.end());
    return colours.size() <= XPM_ALPHABET.size() * XPM_ALPHABET.size();
}

std::string picture_to_xpm(const raster &reduced) {
    std::unordered_map<u32, std::size_t> numbers; // of the colours, in the order of their first pixels
    std::vector<u32> colours;
    for (const u32 pixel : reduced.pixels)
        if (numbers.emplace(pixel, colours.size()).second)
            colours.push_back(pixel);
    const bool two_characters = colours.size() > XPM_ALPHABET.size();

    std::string out = "/* XPM */\nstatic char *picture[] = {\n";
    out += '"' + std::to_string(reduced.width) + ' ' + std::to_string(reduced.height) + ' ' +
           std::to_string(colours.size()) + (two_characters ? " 2\",\n" : " 1\",\n");
    for (std::size_t i = 0; i < colours.size(); ++i) {
        char colour[16];
        std::snprintf(colour, sizeof colour, " c #%06X\",\n", colours[i] == 0 ? XPM_KEY : colours[i] & PICTURE_RGB);
        out += '"' + symbol(i, two_characters) + colour;
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
