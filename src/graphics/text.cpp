// text.cpp: measuring, wrapping and recording text.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/text.h"

#include "graphics/draw_list.h"
#include "graphics/glyphs.h"

#include <algorithm>
#include <cstring>

static constexpr i32 GLYPH_GAP = 1;        // pixels between two glyphs
static constexpr i32 BOX_MARGIN = 2;       // pixels from the text to the edge of its box
static constexpr i32 ERASE_OVERLAP = 1;    // rows that erasing reaches below the text or its box
static constexpr i32 LINE_LIMIT = 1 << 20; // pixels, wider than any line; where nothing fits, wrapping would double up
static constexpr u32 TEXT_BOXED = TEXT_DARKEN | TEXT_DARKEN_TWICE | TEXT_BLACK_BOX;
static constexpr u32 TEXT_MEASURED = TEXT_CENTER_X | TEXT_CENTER_Y | TEXT_BOXED | TEXT_TRANSIENT;

static const glyph &glyph_of(char c) {
    return glyphs[static_cast<u8>(c)];
}

static i32 advance_of(const glyph &g) {
    return g.width + GLYPH_GAP;
}

text_size text_measure(const char *text) {
    text_size size = {0, 0, 0};
    i32 line = 0;
    for (; text != nullptr && *text != '\0'; ++text) {
        const glyph &g = glyph_of(*text);
        if (*text == '\n') {
            line = 0;
            size.height += TEXT_LINE_HEIGHT;
        } else if (glyph_exists(g)) {
            line += advance_of(g);
            size.width = std::max(size.width, line);
            size.top = std::max(size.top, g.top);
            size.height = std::max(size.height, g.height);
        }
    }
    return size;
}

void text_wrap(char *text, i32 max_width) {
    char *space = nullptr;
    i32 line = 0, line_at_space = 0;
    for (; text != nullptr && *text != '\0'; ++text) {
        if (*text == '\n') {
            line = 0;
            continue;
        }
        line += advance_of(glyph_of(*text));
        if (*text == ' ') {
            space = text;
            line_at_space = line;
        }
        if (line > max_width) {
            line = std::clamp(line - line_at_space, -LINE_LIMIT, LINE_LIMIT);
            if (space != nullptr)
                *space = '\n';
            space = nullptr;
        }
    }
}

// A black box begins at the text itself, without the margin that a darkened one has on its left.
static void draw_box(const rect &box, i32 text_x, u32 flags) {
    if ((flags & (TEXT_DARKEN | TEXT_DARKEN_TWICE)) != 0)
        draw_darken(box);
    if ((flags & TEXT_DARKEN_TWICE) != 0)
        draw_darken(box);
    if ((flags & TEXT_BOXED) == TEXT_BLACK_BOX)
        draw_fill({text_x, box.y, box.w, box.h}, BLACK, false);
}

static void draw_glyphs(const char *text, i32 x, i32 y, rgb colour, bool to_background) {
    i32 above = TEXT_LINE_HEIGHT * static_cast<i32>(std::count(text, text + std::strlen(text), '\n'));
    i32 pen = x;
    for (; *text != '\0'; ++text) {
        const glyph &g = glyph_of(*text);
        if (*text == '\n') {
            pen = x;
            above -= TEXT_LINE_HEIGHT;
        } else if (glyph_exists(g)) {
            draw_character(*text, pen, y + g.top - g.height - above, colour, to_background);
            pen += advance_of(g);
        }
    }
}

void text_draw(const char *text, i32 x, i32 y, rgb colour, u32 flags) {
    if (text == nullptr)
        return;
    const text_size size = (flags & TEXT_MEASURED) != 0 ? text_measure(text) : text_size{};
    if ((flags & TEXT_CENTER_X) != 0)
        x = center_x(size.width);
    if ((flags & TEXT_CENTER_Y) != 0)
        y = center_y(size.height + size.top);
    const rect ink = {x, y - size.height, size.width, size.height + size.top};
    const rect box = {ink.x - BOX_MARGIN, ink.y - BOX_MARGIN, ink.w + 2 * BOX_MARGIN, ink.h + 2 * BOX_MARGIN};
    draw_box(box, x, flags);
    draw_glyphs(text, x, y, colour, (flags & TEXT_TO_BG) != 0);
    if ((flags & TEXT_TRANSIENT) != 0) {
        const rect &erased = (flags & TEXT_BOXED) != 0 ? box : ink;
        draw_restore_next({erased.x, erased.y, erased.w, erased.h + ERASE_OVERLAP});
    }
}
