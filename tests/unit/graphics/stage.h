// stage.h: a screen to draw on, without a render thread: what was recorded is played by stage::show.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/log.h"
#include "graphics/blit.h"
#include "graphics/direct.h"
#include "graphics/dirty.h"
#include "graphics/draw_ops.h"
#include "graphics/frame_buffers.h"
#include "graphics/prim.h"
#include "graphics/render.h"
#include "graphics/video.h"
#include "resources/pixel.h"
#include "support/fake_sdl.h"
#include "support/video_depth.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>
#include <string_view>
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
        fake_video.extra_pixels = extra_pitch;
        fake_video.refuse = bits == pixel16::BITS ? nullptr : refuse_16_bits;
        EXPECT_EQ(video_init(), 1);
        EXPECT_EQ(prim_init(), 1);
        EXPECT_EQ(blit_init(), 1);
        EXPECT_EQ(video_format.depth, bits);
        direct_fill(WHOLE_SCREEN, BLACK); // a new mode may show anything
        render_pass();
    }
    ~stage() {
        video_shutdown();
        EXPECT_EQ(fake_video.locks, 0);
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

// As SDL itself sees it, so that rows of a wrong length are noticed.
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
    return Pixel::from_rgb(colour_key);
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

// Of the screen, the background, the slots and the dice.
inline std::size_t hash_of_all() {
    auto hash = static_cast<std::size_t>(fake_dice_drawn());
    const auto add = [&](const u8 *bytes, i32 pixels) {
        const auto size = static_cast<std::size_t>(pixels * video_format.bytes_per_pixel);
        hash = hash * 31 + std::hash<std::string_view>{}({reinterpret_cast<const char *>(bytes), size});
    };
    for (const frame_buffer &buffer : {surface_buffer(), frames.background})
        for (i32 y = 0; y < buffer.height; ++y)
            add(frame_row(buffer, y), SCREEN_WIDTH);
    for (const save_slot &slot : frames.slots)
        if (slot.area.x != SLOT_EMPTY)
            add(slot.pixels, slot.area.w * slot.area.h);
    return hash;
}

// Records one random command near the window's corner, if not told otherwise of those that change only the screen.
inline void record_any(std::mt19937 &dice, const image *picture, bool reaches_further) {
    const rect area = {pick(dice, -9, 60), pick(dice, -9, 40), pick(dice, 1, 50), pick(dice, 1, 50)};
    const i32 x = pick(dice, -20, 60), y = pick(dice, -20, 40), slot = pick(dice, 0, 1);
    const rgb colour = pick_colour(dice);
    switch (pick(dice, 0, reaches_further ? 15 : 10)) {
    case 0:
        return draw_image(picture, x, y, slot == 0);
    case 1:
        return draw_restore(area);
    case 2:
        return draw_restore_next(area);
    case 3:
        return draw_fill(area, colour, slot == 0);
    case 4:
        return draw_image_ex(picture, x, y, slot == 0 ? BLIT_HALF : BLIT_TINT | BLIT_NO_DIRTY, colour);
    case 5:
        return draw_darken(area);
    case 6:
        return draw_save(area, slot);
    case 7:
        return draw_restore_saved(slot);
    case 8:
        return draw_line(x, y, y, x, colour, true);
    case 9:
        return draw_image_clipped(picture, x, y, area);
    case 10:
        return draw_frame(area, colour, true);
    case 11:
        return draw_store_bg(area);
    case 12:
        return draw_image_bg(picture, x, y);
    case 13:
        return draw_darken_bg(area);
    case 14:
        return draw_record<DRAW_NOISE_BG>({area, WHITE, 0});
    default:
        return draw_image_ex(picture, x, y, BLIT_NOISE, colour);
    }
}
