// pixel.h: the two pixel formats of the screen, and so of every picture, and the colour key.
//
// Format and key are fixed at start-up, by video_init and blit_init, and read-only afterwards: any thread may ask.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// 16 bits: R in bits 15..11, G in 10..5, B in 4..0, little-endian.
struct pixel16 {
    using value = u16;
    static constexpr i32 BITS = 16, SHIFT = 1;
    static constexpr value HALF_MASK = 0x7BEF, RGB_MASK = 0xFFFF;
    static constexpr value from_rgb(rgb c) {
        return static_cast<value>((c.r & 0xF8) << 8 | (c.g >> 2) << 5 | c.b >> 3);
    }
    static constexpr rgb to_rgb(value p) {
        return {static_cast<u8>((p >> 8) & 0xF8), static_cast<u8>((p >> 3) & 0xFC), static_cast<u8>((p << 3) & 0xF8)};
    }
};

// 32 bits: 0x00RRGGBB, little-endian (bytes B, G, R, 0).
struct pixel32 {
    using value = u32;
    static constexpr i32 BITS = 32, SHIFT = 2;
    static constexpr value HALF_MASK = 0x7F7F7F7F, RGB_MASK = 0x00FFFFFF;
    static constexpr value from_rgb(rgb c) {
        return static_cast<value>(c.r) << 16 | static_cast<value>(c.g) << 8 | static_cast<value>(c.b);
    }
    static constexpr rgb to_rgb(value p) {
        return {static_cast<u8>(p >> 16), static_cast<u8>(p >> 8), static_cast<u8>(p)};
    }
};

// Pixels of one format; no channel carries into the next, since halves are masked and two of them never overflow.
template <class Pixel> constexpr typename Pixel::value pixel_halve(typename Pixel::value p) {
    return static_cast<typename Pixel::value>((p >> 1) & Pixel::HALF_MASK);
}
// Halfway between the two.
template <class Pixel>
constexpr typename Pixel::value pixel_blend_half(typename Pixel::value a, typename Pixel::value b) {
    return static_cast<typename Pixel::value>((pixel_halve<Pixel>(a) + pixel_halve<Pixel>(b)) & Pixel::RGB_MASK);
}
template <class Pixel> constexpr typename Pixel::value pixel_or_rgb(typename Pixel::value a, typename Pixel::value b) {
    return static_cast<typename Pixel::value>((a | b) & Pixel::RGB_MASK);
}

// What the screen uses. depth is -1 before set-up.
struct screen_format {
    i32 depth = -1;          // bits per pixel
    i32 bytes_per_pixel = 0; // 2 or 4
    i32 shift = 0;           // log2 of it
};
inline screen_format video_format;

// The transparent colour of every picture, #EA008A, as the screen's format gives it back. Set by blit_init.
inline rgb colour_key = BLACK;
