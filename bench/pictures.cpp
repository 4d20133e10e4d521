// pictures.cpp: loading pictures and making their counterparts for SDL.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "pictures.h"

#include "graphics/blit.h"
#include "graphics/prim.h"
#include "platform/platform.h"
#include "resources/archive.h"
#include "resources/pixel.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

static SDL_Surface *own_surface = nullptr, *their_surface = nullptr;

static void require(bool holds, const std::string &what) {
    if (holds)
        return;
    std::fprintf(stderr, "benchmark: %s\n", what.c_str());
    std::exit(EXIT_FAILURE);
}

static SDL_Surface *create(i32 depth) {
    const bool narrow = depth == pixel16::BITS;
    SDL_Surface *made =
        SDL_CreateRGBSurface(SDL_SWSURFACE, SCREEN_WIDTH, SCREEN_HEIGHT, depth, narrow ? 0xF800 : 0xFF0000,
                             narrow ? 0x07E0 : 0xFF00, narrow ? 0x1F : 0xFF, 0);
    require(made != nullptr, "no surface");
    return made;
}

void use_depth(i32 depth) {
    frame_buffers_free();
    SDL_FreeSurface(own_surface);
    SDL_FreeSurface(their_surface);
    own_surface = create(depth);
    their_surface = create(depth);
    video_format = {depth, depth / 8, depth == pixel16::BITS ? pixel16::SHIFT : pixel32::SHIFT};
    require(frame_buffers_create(own_surface) && prim_init() == 1 && blit_init() == 1, "cannot draw");
}

void move_on_the_heap() {
    constexpr std::size_t STEP = 16, STEPS = 4096 / STEP;
    static std::minstd_rand dice;
    static std::vector<std::vector<u8>> gaps;
    gaps.emplace_back(STEP * (1 + dice() % STEPS));
}

image *picture_of(const std::string &name) {
    image *picture = image_load(name.c_str());
    require(picture != nullptr, "cannot load " + name);
    return picture;
}

SDL_Surface *sdl_screen() {
    return their_surface;
}

SDL_Surface *sdl_picture(const image *picture, u32 flags) {
    const SDL_PixelFormat &format = *their_surface->format;
    SDL_Surface *made = SDL_CreateRGBSurface(SDL_SWSURFACE, picture->width, picture->height, format.BitsPerPixel,
                                             format.Rmask, format.Gmask, format.Bmask, 0);
    require(made != nullptr, "no surface");
    const std::size_t row = static_cast<std::size_t>(picture->width) * format.BytesPerPixel;
    for (i32 y = 0; y < picture->height; ++y)
        std::memcpy(static_cast<u8 *>(made->pixels) + y * made->pitch,
                    picture->pixels + static_cast<std::size_t>(y) * row, row);
    SDL_SetColorKey(made, SDL_SRCCOLORKEY | flags, SDL_MapRGB(made->format, colour_key.r, colour_key.g, colour_key.b));
    return made;
}

i32 visible_bytes(const image *picture, i32 x, i32 y) {
    i32 pixels = 0;
    for (i32 row = 0; row < picture->height; ++row)
        for (i32 column = 0; column < picture->width; ++column) {
            const i32 at = row * picture->width + column;
            const bool narrow = video_format.depth == pixel16::BITS;
            const bool opaque =
                narrow ? reinterpret_cast<const u16 *>(picture->pixels)[at] != pixel16::from_rgb(colour_key)
                       : reinterpret_cast<const u32 *>(picture->pixels)[at] != pixel32::from_rgb(colour_key);
            const bool shows = x + column >= 0 && x + column < SCREEN_WIDTH && y + row >= 0 && y + row < SCREEN_HEIGHT;
            pixels += opaque && shows ? 1 : 0;
        }
    return pixels * video_format.bytes_per_pixel;
}

std::string text_of(const std::string &name) {
    const int descriptor = data_archive_open_entry(("xpm/" + name).c_str());
    if (descriptor < 0)
        return "";
    std::string text(static_cast<std::size_t>(data_archive_current_size()), '\0');
    require(platform_read(descriptor, text.data(), text.size()) == static_cast<std::ptrdiff_t>(text.size()), "cut");
    return text;
}

std::vector<std::string> texts_of(const std::string &prefix, i32 count) {
    std::vector<std::string> texts;
    for (i32 i = 1; i <= count; ++i) {
        char number[16];
        std::snprintf(number, sizeof number, "%03d.xpm", i);
        if (std::string text = text_of(prefix + number); !text.empty())
            texts.push_back(text);
    }
    return texts;
}
