// types.h: the integer names, the rectangle and the colour that every module shares.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <cstdint>

using i8 = std::int8_t;
using i16 = std::int16_t;
using i32 = std::int32_t;
using i64 = std::int64_t;
using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using u64 = std::uint64_t;

// A rectangle in window pixels, origin at the top left.
struct rect {
    i32 x, y, w, h;
};

// A colour, 0..255 a channel.
struct rgb {
    u8 r, g, b;
};

inline constexpr i32 SCREEN_WIDTH = 800;  // pixels
inline constexpr i32 SCREEN_HEIGHT = 600; // pixels
inline constexpr rect WHOLE_SCREEN = {0, 0, SCREEN_WIDTH, SCREEN_HEIGHT};

inline constexpr rgb BLACK = {0, 0, 0};
inline constexpr rgb WHITE = {255, 255, 255};
inline constexpr rgb LIGHT_GREY = {235, 235, 235};
inline constexpr rgb YELLOW = {255, 255, 0};
inline constexpr rgb NAVY = {0, 0, 128};

// Half of an integer, rounded toward minus infinity.
constexpr i32 half(i32 n) {
    return n >> 1;
}

// Where something of this size starts when it is centred in the window.
constexpr i32 center_x(i32 w) {
    return half(SCREEN_WIDTH - w);
}
constexpr i32 center_y(i32 h) {
    return half(SCREEN_HEIGHT - h);
}
