// video_depth.cpp: the stand-ins for SDL's video functions.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/video_depth.h"

void fake_video_reset() {
    if (fake_video.surface != nullptr) {
        fake_video.surface->flags &= ~static_cast<Uint32>(SDL_HWSURFACE);
        SDL_FreeSurface(fake_video.surface);
    }
    fake_video = {};
}

static SDL_Surface *create_long_rows(int width, int height, int bits) {
    const bool narrow = bits == 16;
    SDL_Surface *surface =
        SDL_CreateRGBSurface(SDL_SWSURFACE, width + fake_video.extra_pixels, height, bits, narrow ? 0xF800 : 0xFF0000,
                             narrow ? 0x07E0 : 0xFF00, narrow ? 0x001F : 0xFF, 0);
    surface->w = width;
    surface->flags |= SDL_HWSURFACE;
    return surface;
}

extern "C" {

SDL_Surface *__real_SDL_SetVideoMode(int width, int height, int bits, Uint32 flags);
int __real_SDL_LockSurface(SDL_Surface *surface);
void __real_SDL_UnlockSurface(SDL_Surface *surface);
void __real_SDL_UpdateRects(SDL_Surface *surface, int count, SDL_Rect *rects);

SDL_Surface *__wrap_SDL_SetVideoMode(int width, int height, int bits, Uint32 flags) {
    if (fake_video.refuse != nullptr && fake_video.refuse(bits, flags))
        return nullptr;
    if (fake_video.extra_pixels == 0)
        return __real_SDL_SetVideoMode(width, height, bits, flags);
    return fake_video.surface = create_long_rows(width, height, bits);
}

int __wrap_SDL_LockSurface(SDL_Surface *surface) {
    if (surface != fake_video.surface)
        return __real_SDL_LockSurface(surface);
    if (fake_video.fail_lock || (fake_video.fail_lock_in > 0 && --fake_video.fail_lock_in == 0))
        return -1;
    ++fake_video.locks;
    return 0;
}

void __wrap_SDL_UnlockSurface(SDL_Surface *surface) {
    if (surface == fake_video.surface)
        --fake_video.locks;
    else
        __real_SDL_UnlockSurface(surface);
}

void __wrap_SDL_UpdateRects(SDL_Surface *surface, int count, SDL_Rect *rects) {
    if (fake_video.watching)
        fake_video.updates.emplace_back(rects, rects + count);
    if (surface != fake_video.surface)
        __real_SDL_UpdateRects(surface, count, rects);
}

} // extern "C"
