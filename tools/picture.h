// picture.h: a picture in memory, and its XPM text.
//
// An archive's pictures have 5-6-5 colours and no half-transparent pixels; transparent is one key colour.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "resources/pixel.h"
#include "resources/xpm_format.h"

#include <string>
#include <vector>

struct raster {
    i32 width, height;       // pixels
    std::vector<u32> pixels; // 0xAARRGGBB, row after row; one of alpha 0 is transparent
};

inline constexpr u32 PICTURE_RGB = 0xFFFFFF, PICTURE_OPAQUE = 0xFF000000;

// The 0..255 level of a 5- or 6-bit shade, its high bits repeated below.
constexpr i32 picture_expand(i32 value, i32 bits) {
    constexpr i32 level_bits = 8;
    return value << (level_bits - bits) | value >> (2 * bits - level_bits);
}

constexpr u16 picture_to_565(u32 colour) {
    return pixel16::from_rgb(pixel32::to_rgb(colour));
}

std::string picture_size_text(i32 width, i32 height); // such as "57x52"

// The first opaque pixel of `reduced` that a 16-bit screen could not tell from the key colour, as a sentence about the
// pixel as it was in `source`; empty for none.
std::string picture_accident(const raster &reduced, const raster &source);

bool picture_fits_xpm(const raster &reduced); // whether an XPM has symbols for so many colours

// Of a reduced picture that fits. The same picture always gives the same bytes.
std::string picture_to_xpm(const raster &reduced);
