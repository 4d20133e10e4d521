// types.h: the integer names, the point, the rectangle and the colour that every module shares.
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

// A place in pixels, or the way from one to another.
struct point {
    i32 x = 0, y = 0;
    bool operator==(const point &) const = default;
};
constexpr point operator+(point a, point b) {
    return {a.x + b.x, a.y + b.y};
}
constexpr point operator-(point a, point b) {
    return {a.x - b.x, a.y - b.y};
}

// A rectangle in window pixels, origin at the top left.
struct rect {
    i32 x, y, w, h;
};

// Whether no pixel lies in it.
constexpr bool rect_is_empty(const rect &area) {
    return area.w < 1 || area.h < 1;
}
constexpr bool rect_holds(const rect &area, point p) {
    return p.x >= area.x && p.x < area.x + area.w && p.y >= area.y && p.y < area.y + area.h;
}

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

// Where something of this size starts when its middle lies on that of the stretch.
constexpr i32 centre_in(i32 start, i32 length, i32 size) {
    return start + half(length) - half(size);
}
// The same when it is centred in the window.
constexpr i32 center_x(i32 w) {
    return half(SCREEN_WIDTH - w);
}
constexpr i32 center_y(i32 h) {
    return half(SCREEN_HEIGHT - h);
}
