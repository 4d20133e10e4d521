// video_depth.cpp: the stand-ins for SDL's video functions.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/video_depth.h"

#include <mutex>

extern "C" {
SDL_Surface *__real_SDL_SetVideoMode(int width, int height, int bits, Uint32 flags);
int __real_SDL_LockSurface(SDL_Surface *surface);
void __real_SDL_UnlockSurface(SDL_Surface *surface);
void __real_SDL_UpdateRects(SDL_Surface *surface, int count, SDL_Rect *rects);

SDL_Surface *__wrap_SDL_SetVideoMode(int width, int height, int bits, Uint32 flags);
int __wrap_SDL_LockSurface(SDL_Surface *surface);
void __wrap_SDL_UnlockSurface(SDL_Surface *surface);
void __wrap_SDL_UpdateRects(SDL_Surface *surface, int count, SDL_Rect *rects);
}

namespace {

struct video_script {
    bool (*refuse)(int bits, u32 flags) = nullptr;
    int extra_pixels = 0;
    SDL_Surface *surface = nullptr; // owned; of the longer rows
    bool fail_lock = false;
    int locks = 0;
    std::vector<video_mode> modes;
    bool watching = false;
    std::vector<std::vector<SDL_Rect>> updates;
};
video_script script;
std::mutex updates_lock; // guards script.updates

SDL_Surface *create_long_rows(int width, int height, int bits) {
    const bool narrow = bits == 16;
    SDL_Surface *surface =
        SDL_CreateRGBSurface(SDL_SWSURFACE, width + script.extra_pixels, height, bits, narrow ? 0xF800 : 0xFF0000,
                             narrow ? 0x07E0 : 0xFF00, narrow ? 0x001F : 0xFF, 0);
    surface->w = width;
    surface->flags |= SDL_HWSURFACE;
    return surface;
}

} // namespace

void fake_video_reset() {
    if (script.surface != nullptr) {
        script.surface->flags &= ~static_cast<Uint32>(SDL_HWSURFACE);
        SDL_FreeSurface(script.surface);
    }
    script = {};
}

void fake_video_refuse(bool (*refuse)(int bits, u32 flags)) {
    script.refuse = refuse;
}

void fake_video_pitch(int extra_pixels) {
    script.extra_pixels = extra_pixels;
}

void fake_video_fail_lock(bool on) {
    script.fail_lock = on;
}

int fake_video_locks() {
    return script.locks;
}

std::vector<video_mode> fake_video_modes() {
    return script.modes;
}

void fake_video_watch_updates() {
    script.watching = true;
}

std::vector<std::vector<SDL_Rect>> fake_video_updates() {
    const std::scoped_lock hold(updates_lock);
    return script.updates;
}

SDL_Surface *__wrap_SDL_SetVideoMode(int width, int height, int bits, Uint32 flags) {
    script.modes.push_back({bits, flags});
    if (script.refuse != nullptr && script.refuse(bits, flags))
        return nullptr;
    if (script.extra_pixels == 0)
        return __real_SDL_SetVideoMode(width, height, bits, flags);
    script.surface = create_long_rows(width, height, bits);
    return script.surface;
}

int __wrap_SDL_LockSurface(SDL_Surface *surface) {
    if (surface != script.surface)
        return __real_SDL_LockSurface(surface);
    if (script.fail_lock)
        return -1;
    ++script.locks;
    return 0;
}

void __wrap_SDL_UnlockSurface(SDL_Surface *surface) {
    if (surface == script.surface)
        --script.locks;
    else
        __real_SDL_UnlockSurface(surface);
}

void __wrap_SDL_UpdateRects(SDL_Surface *surface, int count, SDL_Rect *rects) {
    if (script.watching) {
        const std::scoped_lock hold(updates_lock);
        script.updates.emplace_back(rects, rects + count);
    }
    if (surface != script.surface)
        __real_SDL_UpdateRects(surface, count, rects);
}
