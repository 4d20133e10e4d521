// wide.h: pixel arithmetic on eight bytes at a time, with the results of doing it pixel by pixel.
//
// It holds because no lane carries into the next: halves are masked, and two halves add up to less than a lane.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <algorithm>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

using wide = std::uint64_t;

// The same pixel in every lane.
template <class Pixel> constexpr wide wide_of(typename Pixel::value pixel) {
    constexpr wide ONE_IN_EACH = ~wide{0} / static_cast<typename Pixel::value>(~typename Pixel::value{0});
    return ONE_IN_EACH * pixel;
}

template <class Pixel> constexpr wide wide_halve(wide pixels) {
    return (pixels >> 1) & wide_of<Pixel>(Pixel::HALF_MASK);
}

template <class Pixel> constexpr wide wide_keep_rgb(wide pixels) {
    return pixels & wide_of<Pixel>(Pixel::RGB_MASK);
}

// Halfway between two pixels.
template <class Pixel> constexpr wide wide_blend_half(wide a, wide b) {
    return wide_keep_rgb<Pixel>(wide_halve<Pixel>(a) + wide_halve<Pixel>(b));
}

// to[i] = op(to[i], from[i]); op takes and gives wide values and must treat every lane alike. A single pixel at
// the end goes through the lowest lane.
template <class Pixel, class Op>
void wide_apply(typename Pixel::value *to, const typename Pixel::value *from, i32 count, Op op) {
    using value = typename Pixel::value;
    constexpr i32 LANES = sizeof(wide) / sizeof(value);
    i32 i = 0;
    for (; i + LANES <= count; i += LANES) {
        wide under, over;
        std::memcpy(&under, to + i, sizeof under);
        std::memcpy(&over, from + i, sizeof over);
        under = op(under, over);
        std::memcpy(to + i, &under, sizeof under);
    }
    for (; i < count; ++i)
        to[i] = static_cast<value>(op(to[i], from[i]));
}

// to[i] = op(to[i])
template <class Pixel, class Op> void wide_change(typename Pixel::value *to, i32 count, Op op) {
    wide_apply<Pixel>(to, to, count, [op](wide under, wide) { return op(under); });
}

// Copies a span. Most are a few pixels, for which calling memcpy takes longer than copying: pieces of a fixed size are
// moved in registers, the last one laid over the end of the one before.
template <std::size_t PIECE> void copy_pieces(u8 *to, const u8 *from, std::size_t bytes) {
    std::size_t at = 0;
#ifdef __SSE2__
    constexpr std::size_t LANE = sizeof(__m128i), FOUR = 4 * LANE;
    for (; PIECE == LANE && at + FOUR <= bytes; at += FOUR) { // four loads before four stores
        const auto *lanes = reinterpret_cast<const __m128i *>(from + at);
        auto *out = reinterpret_cast<__m128i *>(to + at);
        const __m128i a = _mm_loadu_si128(lanes), b = _mm_loadu_si128(lanes + 1);
        const __m128i c = _mm_loadu_si128(lanes + 2), d = _mm_loadu_si128(lanes + 3);
        _mm_storeu_si128(out, a);
        _mm_storeu_si128(out + 1, b);
        _mm_storeu_si128(out + 2, c);
        _mm_storeu_si128(out + 3, d);
    }
#endif
    for (; at + PIECE < bytes; at += PIECE)
        std::memcpy(to + at, from + at, PIECE);
    std::memcpy(to + bytes - PIECE, from + bytes - PIECE, PIECE);
}

template <class Pixel> void wide_copy(typename Pixel::value *to, const typename Pixel::value *from, i32 count) {
    constexpr std::size_t WORD = 4, BLOCK = 16, FEW_BLOCKS = 256; // bytes
    auto *to_bytes = reinterpret_cast<u8 *>(to);
    const auto *from_bytes = reinterpret_cast<const u8 *>(from);
    const std::size_t bytes = static_cast<std::size_t>(count) << Pixel::SHIFT;
    if (bytes < WORD)
        *to = *from;
    else if (bytes < BLOCK)
        copy_pieces<WORD>(to_bytes, from_bytes, bytes);
    else if (bytes <= FEW_BLOCKS)
        copy_pieces<BLOCK>(to_bytes, from_bytes, bytes);
    else
        std::memcpy(to, from, bytes);
}

// The same pixel count times; the last block is laid over the end of those before.
template <class Pixel> void wide_fill(typename Pixel::value *to, i32 count, typename Pixel::value pixel) {
    const wide block[] = {wide_of<Pixel>(pixel), wide_of<Pixel>(pixel)};
    constexpr i32 LANES = 2 * sizeof(wide) / sizeof pixel;
    if (count < LANES) {
        std::fill_n(to, count, pixel);
        return;
    }
    for (i32 i = 0; i + LANES < count; i += LANES)
        std::memcpy(to + i, block, sizeof block);
    std::memcpy(to + count - LANES, block, sizeof block);
}
