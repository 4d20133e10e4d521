// text.cpp: text as outlines, and colour emoji, on a canvas.
//
// Outlines come straight from the font in its design units, without hinting, so a text looks the same
// wherever on the pixel grid it stands.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "text.h"

#include "faces.h"
#include "fail.h"

#include FT_OUTLINE_H

#include <algorithm>
#include <cstring>
#include <vector>

namespace art {
namespace {

// Where an outline goes: font units to canvas pixels.
struct outline_pen {
    cairo_t *cr;
    double x, y, scale;
    double last_x = 0, last_y = 0; // font units; a quadratic curve needs its start

    double px(FT_Pos v) const { return x + static_cast<double>(v) * scale; }
    double py(FT_Pos v) const { return y - static_cast<double>(v) * scale; }
};

int move_to(const FT_Vector *to, void *user) {
    auto *pen = static_cast<outline_pen *>(user);
    cairo_close_path(pen->cr);
    cairo_move_to(pen->cr, pen->px(to->x), pen->py(to->y));
    return 0;
}

int line_to(const FT_Vector *to, void *user) {
    auto *pen = static_cast<outline_pen *>(user);
    cairo_line_to(pen->cr, pen->px(to->x), pen->py(to->y));
    return 0;
}

int conic_to(const FT_Vector *control, const FT_Vector *to, void *user) {
    auto *pen = static_cast<outline_pen *>(user);
    double x0 = 0, y0 = 0;
    cairo_get_current_point(pen->cr, &x0, &y0);
    const double cx = pen->px(control->x), cy = pen->py(control->y);
    const double x1 = pen->px(to->x), y1 = pen->py(to->y);
    cairo_curve_to(pen->cr, x0 + (cx - x0) * 2 / 3, y0 + (cy - y0) * 2 / 3, x1 + (cx - x1) * 2 / 3,
                   y1 + (cy - y1) * 2 / 3, x1, y1);
    return 0;
}

int cubic_to(const FT_Vector *c1, const FT_Vector *c2, const FT_Vector *to, void *user) {
    auto *pen = static_cast<outline_pen *>(user);
    cairo_curve_to(pen->cr, pen->px(c1->x), pen->py(c1->y), pen->px(c2->x), pen->py(c2->y), pen->px(to->x),
                   pen->py(to->y));
    return 0;
}

void load_glyph(FT_Face font, char32_t code) {
    const FT_UInt glyph = FT_Get_Char_Index(font, code);
    if (glyph == 0 || FT_Load_Glyph(font, glyph, FT_LOAD_NO_SCALE) != 0)
        fail(std::string("the font ") + font->family_name + " has no character " + std::to_string(code));
}

// Pixels per font unit at which the letter H is `cap_height` high.
double cap_scale(FT_Face font, double cap_height) {
    load_glyph(font, U'H');
    return cap_height / static_cast<double>(font->glyph->metrics.horiBearingY);
}

// A zero with a dot inside has three contours; children read it better without the innermost one.
void drop_zero_dot(FT_Outline &outline) {
    if (outline.n_contours != 3)
        return;
    int smallest = 0;
    FT_Pos smallest_height = 0;
    for (int c = 0, start = 0; c < outline.n_contours; ++c) {
        const auto [low, high] = std::minmax_element(outline.points + start, outline.points + outline.contours[c] + 1,
                                                     [](FT_Vector a, FT_Vector b) { return a.y < b.y; });
        if (c == 0 || high->y - low->y < smallest_height) {
            smallest = c;
            smallest_height = high->y - low->y;
        }
        start = outline.contours[c] + 1;
    }
    // Collapsing a contour to one point is enough: it encloses nothing.
    const int first = smallest == 0 ? 0 : outline.contours[smallest - 1] + 1;
    for (int i = first; i <= outline.contours[smallest]; ++i)
        outline.points[i] = outline.points[first];
}

} // namespace

double text_width(face f, double cap_height, std::string_view utf8) {
    FT_Face font = open_face(f);
    const double scale = cap_scale(font, cap_height);
    double width = 0;
    while (!utf8.empty()) {
        load_glyph(font, next_code_point(utf8));
        width += static_cast<double>(font->glyph->advance.x) * scale;
    }
    return width;
}

void text_path(cairo_t *cr, face f, double cap_height, double x, double y, align a, std::string_view utf8) {
    FT_Face font = open_face(f);
    outline_pen pen = {.cr = cr, .x = x, .y = y, .scale = cap_scale(font, cap_height)};
    if (a != align::left)
        pen.x -= text_width(f, cap_height, utf8) / (a == align::centre ? 2 : 1);
    const FT_Outline_Funcs calls = {move_to, line_to, conic_to, cubic_to, 0, 0};
    while (!utf8.empty()) {
        const char32_t code = next_code_point(utf8);
        load_glyph(font, code);
        if (code == U'0' && f == face::dosis_bold)
            drop_zero_dot(font->glyph->outline);
        if (FT_Outline_Decompose(&font->glyph->outline, &calls, &pen) != 0)
            fail("a glyph's outline cannot be read");
        cairo_close_path(cr);
        pen.x += static_cast<double>(font->glyph->advance.x) * pen.scale;
    }
}

void text(cairo_t *cr, face f, double cap_height, double x, double y, align a, std::string_view utf8, rgb colour,
          double alpha) {
    cairo_new_path(cr);
    text_path(cr, f, cap_height, x, y, a, utf8);
    fill(cr, colour, alpha);
}

// --- Emoji ---------------------------------------------------------------------------------------

namespace {

constexpr char32_t VARIATION_SELECTORS_FIRST = 0xFE00, VARIATION_SELECTORS_LAST = 0xFE0F;

// The ink's rectangle in a premultiplied BGRA bitmap.
cairo_rectangle_int_t ink_box(const FT_Bitmap &bitmap) {
    int left = static_cast<int>(bitmap.width), top = static_cast<int>(bitmap.rows), right = 0, bottom = 0;
    for (int y = 0; y < static_cast<int>(bitmap.rows); ++y) {
        for (int x = 0; x < static_cast<int>(bitmap.width); ++x) {
            if (bitmap.buffer[y * bitmap.pitch + x * 4 + 3] < 32)
                continue;
            left = std::min(left, x), right = std::max(right, x + 1);
            top = std::min(top, y), bottom = std::max(bottom, y + 1);
        }
    }
    return {left, top, right - left, bottom - top};
}

} // namespace

void emoji(cairo_t *cr, std::string_view utf8, double x, double y, double size) {
    FT_Face font = open_emoji_face();
    const std::string name(utf8);
    const char32_t code = next_code_point(utf8);
    if (!utf8.empty()) {
        const char32_t selector = next_code_point(utf8);
        if (selector < VARIATION_SELECTORS_FIRST || selector > VARIATION_SELECTORS_LAST || !utf8.empty())
            fail("the emoji \"" + name + "\" is made of several characters");
    }
    const FT_UInt glyph = FT_Get_Char_Index(font, code);
    if (glyph == 0 || font->num_fixed_sizes < 1 || FT_Select_Size(font, 0) != 0 ||
        FT_Load_Glyph(font, glyph, FT_LOAD_COLOR) != 0 || font->glyph->bitmap.pixel_mode != FT_PIXEL_MODE_BGRA)
        fail("the emoji font has no coloured bitmap for \"" + name + "\"");

    // FreeType's BGRA bytes are Cairo's ARGB32 on a little-endian machine.
    const FT_Bitmap &bitmap = font->glyph->bitmap;
    canvas strike(static_cast<int>(bitmap.width), static_cast<int>(bitmap.rows));
    cairo_surface_flush(strike.surface.get());
    unsigned char *rows = cairo_image_surface_get_data(strike.surface.get());
    const int stride = cairo_image_surface_get_stride(strike.surface.get());
    for (int row = 0; row < strike.height; ++row)
        std::memcpy(rows + row * stride, bitmap.buffer + row * bitmap.pitch,
                    static_cast<std::size_t>(bitmap.width) * 4);
    cairo_surface_mark_dirty(strike.surface.get());

    const cairo_rectangle_int_t ink = ink_box(bitmap);
    const double scale = size / std::max(ink.width, ink.height);
    cairo_save(cr);
    cairo_translate(cr, x + (size - ink.width * scale) / 2, y + (size - ink.height * scale) / 2);
    cairo_scale(cr, scale, scale);
    cairo_set_source_surface(cr, strike.surface.get(), -ink.x, -ink.y);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_BEST);
    cairo_paint(cr);
    cairo_restore(cr);
}

