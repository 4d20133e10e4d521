// picture_parts.h: colours as the game stores them, for the files that read, write and reduce pictures.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/pixel.h"

#include <string_view>

inline constexpr u32 PICTURE_KEY = 0xEA008A; // transparent
inline constexpr u32 PICTURE_RGB = 0xFFFFFF, PICTURE_OPAQUE = 0xFF000000;
inline constexpr i32 PICTURE_MAX_SIDE = 8192; // pixels that the game accepts in a direction

// The characters of an XPM's symbols, in the order in which colours are numbered.
inline constexpr std::string_view PICTURE_ALPHABET =
    " .+@#$%&*=-;>,')!~{]^/(_:<[}|1234567890abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ`";
inline constexpr std::size_t PICTURE_MAX_COLORS = PICTURE_ALPHABET.size() * PICTURE_ALPHABET.size();

// The 0..255 level of a 5- or 6-bit shade, its high bits repeated below.
constexpr i32 picture_expand(i32 value, i32 bits) {
    constexpr i32 level_bits = 8;
    return value << (level_bits - bits) | value >> (2 * bits - level_bits);
}

constexpr u16 picture_to_565(u32 color) {
    return pixel16::from_rgb(pixel32::to_rgb(color));
}
