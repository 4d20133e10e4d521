// text.h: text as outlines, and colour emoji, on a canvas. One thread; failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

#include <string_view>

namespace art {

enum class face { dosis_bold, andika_bold, andika, cherry_bomb };
enum class align { left, centre, right };

// Draws one line of UTF-8 text as filled outlines, unhinted, its baseline at y. `cap_height` is the
// height of capitals and digits in pixels. The dot inside Dosis' zero is left out.
void text(cairo_t *cr, face f, double cap_height, double x, double y, align a, std::string_view utf8, rgb colour,
          double alpha = 1);
// Appends the same outlines to the current path instead.
void text_path(cairo_t *cr, face f, double cap_height, double x, double y, align a, std::string_view utf8);
double text_width(face f, double cap_height, std::string_view utf8);

// Draws a colour emoji (one UTF-8 sequence) into the square (x, y, size, size).
void emoji(cairo_t *cr, std::string_view utf8, double x, double y, double size);
// The same within a thin outline in darker tones of its own, so that pale things stand off a pale ground.
// The outline lies inside the square too.
void outlined_emoji(cairo_t *cr, std::string_view utf8, int x, int y, int size);

} // namespace art
