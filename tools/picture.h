// picture.h: pictures on their way into an archive and out of it: PNG, XPM, and the reduction in between.
//
// An archive's pictures have 5-6-5 colours and no half-transparent pixels; transparent is one key colour. The game's
// own decoder reads the XPM, so what it refuses is refused here. Failures are exceptions (fail.h) unless said.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct raster {
    i32 width, height;       // pixels
    std::vector<u32> pixels; // 0xAARRGGBB, row after row; one of alpha 0 is transparent
};

std::string picture_size_text(i32 width, i32 height); // such as "57x52"

// Why an XPM could not be read; empty when it could.
struct xpm_reading {
    std::optional<raster> result; // alpha 0 or 255
    i32 color_count;
    std::string fault;
};
xpm_reading picture_from_xpm(std::string_view bytes);

// Of a reduced picture. The same picture always gives the same bytes.
std::string picture_to_xpm(const raster &reduced);

raster picture_from_png(std::string_view bytes, const std::string &name);
std::string picture_to_png(const raster &source, const std::string &name);

// The first opaque pixel that a 16-bit screen could not tell from the key colour, as a sentence about the pixel;
// empty for none.
std::string picture_accident(const raster &source);

// Makes every pixel opaque or transparent and reduces the colours to 5-6-5 by ordered dithering; a colour that is
// 5-6-5 already stays as it is. Where that leaves more colours than an XPM can hold, to fewer shades. Fails with
// the name, the pixel and the way out where an opaque pixel would turn transparent.
raster picture_reduce(const raster &source, const std::string &name);
