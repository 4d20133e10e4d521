// changes_test.cpp: which rectangles are shown, and which frames are not played because they would change nothing.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/dirty.h"
#include "graphics/repeat.h"
#include "unit/graphics/stage.h"

#include <string>

namespace {

constexpr rgb RED = {255, 0, 0}, GREEN = {0, 255, 0};
constexpr i32 UNTIL_STEADY = 4; // frames alike; the last is not played any more

template <class Rects> std::string text_of(const Rects &rects) {
    std::string text;
    for (const auto &[x, y, w, h] : rects)
        for (const int n : {int{x}, int{y}, int{w}, int{h}})
            text += std::to_string(n) + ",";
    return text;
}

TEST(dirty, rectangles_are_cut_and_merged) {
    const struct {
        const char *what;
        std::vector<rect> added, left;
    } ROWS[] = {
        {"outside", {{800, 0, 5, 5}, {0, 600, 5, 5}, {-5, 0, 5, 5}, {10, 10, 0, 5}, {10, 10, 5, -3}}, {}},
        {"over the corners", {{-3, -4, 10, 10}, {795, 590, 50, 50}}, {{0, 0, 7, 6}, {795, 590, 5, 10}}},
        {"inside an earlier one", {{10, 10, 50, 50}, {20, 20, 5, 5}, {10, 10, 50, 50}}, {{10, 10, 50, 50}}},
        {"around earlier ones",
         {{10, 10, 5, 5}, {200, 200, 5, 5}, {20, 20, 5, 5}, {30, 30, 5, 5}, {5, 5, 90, 90}},
         {{200, 200, 5, 5}, {5, 5, 90, 90}}},
        {"off by 10", {{100, 100, 40, 40}, {110, 90, 50, 50}}, {{100, 90, 60, 50}}},
        {"off by 11 across", {{100, 100, 40, 40}, {111, 100, 40, 40}}, {{100, 100, 40, 40}, {111, 100, 40, 40}}},
        {"off by 11 in height", {{100, 100, 40, 40}, {101, 101, 40, 51}}, {{100, 100, 40, 40}, {101, 101, 40, 51}}},
        {"close but apart", {{100, 100, 5, 5}, {105, 100, 5, 5}}, {{100, 100, 5, 5}, {105, 100, 5, 5}}},
        {"one pixel of overlap", {{100, 100, 5, 5}, {104, 104, 5, 5}}, {{100, 100, 9, 9}}},
        {"a union merges on",
         {{111, 100, 40, 40}, {100, 100, 40, 40}, {105, 100, 40, 40}},
         {{105, 100, 46, 40}, {100, 100, 51, 40}}},
    };
    for (const auto &row : ROWS) {
        dirty_free();
        for (const auto &[x, y, w, h] : row.added)
            dirty_add(x, y, w, h);
        EXPECT_EQ(text_of(dirty_rects()), text_of(row.left)) << row.what;
    }
    dirty_free();
}

// Plays runs of frames alike, with other drawing in between. always: nothing is ever left out.
std::vector<std::size_t> play_random(u32 seed, bool always) {
    stage on(16, 8);
    fake_dice({3, 77, 1, 250, 41});
    std::mt19937 dice(seed);
    scatter<pixel16>(dice);
    image *picture = random_picture<pixel16>(dice, 33, 21);
    std::vector<std::size_t> outcomes;
    for (i32 run = 0; run < 25; ++run) {
        const u32 frame = static_cast<u32>(dice());
        const i32 commands = pick(dice, 1, 3);
        for (i32 left = pick(dice, 1, 7); left > 0; --left) {
            if (always)
                repeat_forget();
            on.show([&] {
                std::mt19937 same(frame);
                for (i32 i = 0; i < commands; ++i)
                    record_any(same, picture, run % 2 == 0);
            });
            outcomes.push_back(hash_of_all());
        }
        if (run % 4 == 3)
            direct_fill({pick(dice, 0, 50), 0, 9, 90}, RED);
        if (run % 5 == 4) {
            std::memset(picture->pixels, run, 99);
            EXPECT_TRUE(image_build_runs(picture));
        }
    }
    image_free(picture);
    return outcomes;
}

TEST(repeat, leaving_frames_out_changes_nothing) {
    for (u32 seed = 1; seed <= 6; ++seed)
        ASSERT_TRUE(play_random(seed, false) == play_random(seed, true)) << seed;
}

// Whether a frame is played: what was written past everybody's back under its red square is then painted over.
bool is_played(stage *on, void (*also)()) {
    u16 *pixel = &pixels_at<pixel16>(surface_buffer(), 5)[5];
    *pixel = 0x1234;
    on->show([also] {
        draw_fill({0, 0, 10, 10}, RED, true);
        also();
    });
    const bool played = *pixel != 0x1234;
    *pixel = pixel16::from_rgb(RED);
    return played;
}

image *dot; // one pixel, for each row anew

constexpr rect PART = {5, 5, 9, 9};

void save_and_restore() {
    draw_save(PART, 1);
    draw_restore_saved(1);
}

TEST(repeat, only_what_changes_nothing_is_left_out) {
    const struct {
        const char *what;
        void (*also)(); // recorded in each frame
        void (*between)();
        bool played;
    } ROWS[] = {
        {"alike", [] {}, [] {}, false},
        {"save and restore", save_and_restore, [] {}, false},
        {"text", [] { draw_character('a', 0, 0, RED, false); }, [] {}, false},
        {"text to the background", [] { draw_character('a', 0, 0, RED, true); }, [] {}, true},
        {"picture to the background", [] { draw_image_ex(dot, 0, 0, BLIT_TO_BG, RED); }, [] {}, true},
        {"noise", [] { draw_image_ex(dot, 0, 0, BLIT_NOISE, GREEN); }, [] {}, true},
        {"whole window shown", [] { draw_record<DRAW_DIRTY>({WHOLE_SCREEN}); }, [] {}, true},
        {"drawn directly", [] {}, [] { direct_fill(PART, GREEN); }, true},
        {"background changed", [] {}, [] { direct_store_background(PART); }, true},
        {"picture freed", [] {}, [] { image_free(image_create(1, 1)); }, true},
        {"picture changed", [] {}, [] { EXPECT_TRUE(image_build_runs(dot)); }, true},
        {"nothing recorded", [] {}, render_pass, false},
    };
    for (const auto &row : ROWS) {
        stage on(16);
        dot = image_create(1, 1);
        std::memset(dot->pixels, 0, static_cast<std::size_t>(dot->size));
        EXPECT_TRUE(image_build_runs(dot));
        for (i32 i = 1; i < UNTIL_STEADY; ++i)
            EXPECT_TRUE(is_played(&on, row.also)) << row.what << i;
        row.between();
        EXPECT_EQ(is_played(&on, row.also), row.played) << row.what;
        image_free(dot);
    }
}

} // namespace
