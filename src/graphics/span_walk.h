// span_walk.h: the walk over a picture's run table that every picture routine shares.
//
// A picture that shows whole is drawn from the list of its opaque runs. Else the walk finds the visible part of each
// opaque run and hands it to a pixel rule; transparent runs and all that lies outside the box are stepped over without
// looking at a pixel.
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

// Steps over rows of a run table; null when the picture ends first.
inline const i32 *skip_rows(const i32 *entry, i32 rows) {
    for (; rows > 0; --rows) {
        while (*entry >= 0)
            ++entry;
        if (*entry == RUN_END_PICTURE)
            return nullptr;
        ++entry;
    }
    return entry;
}

// The rows of a walk. INSIDE: no run reaches beyond the box's sides, which most pictures do not, so that nothing has
// to be cut.
template <class Pixel, bool INSIDE, class Rule>
void walk_rows(const frame_buffer &to, const image &picture, i32 x, i32 y, const rect &box, Rule rule) {
    using value = typename Pixel::value;
    const i32 box_right = box.x + box.w;
    const i32 bottom = std::min(box.y + box.h, y + picture.height);
    i32 row = std::max(box.y, y);
    const i32 *entry = skip_rows(picture.runs, row - y);
    const auto *pixels = reinterpret_cast<const value *>(picture.pixels);
    for (; entry != nullptr && row < bottom; ++row, ++entry) {
        value *to_row = reinterpret_cast<value *>(frame_row(to, row));
        const value *from_row = pixels + (row - y) * picture.width;
        i32 column = x;
        while (*entry >= 0) { // a transparent run, then perhaps an opaque one
            column += *entry++ >> Pixel::SHIFT;
            if (*entry < 0)
                break;
            const i32 end = column + (*entry++ >> Pixel::SHIFT);
            const i32 first = INSIDE ? column : std::max(column, box.x), stop = INSIDE ? end : std::min(end, box_right);
            if (first < stop)
                rule(pixel_span<Pixel>{to_row + first, from_row + (first - x), stop - first, first == column,
                                       stop == end});
            column = end;
        }
        if (*entry == RUN_END_PICTURE)
            return;
    }
}

// The walk of a picture that shows whole: one loop over its opaque runs.
template <class Pixel, class Rule>
void walk_list(const frame_buffer &to, const image &picture, i32 x, i32 y, Rule rule) {
    using value = typename Pixel::value;
    u8 *corner = frame_row(to, y) + (static_cast<std::ptrdiff_t>(x) << Pixel::SHIFT);
    const auto *pixels = reinterpret_cast<const value *>(picture.pixels);
    for (const image_span &span : std::span(picture.spans, static_cast<std::size_t>(picture.span_count))) {
        auto *row = reinterpret_cast<value *>(corner + static_cast<std::ptrdiff_t>(span.y) * to.pitch);
        rule(pixel_span<Pixel>{row + span.x, pixels + span.y * picture.width + span.x, span.count, true, true});
    }
}

// Calls rule(pixel_span<Pixel>) for what shows of a picture at (x, y) inside the box, which must lie in the buffer.
template <class Pixel, class Rule>
void walk_spans(const frame_buffer &to, const image &picture, i32 x, i32 y, const rect &box, Rule rule) {
    if (rect_is_empty(box) || picture.runs == nullptr)
        return;
    const bool inside = x >= box.x && x + picture.width <= box.x + box.w;
    if (inside && y >= box.y && y + picture.height <= box.y + box.h && picture.spans != nullptr)
        walk_list<Pixel>(to, picture, x, y, rule);
    else if (inside)
        walk_rows<Pixel, true>(to, picture, x, y, box, rule);
    else
        walk_rows<Pixel, false>(to, picture, x, y, box, rule);
}
