// xpm.h: the decoder of XPM texts into the screen's pixels.
//
// It scans the text for its quoted strings and reads no declarations. All state lies in the caller's record; the text
// is borrowed and must outlive it. Any thread, one per record. Damaged text ends the decoding with false: nothing is
// read beyond the text, and sizes are checked against it before anybody allocates by them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "resources/xpm_format.h"

#include <span>

// Symbols to pixels: a tree of tables, one level a character. A symbol that was never defined is black.
struct xpm_palette {
    u32 *tables; // owned; an entry for each character: pixels in the last level, above it where the next table begins
    i32 used, capacity; // tables
};

struct xpm {
    std::span<const char> text; // what is left to read, borrowed
    i32 width, height;          // pixels
    i32 colour_count;
    i32 symbol_length; // characters per pixel
    xpm_palette palette;
};

// Reads the values and the colours, as pixels of the screen's format. Call xpm_close whatever the result.
[[nodiscard]] bool xpm_open(xpm *picture, std::span<const char> text);

// Decodes the rows that follow into width x height pixels of the screen's format, rows without padding.
[[nodiscard]] bool xpm_read_pixels(xpm *picture, void *pixels);

void xpm_close(xpm *picture); // frees the palette
