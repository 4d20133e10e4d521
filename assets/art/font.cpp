// font.cpp: the glyphs of the game's own font.
//
// The game knows only which pixels of a glyph are not transparent, and how light they are. A glyph is
// hinted to the pixel grid, and only pixels that are mostly ink are kept: in black text every kept pixel
// is equally black, so faint edges would clog the letters.
//
// The game draws a glyph's bottom row at the reference line plus the number of empty rows above its ink.
// So ink that stands on the line is cropped, ink that goes below it by d rows gets d empty rows above,
// and ink that ends above it keeps the empty rows below.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "faces.h"
#include "fail.h"
#include "graphics/glyph_names.h"
#include "save.h"
#include "sets.h"
#include "text.h"
#include "things.h"

#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <vector>

namespace art {
namespace {

constexpr int SIZE_26_6 = 800;    // 12.5 pixels to the em
constexpr int MIN_COVERAGE = 140; // of 255: 55 %
constexpr int DARKEST = 0x90;     // grey level of a pixel that is just kept; full ink is white
constexpr int PEN_GAP = 1;        // the pen adds it after every glyph
constexpr int SPACE_ADVANCE = 4;
constexpr int SMALL_LETTER = 7;                 // rows above the reference line
constexpr int ASCENT_MAX = 15, DESCENT_MAX = 4; // rows above and below the reference line

// Grey levels of a glyph (0: no ink); `base` is the row on which the reference line runs: ink in row
// base - 1 stands on it.
struct grey_glyph {
    int width = 0, height = 0, base = 0, advance = 0, bearing = 0;
    std::vector<int> levels;

    [[nodiscard]] int at(int x, int y) const { return levels[static_cast<std::size_t>(y * width + x)]; }
};

int grey_level(int coverage) {
    if (coverage < MIN_COVERAGE)
        return 0;
    return DARKEST + (0xFF - DARKEST) * (coverage - MIN_COVERAGE) / (0xFF - MIN_COVERAGE);
}

// Loads a hinted glyph, moves it right by `shift` (1/64 pixel) and renders it.
const FT_Bitmap &rasterise(FT_Face font, char32_t code, int shift) {
    const FT_UInt index = FT_Get_Char_Index(font, code);
    if (index == 0 || FT_Load_Glyph(font, index, FT_LOAD_TARGET_NORMAL) != 0)
        fail("the game's font has no character " + std::to_string(code));
    FT_Outline_Translate(&font->glyph->outline, shift, 0);
    if (FT_Render_Glyph(font->glyph, FT_RENDER_MODE_NORMAL) != 0)
        fail("a glyph cannot be rendered");
    return font->glyph->bitmap;
}

// How far the pixels are from being either ink or none.
int blur(const FT_Bitmap &bitmap) {
    int sum = 0;
    for (int y = 0; y < static_cast<int>(bitmap.rows); ++y) {
        for (int x = 0; x < static_cast<int>(bitmap.width); ++x) {
            const int coverage = bitmap.buffer[y * bitmap.pitch + x];
            sum += std::min(coverage, 0xFF - coverage);
        }
    }
    return sum;
}

// The font's hints settle the rows only; of all places between two columns take the sharpest.
int sharpest_shift(FT_Face font, char32_t code) {
    constexpr int half = 32, step = 4;
    int best = 0, best_blur = blur(rasterise(font, code, 0));
    for (int shift = -half; shift < half; shift += step) {
        const int b = blur(rasterise(font, code, shift));
        if (b < best_blur) {
            best = shift;
            best_blur = b;
        }
    }
    return best;
}

grey_glyph render(char32_t code) {
    FT_Face font = open_face(face::andika_bold);
    FT_Set_Char_Size(font, 0, SIZE_26_6, 72, 72);
    const FT_Bitmap &bitmap = rasterise(font, code, sharpest_shift(font, code));
    grey_glyph glyph = {.width = static_cast<int>(bitmap.width),
                        .height = static_cast<int>(bitmap.rows),
                        .base = font->glyph->bitmap_top,
                        .advance = static_cast<int>((font->glyph->advance.x + 32) >> 6),
                        .bearing = font->glyph->bitmap_left,
                        .levels = {}};
    for (int y = 0; y < glyph.height; ++y) {
        for (int x = 0; x < glyph.width; ++x)
            glyph.levels.push_back(grey_level(bitmap.buffer[y * bitmap.pitch + x]));
    }
    return glyph;
}

// Cuts off the rows and columns without ink at the edges; what is cut on the left becomes bearing.
void crop(grey_glyph &glyph) {
    int left = glyph.width, right = 0, top = glyph.height, bottom = 0;
    for (int y = 0; y < glyph.height; ++y) {
        for (int x = 0; x < glyph.width; ++x) {
            if (glyph.at(x, y) == 0)
                continue;
            left = std::min(left, x), right = std::max(right, x + 1);
            top = std::min(top, y), bottom = std::max(bottom, y + 1);
        }
    }
    if (right == 0)
        return;
    std::vector<int> levels;
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x)
            levels.push_back(glyph.at(x, y));
    }
    glyph = {.width = right - left,
             .height = bottom - top,
             .base = glyph.base - top,
             .advance = glyph.advance,
             .bearing = glyph.bearing + left,
             .levels = levels};
}

