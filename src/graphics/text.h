// text.h: measuring, wrapping and recording text in the bitmap font.
//
// Main thread. y is the reference line of a text's last line; earlier lines stand 17 pixels apart above it.
// Characters without a glyph are skipped.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline constexpr i32 TEXT_LINE_HEIGHT = 17; // pixels

inline constexpr u32 TEXT_TRANSIENT = 0x1;     // erase the text in the next frame
inline constexpr u32 TEXT_DARKEN = 0x2;        // on a darkened box
inline constexpr u32 TEXT_CENTER_X = 0x4;      // ignore x
inline constexpr u32 TEXT_CENTER_Y = 0x8;      // ignore y
inline constexpr u32 TEXT_BLACK_BOX = 0x10;    // on a black box
inline constexpr u32 TEXT_TO_BG = 0x20;        // into the background
inline constexpr u32 TEXT_DARKEN_TWICE = 0x40; // on a box at a quarter of its brightness

struct text_size {
    i32 width;
    i32 height; // of the ink above the reference line
    i32 top;    // deepest ink below it
};

text_size text_measure(const char *text);                              // of all lines; null and "" measure 0
void text_wrap(char *text, i32 max_width);                             // turns spaces into line feeds, in place
void text_draw(const char *text, i32 x, i32 y, rgb colour, u32 flags); // null draws nothing
