// xpm.h: the decoder of XPM texts into the screen's pixels.
//
// It scans the text for its quoted strings and reads no declarations. State lies in the caller's record, but for one
// table, which is lent to one record at a time; the text is borrowed and must outlive the record. Any thread, one per
// record. Damaged text ends the decoding with false: nothing is read beyond the text, and sizes are checked against it
// before anybody allocates by them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "resources/xpm_format.h"

#include <span>

// Symbols to pixels. Symbols of one and two characters index a flat table; longer ones are searched for in an
// open-addressed table, and so are short ones while another picture has the flat table, of which there is one. A symbol
// that was never defined is black.
struct xpm_palette {
    struct slot {
        u64 key; // the symbol's, plus one; 0 while free
        u32 pixel;
    };
    slot *slots; // owned; null for the flat table
    u32 mask;    // number of slots less one
    bool flat;   // has the flat table, until xpm_close
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

void xpm_close(xpm *picture); // frees the palette, or gives it back