// Whether the first column is an upright stroke, as in B or n; a dash or an apostrophe is too low for one.
bool begins_upright(const grey_glyph &glyph) {
    int ink = 0;
    for (int y = 0; y < glyph.height; ++y)
        ink += glyph.at(0, y) > 0;
    return 2 * ink > std::max(glyph.height, SMALL_LETTER);
}

// Writes a glyph so that its reference line comes out right; see the head of this file.
void save_glyph(grey_glyph glyph, std::string_view name) {
    crop(glyph);
    const int below = std::max(0, glyph.height - glyph.base), above_line = std::max(0, glyph.base - glyph.height);
    if (glyph.base > ASCENT_MAX || below > DESCENT_MAX)
        fail("the glyph " + std::string(name) + " is too high for the lines of a text");
    // Two neighbours with upright edges need more than the pen's column between them.
    const int least = PEN_GAP + (begins_upright(glyph) ? 1 : 0);
    // An apostrophe hangs over the letters and needs no room beside them.
    const int side = above_line >= SMALL_LETTER ? PEN_GAP : std::max(least, glyph.advance - glyph.width);
    const int left = std::clamp(glyph.bearing, std::min(least, side) - PEN_GAP, side - PEN_GAP);
    const int width = glyph.width + side - PEN_GAP;
    canvas picture(width, below + glyph.height + above_line);
    for (int y = 0; y < glyph.height; ++y) {
        for (int x = 0; x < glyph.width; ++x) {
            const double level = glyph.at(x, y) / 255.0;
            if (level <= 0)
                continue;
            cairo_rectangle(picture, left + x, below + y, 1, 1);
            fill(picture, {level, level, level});
        }
    }
    save(picture, entry_of_glyph(name));
}

// The program's mark: a small jigsaw piece standing on the line.
grey_glyph draw_mark() {
    constexpr int width = 11, height = 11;
    canvas mark(width, height);
    jigsaw_outline(mark, 0, 3, 8, 8, {1, 1, 0, -1}, 3);
    fill(mark, {1, 1, 1});
    grey_glyph glyph = {
        .width = width, .height = height, .base = height, .advance = width + 2, .bearing = 0, .levels = {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            glyph.levels.push_back(grey_level(static_cast<int>(row_of(mark, y)[x] >> 24)));
    }
    return glyph;
}

} // namespace

void make_font() {
    each_glyph([](char c, std::string_view name) {
        if (c == ' ')
            save(canvas(SPACE_ADVANCE - PEN_GAP, 1), entry_of_glyph(name));
        else if (c == '=')
            save_glyph(draw_mark(), name);
        else
            save_glyph(render(c == '@' ? U'©' : static_cast<char32_t>(c)), name);
    });
}

} // namespace art
