// span_walk.h: the walk over a picture's opaque runs that every picture routine shares.
//
// The walk goes along the list of the opaque runs in the rows that show, finds the visible part of each and hands it to
// a pixel rule. What is transparent or lies outside the box is never looked at.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "graphics/frame_buffers.h"
#include "resources/image.h"

#include <algorithm>
#include <span>

// The visible part of one opaque run.
template <class Pixel> struct pixel_span {
    typename Pixel::value *to;
    const typename Pixel::value *from;
    i32 count;      // pixels, at least 1
    bool has_first; // the run's first pixel is in it
    bool has_last;  // the run's last pixel is in it
};

// The opaque runs in these rows of the picture. Of a picture that shows whole none has to be looked for.
inline std::span<const image_run> runs_of_rows(const image &picture, i32 top, i32 bottom) {
    const auto above = [](i32 row) { return [row](const image_run &run) { return run.y < row; }; };
    const image_run *first = picture.runs, *end = first + picture.run_count;
    if (top > 0)
        first = std::partition_point(first, end, above(top));
    if (bottom < picture.height)
        end = std::partition_point(first, end, above(bottom));
    return {first, end};
}

// CUT: runs may reach beyond the box's sides. Most pictures do not, and so nothing has to be asked of their runs.
template <class Pixel, bool CUT, class Rule>
void walk_list(const frame_buffer &to, const image &picture, i32 x, i32 y, const rect &box, Rule rule) {
    using value = typename Pixel::value;
    const i32 left = box.x - x, right = left + box.w; // of the box, in the picture
    const auto *pixels = reinterpret_cast<const value *>(picture.pixels);
    for (const image_run &run : runs_of_rows(picture, box.y - y, box.y - y + box.h)) {
        const i32 end = run.x + run.count;
        const i32 first = CUT ? std::max<i32>(run.x, left) : run.x, stop = CUT ? std::min(end, right) : end;
        if (CUT && first >= stop)
            continue;
        auto *row = reinterpret_cast<value *>(frame_row(to, y + run.y));
        rule(pixel_span<Pixel>{row + (x + first), pixels + run.y * picture.width + first, stop - first, first == run.x,
                               stop == end});
    }
}

// Calls rule(pixel_span<Pixel>) for what shows of a picture at (x, y) inside the box, which must lie in the buffer.
template <class Pixel, class Rule>
void walk_spans(const frame_buffer &to, const image &picture, i32 x, i32 y, const rect &box, Rule rule) {
    if (rect_is_empty(box))
        return;
    if (x < box.x || x + picture.width > box.x + box.w)
        walk_list<Pixel, true>(to, picture, x, y, box, rule);
    else
        walk_list<Pixel, false>(to, picture, x, y, box, rule);
}
