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
#include <bit>
#include <cstdlib>
#include <cstring>

// Rectangles whose place and size differ by no more than this become one.
static constexpr i32 MERGE_DISTANCE = 10; // pixels

// Where 64 of the rectangles lie: a bit for each in every band of rows and of columns that it reaches into. An added
// rectangle is compared only with those in its own bands; else a frame of many pictures would cost most in comparing.
static constexpr i32 BLOCK_RECTS = 64, BAND_SHIFT = 5; // a band is 32 pixels wide
struct block {
    u64 rows[(SCREEN_HEIGHT >> BAND_SHIFT) + 1], columns[(SCREEN_WIDTH >> BAND_SHIFT) + 1];
};

static struct {
    SDL_Rect *rects; // owned
    block *blocks;   // owned; of BLOCK_RECTS rectangles each
    i32 count, capacity;
    bool all_shown; // SDL was given nothing the last time
} dirty;

std::span<const SDL_Rect> dirty_rects() {
    return {dirty.rects, static_cast<std::size_t>(dirty.count)};
}

void dirty_free() {
    std::free(dirty.rects);
    std::free(dirty.blocks);
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
    const std::size_t slots = static_cast<std::size_t>(dirty.capacity) + BLOCK_RECTS;
    void *rects = std::realloc(dirty.rects, slots * sizeof(SDL_Rect));
    if (rects != nullptr)
        dirty.rects = static_cast<SDL_Rect *>(rects);
    void *blocks = std::realloc(dirty.blocks, slots / BLOCK_RECTS * sizeof(block));
    if (blocks != nullptr)
        dirty.blocks = static_cast<block *>(blocks);
    if (rects == nullptr || blocks == nullptr) {
        log_out_of_memory();
        return false;
    }
    dirty.capacity += BLOCK_RECTS;
    return true;
}

// Calls visit(a block's word) for each band of rows, then with the other function for each of columns.
template <class Block, class Rows, class Columns>
static void each_band(Block &of, const rect &area, Rows visit_rows, Columns visit_columns) {
    for (i32 band = area.y >> BAND_SHIFT; band <= last_row(area) >> BAND_SHIFT; ++band)
        visit_rows(of.rows[band]);
    for (i32 band = area.x >> BAND_SHIFT; band <= last_column(area) >> BAND_SHIFT; ++band)
        visit_columns(of.columns[band]);
}

static void put(i32 index, const rect &area) {
    const u64 bit = u64{1} << index % BLOCK_RECTS;
    const auto set = [bit](u64 &word) { word |= bit; };
    each_band(dirty.blocks[index / BLOCK_RECTS], area, set, set);
    dirty.rects[index] = to_sdl(area);
}

static void take_out(i32 index) {
    const u64 bit = u64{1} << index % BLOCK_RECTS;
    const auto clear = [bit](u64 &word) { word &= ~bit; };
    each_band(dirty.blocks[index / BLOCK_RECTS], from_sdl(dirty.rects[index]), clear, clear);
}

static void append(const rect &area) {
    if (!reserve())
        return;
    if (dirty.count % BLOCK_RECTS == 0)
        dirty.blocks[dirty.count / BLOCK_RECTS] = {};
    put(dirty.count++, area);
}

// The last one takes its place.
static void remove(i32 index) {
    take_out(index);
    if (index == --dirty.count)
        return;
    take_out(dirty.count);
    put(index, from_sdl(dirty.rects[dirty.count]));
}

// The rectangles of a block that share bands with this one, a bit for each.
static u64 near_in(const block &of, const rect &area) {
    u64 in_rows = 0, in_columns = 0;
    each_band(
        of, area, [&](u64 word) { in_rows |= word; }, [&](u64 word) { in_columns |= word; });
    return in_rows & in_columns;
}

void dirty_add(i32 x, i32 y, i32 w, i32 h) {
    lock_assert(surface_lock);
    rect added = rect_cut({x, y, w, h}, SCREEN_WIDTH, SCREEN_HEIGHT);
    if (rect_is_empty(added))
        return;
    bool merged = false;
    for (i32 first = 0; first < dirty.count; first += BLOCK_RECTS) {
        const block &of = dirty.blocks[first / BLOCK_RECTS];
        for (u64 near = near_in(of, added); near != 0;) {
            const i32 bit = std::countr_zero(near);
            const u64 after = ~u64{1} << bit;
            const rect stored = from_sdl(dirty.rects[first + bit]);
            near &= after;
            if (!overlap(stored, added))
                continue;
            if (lies_inside(added, stored))
                return;
            if (lies_inside(stored, added)) {
                remove(first + bit);
                near = near_in(of, added) & ~u64{0} << bit; // with the one that took its place
            } else if (nearly_equal(added, stored)) {
                added = union_of(added, stored);
                put(first + bit, added);
                merged = true;
                near = near_in(of, added) & after;
            }
        }
    }
    if (!merged)
        append(added);
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
