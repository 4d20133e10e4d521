// canvas.cpp: the drawing surface, fills, strokes and simple paths.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "canvas.h"

#include "fail.h"

#include <algorithm>
#include <numbers>
#include <string>

namespace art {

canvas::canvas(int w, int h)
    : width(w), height(h), surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h)),
      context(cairo_create(surface.get())) {
    if (w < 1 || h < 1 || cairo_status(context.get()) != CAIRO_STATUS_SUCCESS)
        fail("cannot create a picture of " + std::to_string(w) + " x " + std::to_string(h) + " pixels");
}

std::uint32_t *row_of(const canvas &picture, int y) {
    cairo_surface_flush(picture.surface.get());
    unsigned char *data = cairo_image_surface_get_data(picture.surface.get());
    return reinterpret_cast<std::uint32_t *>(data + y * cairo_image_surface_get_stride(picture.surface.get()));
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
