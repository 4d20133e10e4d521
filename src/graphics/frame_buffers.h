// frame_buffers.h: the screen, the background, the spare, and the save slots.
//
// All under the surface lock once the render thread runs. The background and the spare are owned here and have rows
// of exactly the window's width; the screen's pixels are SDL's, their rows a pitch apart, and may only be touched
// inside a screen_access.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <SDL_video.h>

#include <cstddef>

// Pixels that can be drawn into. Everything that draws cuts to width and height, so a buffer of size 0 is safe.
struct frame_buffer {
    u8 *pixels;
    i32 pitch;         // bytes from row to row
    i32 width, height; // pixels
};

// A saved rectangle of the screen.
struct save_slot {
    u8 *pixels;   // owned; rows of area.w pixels
    i32 capacity; // bytes
    rect area;    // x is SLOT_EMPTY when nothing is saved
};
inline constexpr i32 SAVE_SLOTS = 2;
inline constexpr i32 SLOT_EMPTY = -1;

struct frame_buffers {
    SDL_Surface *surface;    // borrowed from SDL; null before video_init
    frame_buffer screen;     // size 0 outside a screen_access
    frame_buffer background; // owned
    frame_buffer spare;      // owned
    frame_buffer shown;      // owned; what the window shows, so that nothing is handed to SDL that has not changed
    save_slot slots[SAVE_SLOTS];
    bool missed; // something was not drawn or not shown, because the surface could not be locked
};
inline frame_buffers frames;

[[nodiscard]] bool frame_buffers_create(SDL_Surface *surface); // false (logged) when out of memory
void frame_buffers_free();                                     // accepts buffers that were never made

// Opens the screen's pixels for the length of a block. Where the surface cannot be locked, frames.screen stays a
// buffer of size 0: what draws on the screen then draws nothing, and all else goes on. frames.missed remembers it, and
// the render thread shows everything again with the next list.
struct screen_access {
    bool open;
    screen_access();
    ~screen_access();
    screen_access(const screen_access &) = delete;
    screen_access &operator=(const screen_access &) = delete;
};

// The first pixel of row y.
inline u8 *frame_row(const frame_buffer &buffer, i32 y) {
    return buffer.pixels + static_cast<std::ptrdiff_t>(y) * buffer.pitch;
}

rect rect_cut(const rect &area, i32 width, i32 height);     // what lies in a buffer of this size
rect rect_push_in(const rect &area, i32 width, i32 height); // the same, but a negative corner moves to 0 and the
                                                            // size is kept

// Copies what of the area lies in both buffers.
void frame_copy(const frame_buffer &to, const frame_buffer &from, const rect &area);
bool frame_equal(const frame_buffer &a, const frame_buffer &b); // of one size
void frame_show_background(const rect &area);                   // to the screen, pushed into the window first

// Inside a screen_access. A slot outside 0 .. SAVE_SLOTS - 1 is logged and ignored.
void slot_save(i32 slot, const rect &area);
void slot_restore(i32 slot);
