// video.cpp: setting the video mode and the pixel format, and making what drawing needs.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/video.h"

#include "core/base/log.h"
#include "graphics/dirty.h"
#include "graphics/draw_queue.h"
#include "graphics/frame_buffers.h"
#include "graphics/locks.h"
#include "graphics/repeat.h"
#include "resources/pixel.h"

#include <SDL.h>

// In the order in which they are tried.
static constexpr struct {
    int bits;
    u32 flags;
} MODES[] = {
    {16, SDL_FULLSCREEN},
    {32, SDL_FULLSCREEN},
    {16, 0},
    {32, 0},
};

// Eight bits pass here and are turned away by prim_init.
static constexpr struct {
    i32 depth, shift;
} FORMATS[] = {
    {8, 0},
    {pixel16::BITS, pixel16::SHIFT},
    {pixel32::BITS, pixel32::SHIFT},
};

static constexpr i32 BITS_PER_BYTE = 8;

static void log_fatal() {
    log_error("Fatal Error: %s\n", SDL_GetError());
}

static SDL_Surface *set_mode() {
    for (const auto &mode : MODES)
        if (SDL_Surface *surface = SDL_SetVideoMode(SCREEN_WIDTH, SCREEN_HEIGHT, mode.bits, mode.flags))
            return surface;
    log_fatal();
    return nullptr;
}

static bool make_lock(lock *which) {
    which->mutex = SDL_CreateMutex();
    if (which->mutex == nullptr)
        log_fatal();
    return which->mutex != nullptr;
}

static void destroy_lock(lock *which) {
    if (which->mutex != nullptr)
        SDL_DestroyMutex(which->mutex);
    which->mutex = nullptr;
}

static bool set_format(i32 depth) {
    for (const auto &format : FORMATS) {
        if (format.depth == depth) {
            video_format = {depth, depth / BITS_PER_BYTE, format.shift};
            return true;
        }
    }
    log_error("Unsupported color depth: %i\n", depth);
    return false;
}

i32 video_init() {
    SDL_Surface *surface = set_mode();
    if (surface == nullptr || !make_lock(&render_lock) || !make_lock(&surface_lock) ||
        !set_format(surface->format->BitsPerPixel) || !frame_buffers_create(surface))
        return -1;
    render_running.store(false);
    log_error("Color depth is %i.\n", video_format.depth);
    return 1;
}

void video_shutdown() {
    destroy_lock(&render_lock);
    destroy_lock(&surface_lock);
    frame_buffers_free();
    dirty_free();
    draw_queue_free();
    repeat_free();
    video_format = {};
}
