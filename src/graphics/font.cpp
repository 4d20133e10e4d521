// font.cpp: loading the glyphs.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/font.h"

#include "graphics/glyph_names.h"
#include "graphics/glyphs.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

static constexpr std::size_t PATH_SIZE = 64; // bytes

static bool glyph_load(glyph *g, std::string_view name) {
    char path[PATH_SIZE];
    std::snprintf(path, PATH_SIZE, "%s%.*s.xpm", GLYPH_FOLDER, static_cast<int>(name.size()), name.data());
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
    bool loaded = true;
    each_glyph(
        [&loaded](char c, std::string_view name) { loaded = loaded && glyph_load(&glyphs[static_cast<u8>(c)], name); });
    return loaded ? 1 : -1;
}

void font_shutdown() {
    for (glyph &g : glyphs) {
        image_free(g.working);
        image_free(g.source);
        g = {};
    }
}
