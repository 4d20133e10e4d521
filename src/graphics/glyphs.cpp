// glyphs.cpp: what a glyph shows, and its colour.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/glyphs.h"

#include "graphics/locks.h"
#include "resources/pixel.h"

#include <algorithm>

static constexpr i32 FULL = 255; // a factor that keeps a channel, and the highest channel

static u8 scale(u8 channel, i32 factor) {
    return static_cast<u8>(std::clamp(channel * factor / FULL, 0, FULL));
}

template <class Pixel> static bool is_ink(typename Pixel::value pixel) {
    const rgb colour = Pixel::to_rgb(pixel);
    return colour.r != colour_key.r || colour.g != colour_key.g || colour.b != colour_key.b;
}

template <class Pixel> static i32 first_ink(const image &picture) {
    const auto *pixels = reinterpret_cast<const typename Pixel::value *>(picture.pixels);
    const auto *end = pixels + picture.width * picture.height;
    const auto *found = std::find_if(pixels, end, [](auto pixel) { return is_ink<Pixel>(pixel); });
    return found == end ? -1 : static_cast<i32>(found - pixels);
}

i32 glyph_first_ink(const image &picture) {
    return video_format.depth == pixel16::BITS ? first_ink<pixel16>(picture) : first_ink<pixel32>(picture);
}

template <class Pixel> static void recolour(const glyph &g) {
    using value = typename Pixel::value;
    const auto *from = reinterpret_cast<const value *>(g.source->pixels);
    auto *to = reinterpret_cast<value *>(g.working->pixels);
    std::transform(from, from + g.width * g.height, to, [&](value pixel) {
        const rgb c = Pixel::to_rgb(pixel);
        return is_ink<Pixel>(pixel) ? Pixel::from_rgb({scale(c.r, g.red), scale(c.g, g.green), scale(c.b, g.blue)})
                                    : pixel;
    });
}

void glyph_use_colour(glyph *g, i32 red, i32 green, i32 blue) {
    lock_assert(surface_lock);
    if (g->red == red && g->green == green && g->blue == blue)
        return;
    g->red = red;
    g->green = green;
    g->blue = blue;
    if (video_format.depth == pixel16::BITS)
        recolour<pixel16>(*g);
    else
        recolour<pixel32>(*g);
}
