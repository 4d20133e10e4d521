// frame_buffers.cpp: making the frame buffers, and copying rectangles between them and the save slots.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/frame_buffers.h"

#include "core/base/log.h"
#include "graphics/locks.h"
#include "resources/pixel.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

static constexpr frame_buffer NO_BUFFER = {nullptr, 0, 0, 0};
static constexpr save_slot NO_SLOT = {nullptr, 0, {SLOT_EMPTY, 0, 0, 0}};

static frame_buffer buffer_create() {
    const i32 pitch = SCREEN_WIDTH * video_format.bytes_per_pixel;
    auto *pixels = static_cast<u8 *>(std::calloc(SCREEN_HEIGHT, static_cast<std::size_t>(pitch)));
    if (pixels == nullptr) {
        log_out_of_memory();
        return NO_BUFFER;
    }
    return {pixels, pitch, SCREEN_WIDTH, SCREEN_HEIGHT};
}

bool frame_buffers_create(SDL_Surface *surface) {
    frames.surface = surface;
    frames.missed = false;
    frames.screen = NO_BUFFER;
    frames.background = buffer_create();
    if (frames.background.pixels != nullptr)
        frames.spare = buffer_create();
    if (frames.spare.pixels != nullptr)
        frames.shown = buffer_create();
    for (save_slot &slot : frames.slots)
        slot = NO_SLOT;
    return frames.shown.pixels != nullptr;
}

void frame_buffers_free() {
    std::free(frames.background.pixels);
    std::free(frames.spare.pixels);
    std::free(frames.shown.pixels);
    for (save_slot &slot : frames.slots) {
        std::free(slot.pixels);
        slot = NO_SLOT;
    }
    frames.surface = nullptr;
    frames.screen = frames.background = frames.spare = frames.shown = NO_BUFFER;
}

// The pixels are asked for again each time, because a surface that needs locking may move between locks.
screen_access::screen_access() : open(false) {
    lock_assert(surface_lock);
    SDL_Surface *surface = frames.surface;
    open = surface != nullptr && (!SDL_MUSTLOCK(surface) || SDL_LockSurface(surface) == 0);
    if (!open) {
        frames.missed = true;
        return;
    }
    frames.screen = {static_cast<u8 *>(surface->pixels), surface->pitch, std::min(surface->w, SCREEN_WIDTH),
                     std::min(surface->h, SCREEN_HEIGHT)};
}

screen_access::~screen_access() {
    frames.screen = NO_BUFFER;
    if (open && SDL_MUSTLOCK(frames.surface))
        SDL_UnlockSurface(frames.surface);
}

rect rect_cut(const rect &area, i32 width, i32 height) {
    const i32 left = std::max(area.x, 0), top = std::max(area.y, 0);
    const i32 right = std::min(area.x + area.w, width), bottom = std::min(area.y + area.h, height);
    return {left, top, right - left, bottom - top};
}

rect rect_push_in(const rect &area, i32 width, i32 height) {
    return rect_cut({std::max(area.x, 0), std::max(area.y, 0), area.w, area.h}, width, height);
}

static std::size_t bytes_of(i32 pixels) {
    return static_cast<std::size_t>(pixels) << video_format.shift;
}

static u8 *address_of(const frame_buffer &buffer, const rect &area) {
    return frame_row(buffer, area.y) + bytes_of(area.x);
}

static void copy_rows(u8 *to, i32 to_pitch, const u8 *from, i32 from_pitch, const rect &area) {
    for (i32 row = 0; row < area.h; ++row, to += to_pitch, from += from_pitch)
        std::memcpy(to, from, bytes_of(area.w));
}

void frame_copy(const frame_buffer &to, const frame_buffer &from, const rect &area) {
    const rect cut = rect_cut(area, std::min(to.width, from.width), std::min(to.height, from.height));
    if (!rect_is_empty(cut))
        copy_rows(address_of(to, cut), to.pitch, address_of(from, cut), from.pitch, cut);
}

bool frame_equal(const frame_buffer &a, const frame_buffer &b) {
    bool equal = a.width == b.width && a.height == b.height;
    for (i32 y = 0; equal && y < a.height; ++y)
        equal = std::memcmp(frame_row(a, y), frame_row(b, y), bytes_of(a.width)) == 0;
    return equal;
}

void frame_show_background(const rect &area) {
    frame_copy(frames.screen, frames.background, rect_push_in(area, SCREEN_WIDTH, SCREEN_HEIGHT));
}

static save_slot *find_slot(i32 slot) {
    if (slot >= 0 && slot < SAVE_SLOTS)
        return &frames.slots[slot];
    log_error("Unknown save slot: %i\n", slot);
    return nullptr;
}

// A slot's block only ever grows, so that frames which save the same rectangles again allocate nothing.
static bool slot_reserve(save_slot *slot, i32 bytes) {
    if (bytes <= slot->capacity)
        return true;
    auto *pixels = static_cast<u8 *>(std::realloc(slot->pixels, static_cast<std::size_t>(bytes)));
    if (pixels == nullptr) {
        log_out_of_memory();
        return false;
    }
    slot->pixels = pixels;
    slot->capacity = bytes;
    return true;
}

void slot_save(i32 number, const rect &area) {
    save_slot *slot = find_slot(number);
    if (slot == nullptr)
        return;
    const rect cut = rect_cut(area, frames.screen.width, frames.screen.height);
    slot->area = {SLOT_EMPTY, 0, 0, 0};
    if (rect_is_empty(cut) || !slot_reserve(slot, cut.w * cut.h * video_format.bytes_per_pixel))
        return;
    slot->area = cut;
    copy_rows(slot->pixels, cut.w * video_format.bytes_per_pixel, address_of(frames.screen, cut), frames.screen.pitch,
              cut);
}

void slot_restore(i32 number) {
    const save_slot *slot = find_slot(number);
    if (slot == nullptr || slot->area.x == SLOT_EMPTY || frames.screen.pixels == nullptr)
        return;
    copy_rows(address_of(frames.screen, slot->area), frames.screen.pitch, slot->pixels,
              slot->area.w * video_format.bytes_per_pixel, slot->area);
}
