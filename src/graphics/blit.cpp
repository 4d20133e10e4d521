// blit.cpp: the picture routines: one walk, one pixel rule each, for both depths.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/blit.h"

#include "core/base/log.h"
#include "graphics/noise.h"
#include "graphics/span_walk.h"
#include "resources/pixel.h"
#include "resources/xpm_format.h"

#include <algorithm>

static rect bounds_of(const frame_buffer &buffer) {
    return {0, 0, buffer.width, buffer.height};
}

template <class Pixel> static void copy_span(const pixel_span<Pixel> &span) {
    std::copy_n(span.from, span.count, span.to);
}

template <class Pixel> static void blit_plain(const frame_buffer &to, const image &picture, i32 x, i32 y) {
    walk_spans<Pixel>(to, picture, x, y, bounds_of(to), copy_span<Pixel>);
}

template <class Pixel>
static void blit_clipped(const frame_buffer &to, const image &picture, i32 x, i32 y, const rect &clip) {
    walk_spans<Pixel>(to, picture, x, y, rect_push_in(clip, to.width, to.height), copy_span<Pixel>);
}

// Walks what the command names of the picture, with the rule and the coloured ends of runs on top.
template <class Pixel, class Rule> static void paint(const frame_buffer &to, const image_ex_operands &op, Rule rule) {
    const bool part = (op.mode & BLIT_SOURCE_RECT) != 0;
    const bool edge = (op.mode & BLIT_EDGE) != 0;
    const rect box = part ? rect_cut({op.x, op.y, op.source.w, op.source.h}, to.width, to.height) : bounds_of(to);
    const i32 x = part ? op.x - op.source.x : op.x;
    const i32 y = part ? op.y - op.source.y : op.y;
    const auto edge_pixel = Pixel::from_rgb(op.colour_b);
    walk_spans<Pixel>(to, *op.picture, x, y, box, [&](const pixel_span<Pixel> &span) {
        rule(span);
        if (edge && span.has_first)
            span.to[0] = edge_pixel;
        if (edge && span.has_last)
            span.to[span.count - 1] = edge_pixel;
    });
}

// to[i] = rule(to[i], from[i])
template <class Pixel, class Rule> static void change(const pixel_span<Pixel> &span, Rule rule) {
    for (i32 i = 0; i < span.count; ++i)
        span.to[i] = rule(span.to[i], span.from[i]);
}

template <class Pixel> static void blit_by_mode(const frame_buffer &to, const image_ex_operands &op) {
    using value = typename Pixel::value;
    using span_of = const pixel_span<Pixel> &;
    const value colour = Pixel::from_rgb(op.colour_a);
    if ((op.mode & BLIT_FILL) != 0)
        paint<Pixel>(to, op, [=](span_of span) { std::fill_n(span.to, span.count, colour); });
    else if ((op.mode & BLIT_TINT) != 0)
        paint<Pixel>(to, op, [=](span_of span) {
            change(span, [=](value under, value) { return pixel_blend_half<Pixel>(under, colour); });
        });
    else if ((op.mode & BLIT_NOISE) != 0)
        paint<Pixel>(to, op, [&](span_of span) {
            change(span,
                   [&](value, value) { return Pixel::from_rgb(noise_colour(op.colour_a, PICTURE_NOISE_LOWEST)); });
        });
    else if ((op.mode & BLIT_OR) != 0)
        paint<Pixel>(to, op, [=](span_of span) {
            change(span, [=](value under, value) { return pixel_or_rgb<Pixel>(under, colour); });
        });
    else if ((op.mode & BLIT_HALF) != 0)
        paint<Pixel>(to, op, [](span_of span) { change(span, pixel_blend_half<Pixel>); });
    else
        paint<Pixel>(to, op, copy_span<Pixel>);
}

template <class Pixel>
static constexpr blit_routines ROUTINES = {blit_plain<Pixel>, blit_clipped<Pixel>, blit_by_mode<Pixel>};

template <class Pixel> static void use_depth(rgb key) {
    blit = &ROUTINES<Pixel>;
    colour_key = Pixel::to_rgb(Pixel::from_rgb(key));
}

i32 blit_init() {
    const rgb key = pixel32::to_rgb(XPM_KEY);
    if (video_format.bytes_per_pixel == sizeof(pixel16::value)) {
        use_depth<pixel16>(key);
    } else if (video_format.bytes_per_pixel == sizeof(pixel32::value)) {
        use_depth<pixel32>(key);
    } else {
        log_error("Unsupported color depth: %i\n", video_format.depth);
        return -1;
    }
    return 1;
}
