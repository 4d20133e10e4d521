// xpm.h: the decoder of XPM texts into the screen's pixels.
//
// It scans the text for its quoted strings and reads no declarations. All state lies in the caller's record;
// the text is borrowed and must outlive it. Any thread, one per record. Damaged text ends the decoding with
// false: nothing is read beyond the text, and sizes are checked against it before anybody allocates by them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/types.h"

#include <span>

inline constexpr i32 XPM_MAX_SIDE = 8192; // pixels in a direction

// Symbols to pixels. Symbols of one and two characters index a flat table by their last character, in rows of 256, one
// for each first character that occurs; longer ones are searched for in an open-addressed table. A symbol that was
// never defined is black.
struct xpm_palette {
    struct slot {
        u64 key; // the symbol's, plus one; 0 while free
        u32 pixel;
    };
    u32 *flat;       // owned, or null; a pixel, or SYMBOL_UNKNOWN at characters outside the alphabet
    u32 row_of[256]; // first character to the index of its row in flat
    i32 rows;        // of flat in use
    slot *slots;     // owned, or null
    u32 mask;        // number of slots less one
};

struct xpm {
    std::span<const char> text; // what is left to read, borrowed
    i32 width, height;          // pixels
    i32 color_count;
    i32 symbol_length; // characters per pixel
    xpm_palette palette;
};

// Reads the values and the colours, as pixels of the screen's format. Call xpm_close whatever the result.
[[nodiscard]] bool xpm_open(xpm *picture, std::span<const char> text);

// Decodes the rows that follow into width x height pixels of the screen's format, rows without padding.
[[nodiscard]] bool xpm_read_pixels(xpm *picture, void *pixels);

void xpm_close(xpm *picture); // frees the palette
