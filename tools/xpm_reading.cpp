// xpm_reading.cpp: the decoder, on a screen of 32 bits.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "xpm_reading.h"

#include "resources/xpm.h"

namespace {

xpm_reading read_rows(xpm *source) {
    raster result = {source->width, source->height, {}};
    result.pixels.resize(static_cast<std::size_t>(source->width) * static_cast<std::size_t>(source->height));
    if (!xpm_read_pixels(source, result.pixels.data()))
        return {{}, source->colour_count, "its rows are damaged or end early"};
    for (u32 &pixel : result.pixels)
        pixel = pixel == XPM_KEY ? 0 : PICTURE_OPAQUE | pixel;
    return {std::move(result), source->colour_count, {}};
}

} // namespace

xpm_reading picture_from_xpm(std::string_view bytes) {
    video_format = {.depth = pixel32::BITS, .bytes_per_pixel = sizeof(pixel32::value), .shift = pixel32::SHIFT};
    xpm source;
    const bool opened = xpm_open(&source, {bytes.data(), bytes.size()});
    xpm_reading reading = opened ? read_rows(&source) : xpm_reading{{}, 0, "its size or its colours are damaged"};
    xpm_close(&source);
    return reading;
}
