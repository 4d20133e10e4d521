// font.cpp: loading the glyphs.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/font.h"

#include "graphics/glyphs.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

static constexpr std::size_t PATH_SIZE = 64; // bytes

// Characters whose picture is not named by the character itself.
static constexpr struct named_glyph {
    char character;
    const char *name;
} NAMED_GLYPHS[] = {
    {' ', "space"},       {'!', "exclamation"}, {'"', "quote"},      {'$', "dollarsign"},  {'%', "percent"},
    {'\'', "apostrophe"}, {'(', "lparen"},      {')', "rparen"},     {'*', "asterisk"},    {'+', "plus"},
    {',', "comma"},       {'-', "dash"},        {'.', "period"},     {'/', "slash"},       {':', "colon"},
    {';', "semicolon"},   {'<', "lessthan"},    {'=', "tavimo"},     {'>', "greaterthan"}, {'?', "question"},
    {'@', "copy"},        {'[', "lbracket"},    {'\\', "backslash"}, {']', "rbracket"},    {'_', "underscore"},
};
static_assert(std::is_sorted(std::begin(NAMED_GLYPHS), std::end(NAMED_GLYPHS),
                             [](const named_glyph &a, const named_glyph &b) { return a.character < b.character; }));

static bool is_letter_or_digit(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

// The archive's name of the character's picture; false when it has none.
static bool glyph_path(char c, char (&path)[PATH_SIZE]) {
    const char itself[] = {c, '\0'};
    const char *name = is_letter_or_digit(c) ? itself : nullptr;
    for (const named_glyph &row : NAMED_GLYPHS)
        if (row.character == c)
            name = row.name;
    if (name == nullptr)
        return false;
    std::snprintf(path, PATH_SIZE, "font/normal/%s.xpm", name);
    return true;
}

static bool glyph_load(glyph *g, const char *path) {
    g->source = image_load(path);
    if (g->source == nullptr)
        return false;
    g->width = g->source->width;
    g->height = g->source->height;
    g->red = g->green = g->blue = GLYPH_UNCOLOURED;
    g->working = image_create(g->width, g->height);
    if (g->working == nullptr)
        return false;
    std::memcpy(g->working->pixels, g->source->pixels, static_cast<std::size_t>(g->source->size));
    g->top = std::max(glyph_first_ink(*g->working), 0) / std::max(g->width, 1);
    return image_build_runs(g->working);
}

i32 font_init() {
    std::fill(std::begin(glyphs), std::end(glyphs), glyph{});
    for (i32 code = 0; code < GLYPH_SLOTS; ++code) {
        char path[PATH_SIZE];
        if (glyph_path(static_cast<char>(code), path) && !glyph_load(&glyphs[code], path))
            return -1;
    }
    return 1;
}

void font_shutdown() {
    for (glyph &g : glyphs) {
        image_free(g.working);
        image_free(g.source);
        g = {};
    }
}
