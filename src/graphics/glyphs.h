// glyphs.h: the table of loaded glyphs, one slot a character code.
//
// Filled by font_init and emptied by font_shutdown. Measuring reads only what never changes after loading; the
// working pictures and their cached factors belong to the player of DRAW_TEXT, under the surface lock.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"

struct glyph {
    image *working; // owned; the glyph in the colour it was drawn in last; null when there is no glyph
    image *source;  // owned; the glyph as loaded
    i32 width, height;
    i32 top;              // first row that holds ink, 0 for an empty glyph
    i32 red, green, blue; // the working picture's factors, GLYPH_UNCOLOURED before its first use
};
inline constexpr i32 GLYPH_UNCOLOURED = -1;

inline constexpr i32 GLYPH_SLOTS = 256;
inline glyph glyphs[GLYPH_SLOTS];

// Whether the character has a glyph.
inline bool glyph_exists(const glyph &g) {
    return g.working != nullptr;
}

// The first pixel that is not the colour key, counted from 0 in row order; -1 when there is none.
i32 glyph_first_ink(const image &picture);

void glyph_use_colour(glyph *g, i32 red, i32 green, i32 blue); // the working picture; under the surface lock
