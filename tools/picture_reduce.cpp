// picture_reduce.cpp: ordered dithering.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "picture_reduce.h"

#include "fail.h"

#include <array>

namespace {

constexpr u32 HALF_ALPHA = 128; // pixels covered less than this become transparent
constexpr i32 CHANNELS = 3;

// The 8x8 order in which a rising level switches pixels on (Bayer, 1973).
constexpr i32 ORDER_SIDE = 8, ORDER_STEPS = ORDER_SIDE * ORDER_SIDE;
constexpr auto ORDER = [] {
    std::array<std::array<i32, ORDER_SIDE>, ORDER_SIDE> order = {};
    for (i32 size = 1; size < ORDER_SIDE; size *= 2)
        for (i32 y = 0; y < size; ++y)
            for (i32 x = 0; x < size; ++x) {
                const auto col = static_cast<std::size_t>(x), row = static_cast<std::size_t>(y);
                const auto step = static_cast<std::size_t>(size);
                const i32 value = order[row][col] * 4;
                order[row][col] = value;
                order[row][col + step] = value + 2;
                order[row + step][col] = value + 3;
                order[row + step][col + step] = value + 1;
            }
    return order;
}();

// A channel's shades, for each of its 256 levels: the shade at or below it, the next one, and how far between.
struct shade {
    i32 below, above;
    i32 share; // of ORDER_STEPS
};
using shades = std::array<shade, 256>;

// `count` of a channel's shades at 5 or 6 bits, evenly spread; all of them when count is 2 to the bits.
constexpr shades make_shades(i32 count, i32 bits) {
    const i32 top = (1 << bits) - 1;
    const auto level = [=](i32 k) { return picture_expand((k * top + (count - 1) / 2) / (count - 1), bits); };
    shades result = {};
    for (i32 v = 0, k = 0; v <= 255; ++v) {
        while (k < count - 1 && level(k + 1) <= v)
            ++k;
        const i32 below = level(k), above = k < count - 1 ? level(k + 1) : below;
        result[static_cast<std::size_t>(v)] = {below, above,
                                               above > below ? (v - below) * ORDER_STEPS / (above - below) : 0};
    }
    return result;
}

struct palette_shades {
    shades channel[CHANNELS]; // red, green, blue
};
// Sixteen by thirty-two by sixteen shades are fewer than an XPM's symbols, whatever the picture.
constexpr palette_shades FINE = {{make_shades(32, 5), make_shades(64, 6), make_shades(32, 5)}};
constexpr palette_shades COARSE = {{make_shades(16, 5), make_shades(32, 6), make_shades(16, 5)}};

u32 reduce_pixel(u32 argb, i32 x, i32 y, const palette_shades &palette) {
    constexpr i32 shifts[CHANNELS] = {16, 8, 0};
    if (argb >> 24 < HALF_ALPHA)
        return 0;
    const i32 order = ORDER[static_cast<std::size_t>(y % ORDER_SIDE)][static_cast<std::size_t>(x % ORDER_SIDE)];
    u32 result = PICTURE_OPAQUE;
    for (i32 c = 0; c < CHANNELS; ++c) {
        const shade &s = palette.channel[c][argb >> shifts[c] & 0xFF];
        result |= static_cast<u32>(s.share > order ? s.above : s.below) << shifts[c];
    }
    return result;
}

raster reduce_with(const raster &source, const palette_shades &palette) {
    raster result = {source.width, source.height, {}};
    result.pixels.reserve(source.pixels.size());
    std::size_t at = 0;
    for (i32 y = 0; y < source.height; ++y)
        for (i32 x = 0; x < source.width; ++x)
            result.pixels.push_back(reduce_pixel(source.pixels[at++], x, y, palette));
    return result;
}

} // namespace

raster picture_reduce(const raster &source, const std::string &name) {
    raster result = reduce_with(source, FINE);
    if (!picture_fits_xpm(result))
        result = reduce_with(source, COARSE);
    const std::string accident = picture_accident(result, source);
    if (!accident.empty())
        fail(name + ": " + accident +
             ", which the game cannot tell from its transparent colour #EA008A; make the pixel transparent, or take "
             "another pink, such as #D8207C");
    return result;
}
