// prim.cpp: rectangles, outlines, lines and noise, for both depths.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/prim.h"

#include "core/base/log.h"
#include "graphics/noise.h"
#include "resources/pixel.h"

#include <algorithm>
#include <cstdlib>

// Calls row(first pixel, count) for each row of what of the area lies in the buffer.
template <class Pixel, class Row> static void each_row(const frame_buffer &to, const rect &area, Row row) {
    const rect cut = rect_cut(area, to.width, to.height);
    if (rect_is_empty(cut))
        return;
    for (i32 y = cut.y; y < cut.y + cut.h; ++y)
        row(reinterpret_cast<typename Pixel::value *>(frame_row(to, y)) + cut.x, cut.w);
}

template <class Pixel> static void darken(const frame_buffer &to, const rect &area) {
    each_row<Pixel>(to, area, [](auto *pixels, i32 count) {
        for (i32 i = 0; i < count; ++i)
            pixels[i] = pixel_halve<Pixel>(pixels[i]);
    });
}

template <class Pixel> static void fill(const frame_buffer &to, const rect &area, rgb colour) {
    const auto pixel = Pixel::from_rgb(colour);
    each_row<Pixel>(to, area, [pixel](auto *pixels, i32 count) { std::fill_n(pixels, count, pixel); });
}

template <class Pixel> static void frame(const frame_buffer &to, const rect &area, rgb colour) {
    const auto [x, y, w, h] = area;
    if (rect_is_empty(area))
        return;
    fill<Pixel>(to, {x, y, w, 1}, colour);
    fill<Pixel>(to, {x, y, 1, h - 1}, colour);
    fill<Pixel>(to, {x + w - 1, y, 1, h - 1}, colour);
    fill<Pixel>(to, {x, y + h - 1, w, 1}, colour);
}

template <class Pixel> static void noise(const frame_buffer &to, const rect &area, rgb limits) {
    each_row<Pixel>(to, area, [limits](auto *pixels, i32 count) {
        for (i32 i = 0; i < count; ++i)
            pixels[i] = Pixel::from_rgb(noise_colour(limits, AREA_NOISE_LOWEST));
    });
}

// Each end is moved onto the buffer by itself, which bends a line that leaves it.
template <class Pixel> static void line(const frame_buffer &to, i32 x0, i32 y0, i32 x1, i32 y1, rgb colour) {
    if (to.width < 1 || to.height < 1)
        return;
    i32 x = std::clamp(x0, 0, to.width - 1), y = std::clamp(y0, 0, to.height - 1);
    const i32 dx = std::clamp(x1, 0, to.width - 1) - x, dy = std::clamp(y1, 0, to.height - 1) - y;
    const i32 across = std::abs(dx), down = std::abs(dy);
    const i32 step_x = (dx > 0) - (dx < 0), step_y = (dy > 0) - (dy < 0);
    const bool steep = across <= down;
    const i32 length = std::max(across, down), rise = std::min(across, down);
    const auto pixel = Pixel::from_rgb(colour);
    i32 error = 0;
    for (i32 i = 0; i < length; ++i) {
        reinterpret_cast<typename Pixel::value *>(frame_row(to, y))[x] = pixel;
        error += rise;
        const bool turn = error >= length;
        error -= turn ? length : 0;
        x += !steep || turn ? step_x : 0;
        y += steep || turn ? step_y : 0;
    }
}

template <class Pixel>
static constexpr prim_routines ROUTINES = {darken<Pixel>, fill<Pixel>, frame<Pixel>, line<Pixel>, noise<Pixel>};

i32 prim_init() {
    if (video_format.depth == pixel16::BITS) {
        prim = &ROUTINES<pixel16>;
    } else if (video_format.depth == pixel32::BITS) {
        prim = &ROUTINES<pixel32>;
    } else {
        log_error("Unsupported color depth: %i\n", video_format.depth);
        return -1;
    }
    return 1;
}
