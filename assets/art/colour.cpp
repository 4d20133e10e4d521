// colour.cpp: between sRGB and OKLCH.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "colour.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace art {

namespace {

// The sRGB transfer function (IEC 61966-2-1) and its inverse.
double linear_from_srgb(double v) {
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

double srgb_from_linear(double v) {
    const double encoded = v <= 0.0031308 ? v * 12.92 : 1.055 * std::pow(v, 1 / 2.4) - 0.055;
    return std::clamp(encoded, 0.0, 1.0);
}

} // namespace

lch to_lch(rgb colour) {
    const double r = linear_from_srgb(colour.r), g = linear_from_srgb(colour.g), b = linear_from_srgb(colour.b);
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    const double lightness = 0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s;
    const double a = 1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s;
    const double bb = 0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s;
    return {lightness, std::hypot(a, bb), std::atan2(bb, a) * 180 / std::numbers::pi};
}

rgb to_rgb(lch colour) {
    const double angle = colour.h * std::numbers::pi / 180;
    const double a = colour.c * std::cos(angle), b = colour.c * std::sin(angle);
    const auto cube = [](double v) { return v * v * v; };
    const double l = cube(colour.l + 0.3963377774 * a + 0.2158037573 * b);
    const double m = cube(colour.l - 0.1055613458 * a - 0.0638541728 * b);
    const double s = cube(colour.l - 0.0894841775 * a - 1.2914855480 * b);
    return {srgb_from_linear(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
            srgb_from_linear(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
            srgb_from_linear(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s)};
}

rgb mix(rgb a, rgb b, double t) {
    return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}

rgb lighten(rgb colour, double delta_l) {
    lch c = to_lch(colour);
    c.l = std::clamp(c.l + delta_l, 0.0, 1.0);
    return to_rgb(c);
}

} // namespace art
