// colour.h: colours, and how they are mixed and lightened.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <cstdint>

namespace art {

// An sRGB colour, channels 0..1.
struct rgb {
    double r = 0, g = 0, b = 0;
};

// The colour of a 0xRRGGBB number.
constexpr rgb hex(std::uint32_t value) {
    return {((value >> 16) & 0xFF) / 255.0, ((value >> 8) & 0xFF) / 255.0, (value & 0xFF) / 255.0};
}

// A colour in OKLCH (Ottosson, "A perceptual color space for image processing", 2020):
// lightness 0..1, chroma 0..about 0.37, hue in degrees.
struct lch {
    double l = 0, c = 0, h = 0;
};

lch to_lch(rgb colour);
rgb to_rgb(lch colour);                  // out-of-gamut channels are clamped
rgb mix(rgb a, rgb b, double t);         // a at t = 0, b at t = 1, in sRGB
rgb lighten(rgb colour, double delta_l); // moves L by delta_l (negative darkens), keeps hue and chroma

} // namespace art
