// wide.h: pixel arithmetic on eight bytes at a time, with the results of doing it pixel by pixel.
//
// It holds because no lane carries into the next: halves are masked, and two halves add up to less than a lane.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/types.h"

#include <cstring>

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
