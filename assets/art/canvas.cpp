// canvas.cpp: colours and the drawing part of a canvas.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "canvas.h"

#include "fail.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>

namespace art {

[[noreturn]] void fail(const std::string &message) {
    std::fprintf(stderr, "tavimo-art: %s\n", message.c_str());
    std::exit(1);
}

// --- Colours -------------------------------------------------------------------------------------

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

// --- Canvas --------------------------------------------------------------------------------------

canvas::canvas(int w, int h)
    : width(w), height(h), surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h)),
      context(cairo_create(surface.get())) {
    if (w < 1 || h < 1 || cairo_status(context.get()) != CAIRO_STATUS_SUCCESS)
        fail("cannot create a picture of " + std::to_string(w) + " x " + std::to_string(h) + " pixels");
}

void fill_keep(cairo_t *cr, rgb colour, double alpha) {
    cairo_set_source_rgba(cr, colour.r, colour.g, colour.b, alpha);
    cairo_fill_preserve(cr);
}

void fill(cairo_t *cr, rgb colour, double alpha) {
    fill_keep(cr, colour, alpha);
    cairo_new_path(cr);
}

void stroke(cairo_t *cr, rgb colour, double line_width, double alpha) {
    cairo_set_source_rgba(cr, colour.r, colour.g, colour.b, alpha);
    cairo_set_line_width(cr, line_width);
    cairo_stroke(cr);
}

void fill_gradient(cairo_t *cr, double x0, double y0, rgb from, double x1, double y1, rgb to) {
    cairo_pattern_t *pattern = cairo_pattern_create_linear(x0, y0, x1, y1);
    cairo_pattern_add_color_stop_rgb(pattern, 0, from.r, from.g, from.b);
    cairo_pattern_add_color_stop_rgb(pattern, 1, to.r, to.g, to.b);
    cairo_set_source(cr, pattern);
    cairo_fill(cr);
    cairo_pattern_destroy(pattern);
}

void rounded_rect(cairo_t *cr, double x, double y, double w, double h, double radius) {
    constexpr double quarter = std::numbers::pi / 2;
    const double r = std::min({radius, w / 2, h / 2});
    cairo_new_sub_path(cr);
    cairo_arc(cr, x + w - r, y + r, r, -quarter, 0);
    cairo_arc(cr, x + w - r, y + h - r, r, 0, quarter);
    cairo_arc(cr, x + r, y + h - r, r, quarter, 2 * quarter);
    cairo_arc(cr, x + r, y + r, r, 2 * quarter, 3 * quarter);
    cairo_close_path(cr);
}

void circle(cairo_t *cr, double cx, double cy, double radius) {
    cairo_new_sub_path(cr);
    cairo_arc(cr, cx, cy, radius, 0, 2 * std::numbers::pi);
    cairo_close_path(cr);
}

void paste(cairo_t *cr, const canvas &part, double x, double y, double alpha) {
    cairo_save(cr);
    cairo_set_source_surface(cr, part.surface.get(), x, y);
    cairo_paint_with_alpha(cr, alpha);
    cairo_restore(cr);
}

} // namespace art
