// dirty.cpp: collecting changed rectangles, merging those that nearly coincide, and showing them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/dirty.h"

#include "core/base/log.h"
#include "graphics/frame_buffers.h"
#include "graphics/locks.h"
#include "resources/pixel.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

// Rectangles whose place and size differ by no more than this become one.
static constexpr i32 MERGE_DISTANCE = 10; // pixels

static constexpr i32 GROWTH = 64; // rectangles

static struct {
    SDL_Rect *rects; // owned
    i32 count, capacity;
    bool all_shown; // SDL was given nothing the last time
} dirty;

std::span<const SDL_Rect> dirty_rects() {
    return {dirty.rects, static_cast<std::size_t>(dirty.count)};
}

void dirty_free() {
    std::free(dirty.rects);
    dirty = {};
}

static rect from_sdl(const SDL_Rect &r) {
    return {r.x, r.y, r.w, r.h};
}

static SDL_Rect to_sdl(const rect &r) {
    return {static_cast<Sint16>(r.x), static_cast<Sint16>(r.y), static_cast<Uint16>(r.w), static_cast<Uint16>(r.h)};
}

static i32 last_column(const rect &r) {
    return r.x + r.w - 1;
}
static i32 last_row(const rect &r) {
    return r.y + r.h - 1;
}

static bool overlap(const rect &a, const rect &b) {
    return a.x <= last_column(b) && b.x <= last_column(a) && a.y <= last_row(b) && b.y <= last_row(a);
}

static bool lies_inside(const rect &inner, const rect &outer) {
    return inner.x >= outer.x && last_column(inner) <= last_column(outer) && inner.y >= outer.y &&
           last_row(inner) <= last_row(outer);
}

static bool nearly_equal(const rect &a, const rect &b) {
    const auto close = [](i32 m, i32 n) { return std::abs(m - n) <= MERGE_DISTANCE; };
    return close(a.x, b.x) && close(a.y, b.y) && close(a.w, b.w) && close(a.h, b.h);
}

static rect union_of(const rect &a, const rect &b) {
    const i32 left = std::min(a.x, b.x), top = std::min(a.y, b.y);
    return {left, top, std::max(last_column(a), last_column(b)) - left + 1,
            std::max(last_row(a), last_row(b)) - top + 1};
}

// --- The list -------------------------------------------------------------------------------------

static bool reserve() {
    if (dirty.count < dirty.capacity)
        return true;
    const std::size_t slots = static_cast<std::size_t>(dirty.capacity) + GROWTH;
    void *rects = std::realloc(dirty.rects, slots * sizeof(SDL_Rect));
    if (rects == nullptr) {
        log_out_of_memory();
        return false;
    }
    dirty.rects = static_cast<SDL_Rect *>(rects);
    dirty.capacity += GROWTH;
    return true;
}

void dirty_add(i32 x, i32 y, i32 w, i32 h) {
    lock_assert(surface_lock);
    rect added = rect_cut({x, y, w, h}, SCREEN_WIDTH, SCREEN_HEIGHT);
    if (rect_is_empty(added))
        return;
    bool merged = false;
    for (i32 i = 0; i < dirty.count;) {
        const rect stored = from_sdl(dirty.rects[i]);
        const bool near = overlap(stored, added);
        if (near && lies_inside(added, stored))
            return;
        if (near && lies_inside(stored, added)) {
            dirty.rects[i] = dirty.rects[--dirty.count];
            continue;
        }
        if (near && nearly_equal(added, stored)) {
            added = union_of(added, stored);
            dirty.rects[i] = to_sdl(added);
            merged = true;
        }
        ++i;
    }
    if (!merged && reserve())
        dirty.rects[dirty.count++] = to_sdl(added);
}

// --- Showing --------------------------------------------------------------------------------------

// Most of an idle frame draws again what stands there already. The whole window is always shown: so it is after
// something else has covered it.
static bool needs_showing(const rect &area) {
    if (lies_inside(WHOLE_SCREEN, area)) {
        frame_copy(frames.shown, frames.screen, area);
        return true;
    }
    const rect seen = rect_cut(area, frames.screen.width, frames.screen.height);
    const std::size_t offset = static_cast<std::size_t>(seen.x) << video_format.shift;
    const std::size_t bytes = static_cast<std::size_t>(seen.w) << video_format.shift;
    bool changed = false;
    for (i32 y = seen.y; y < seen.y + seen.h; ++y) {
        const u8 *drawn = frame_row(frames.screen, y) + offset;
        u8 *shown = frame_row(frames.shown, y) + offset;
        if (std::memcmp(drawn, shown, bytes) != 0) {
            std::memcpy(shown, drawn, bytes);
            changed = true;
        }
    }
    return changed;
}

static void drop_unchanged() {
    if (dirty.count == 0)
        return;
    const screen_access access;
    i32 kept = 0;
    for (const SDL_Rect &r : dirty_rects())
        if (!access.open || needs_showing(from_sdl(r)))
            dirty.rects[kept++] = r;
    dirty.count = kept;
}

// Even an empty update may make SDL wait for the display server's answer, so it is made once and not repeated.
bool dirty_show() {
    lock_assert(surface_lock);
    drop_unchanged();
    const bool shown = dirty.count > 0;
    if (frames.surface != nullptr && (shown || !dirty.all_shown))
        SDL_UpdateRects(frames.surface, dirty.count, dirty.rects);
    dirty.all_shown = !shown;
    dirty.count = 0;
    return shown;
}

void dirty_flush() {
    dirty_show();
}