namespace {

constexpr double OUTLINE_LIGHTNESS = 0.62, OUTLINE_CHROMA = 1.15; // of the tone beside it
constexpr double DIAGONAL = 0.6; // how much of a diagonal neighbour's cover reaches a pixel of the outline

// Premultiplied pixels of a canvas; nothing beyond its edges.
struct pixel_view {
    const unsigned char *data;
    int stride, width, height;

    std::uint32_t at(int x, int y) const {
        if (x < 0 || y < 0 || x >= width || y >= height)
            return 0;
        return reinterpret_cast<const std::uint32_t *>(data + y * stride)[x];
    }
};

// How far the pixel lies on the outline, and in which tone: a darker one of what it touches.
struct outline_pixel {
    double cover = 0;
    rgb tone;
};

outline_pixel outline_at(const pixel_view &view, int x, int y) {
    outline_pixel out;
    double weight = 0;
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const std::uint32_t argb = view.at(x + dx, y + dy);
            const double alpha = (argb >> 24) / 255.0, reach = dx != 0 && dy != 0 ? DIAGONAL : 1;
            out.cover = std::max(out.cover, alpha * reach);
            out.tone.r += ((argb >> 16) & 0xFF) / 255.0 * reach;
            out.tone.g += ((argb >> 8) & 0xFF) / 255.0 * reach;
            out.tone.b += (argb & 0xFF) / 255.0 * reach;
            weight += alpha * reach;
        }
    }
    if (weight <= 0)
        return {};
    const lch own = to_lch({out.tone.r / weight, out.tone.g / weight, out.tone.b / weight});
    out.tone = to_rgb({own.l * OUTLINE_LIGHTNESS, own.c * OUTLINE_CHROMA, own.h});
    return out;
}

} // namespace

void outlined_emoji(cairo_t *cr, std::string_view utf8, int x, int y, int size) {
    canvas inner(size, size);
    emoji(inner, utf8, 1, 1, size - 2);
    cairo_surface_flush(inner.surface.get());
    const pixel_view view = {cairo_image_surface_get_data(inner.surface.get()),
                             cairo_image_surface_get_stride(inner.surface.get()), size, size};
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column) {
            const outline_pixel p = outline_at(view, column, row);
            cairo_rectangle(cr, x + column, y + row, 1, 1);
            fill(cr, p.tone, p.cover);
        }
    }
    paste(cr, inner, x, y);
}

} // namespace art
