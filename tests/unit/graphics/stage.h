// stage.h: a screen to draw on, without a render thread: what was recorded is played by stage::show.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/log.h"
#include "graphics/blit.h"
#include "graphics/draw_ops.h"
#include "graphics/frame_buffers.h"
#include "graphics/render.h"
#include "graphics/video.h"
#include "resources/pixel.h"
#include "support/fake_sdl.h"
#include "support/video_depth.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

inline bool refuse_16_bits(int bits, u32) {
    return bits == pixel16::BITS;
}

// One a test. extra_pitch: pixels that the screen's rows are longer than the window.
struct stage {
    fake_scope fakes;

    explicit stage(i32 bits, i32 extra_pitch = 0) {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        log_set_mode(0);
        EXPECT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
        fake_video_reset();
        fake_video_pitch(extra_pitch);
        fake_video_refuse(bits == pixel16::BITS ? nullptr : refuse_16_bits);
        EXPECT_TRUE(video_init() == 1 && prim_init() == 1 && blit_init() == 1 && video_format.depth == bits);
        screen_fill(WHOLE_SCREEN, BLACK); // a new mode may show anything
        render_pass();
    }
    ~stage() {
        video_shutdown();
        EXPECT_EQ(fake_video_locks(), 0);
        fake_video_reset();
        SDL_Quit();
        log_set_mode(LOG_STDERR);
    }

    // Records a frame and plays it.
    template <class Record> void show(Record record) {
        EXPECT_TRUE(render_begin_frame());
        record();
        render_end_frame();
        render_pass();
    }
};

template <class Pixel> typename Pixel::value *pixels_at(const frame_buffer &buffer, i32 y) {
    return reinterpret_cast<typename Pixel::value *>(frame_row(buffer, y));
}

// All pixels of a buffer, row by row.
template <class Pixel> std::vector<typename Pixel::value> pixels_of(const frame_buffer &buffer) {
    std::vector<typename Pixel::value> copy;
    for (i32 y = 0; y < buffer.height; ++y)
        copy.insert(copy.end(), pixels_at<Pixel>(buffer, y), pixels_at<Pixel>(buffer, y) + buffer.width);
    return copy;
}

// What SDL shows, asked from SDL, so that rows of a wrong length are seen.
inline frame_buffer surface_buffer() {
    const SDL_Surface *surface = frames.surface;
    return {static_cast<u8 *>(surface->pixels), surface->pitch, surface->w, surface->h};
}

template <class Pixel> std::vector<typename Pixel::value> screen_pixels() {
    return pixels_of<Pixel>(surface_buffer());
}

inline u16 pixel_at(i32 x, i32 y) {
    return pixels_at<pixel16>(surface_buffer(), y)[x];
}

inline i32 pick(std::mt19937 &dice, i32 low, i32 high) {
    return std::uniform_int_distribution<i32>(low, high)(dice);
}

inline rgb pick_colour(std::mt19937 &dice) {
    return {static_cast<u8>(dice()), static_cast<u8>(dice()), static_cast<u8>(dice())};
}

template <class Pixel> typename Pixel::value key_pixel() {
    return Pixel::from_rgb(color_key);
}

// A picture of random runs. The caller frees it.
template <class Pixel> image *random_picture(std::mt19937 &dice, i32 width, i32 height) {
    image *picture = image_create(width, height);
    bool opaque = false;
    for (i32 i = 0; i < width * height; ++i) {
        opaque ^= pick(dice, 0, 7) == 0;
        reinterpret_cast<typename Pixel::value *>(picture->pixels)[i] =
            opaque ? Pixel::from_rgb(pick_colour(dice)) : key_pixel<Pixel>();
    }
    EXPECT_TRUE(image_build_runs(picture));
    return picture;
}

// Fills both buffers with noise, so that what is drawn over it shows.
template <class Pixel> void scatter(std::mt19937 &dice) {
    for (const frame_buffer &buffer : {surface_buffer(), frames.background})
        for (i32 i = 0; i < buffer.width * buffer.height; ++i)
            pixels_at<Pixel>(buffer, i / buffer.width)[i % buffer.width] = dice() & Pixel::RGB_MASK;
}
