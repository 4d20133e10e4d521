// repeat_test.cpp: frames that would change nothing are not played, and everything stays as if they were.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/repeat.h"

#include "unit/graphics/stage.h"

#include <functional>
#include <string_view>

namespace {

constexpr rgb RED = {255, 0, 0}, GREEN = {0, 255, 0};
constexpr i32 UNTIL_STEADY = 4; // frames alike; the last is not played any more

// One random command, of those that leave the rest alone unless told otherwise.
void record_one(std::mt19937 &dice, const image *picture, bool reaches_further) {
    const rect area = {pick(dice, -9, 60), pick(dice, -9, 40), pick(dice, 1, 50), pick(dice, 1, 50)};
    const i32 x = pick(dice, -20, 60), y = pick(dice, -20, 40), slot = pick(dice, 0, 1);
    switch (pick(dice, 0, reaches_further ? 14 : 10)) {
    case 0:
        return draw_image(picture, x, y, slot == 0);
    case 1:
        return draw_restore(area);
    case 2:
        return draw_restore_next(area);
    case 3:
        return draw_fill(area, pick_colour(dice), slot == 0);
    case 4:
        return draw_image_ex(picture, x, y, slot == 0 ? BLIT_HALF : BLIT_TINT | BLIT_NO_DIRTY, pick_colour(dice));
    case 5:
        return draw_darken(area);
    case 6:
        return draw_save(area, slot);
    case 7:
        return draw_restore_saved(slot);
    case 8:
        return draw_line(x, y, y, x, pick_colour(dice), true);
    case 9:
        return draw_image_clipped(picture, x, y, area);
    case 10:
        return draw_frame(area, pick_colour(dice), true);
    case 11:
        return draw_store_bg(area);
    case 12:
        return draw_image_bg(picture, x, y);
    case 13:
        return draw_darken_bg(area);
    default:
        return draw_image_ex(picture, x, y, BLIT_NOISE, pick_colour(dice));
    }
}

std::size_t hash_of(const u8 *bytes, i32 count) {
    return std::hash<std::string_view>{}({reinterpret_cast<const char *>(bytes), static_cast<std::size_t>(count)});
}

// Of the screen, the background, the slots and the dice.
std::size_t hash_of_all() {
    auto hash = static_cast<std::size_t>(fake_dice_drawn());
    const auto add = [&](std::size_t part) { hash = hash * 31 + part; };
    for (const frame_buffer &buffer : {surface_buffer(), frames.background})
        for (i32 y = 0; y < buffer.height; ++y)
            add(hash_of(frame_row(buffer, y), SCREEN_WIDTH * video_format.bytes_per_pixel));
    for (const save_slot &slot : frames.slots)
        if (slot.area.x != SLOT_EMPTY)
            add(hash_of(slot.pixels, slot.area.w * slot.area.h * video_format.bytes_per_pixel));
    return hash;
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
                    record_one(same, picture, run % 2 == 0);
            });
            outcomes.push_back(hash_of_all());
        }
        if (run % 4 == 3)
            screen_fill({pick(dice, 0, 50), 0, 9, 90}, RED);
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

// Whether a frame is played: what was written past everybody's back under its picture is then painted over.
bool is_played(stage *on, void (*record)()) {
    u16 *pixel = &pixels_at<pixel16>(surface_buffer(), 5)[5];
    *pixel = 0x1234;
    on->show(record);
    const bool played = *pixel != 0x1234;
    *pixel = pixel16::from_rgb(RED);
    return played;
}

image *dot; // one pixel, for each row anew

void record_fill() {
    draw_fill({0, 0, 10, 10}, RED, true);
}

TEST(repeat, only_what_changes_nothing_is_left_out) {
    const struct {
        const char *name;
        void (*record)(); // paints (5, 5) red
        void (*between)();
        bool played;
    } ROWS[] = {
        {"alike", record_fill, [] {}, false},
        {"save and restore",
         [] {
             record_fill(), draw_save({5, 0, 9, 9}, 1), draw_restore_saved(1);
         },
         [] {}, false},
        {"restore, then save",
         [] {
             draw_restore_saved(1), record_fill(), draw_save({5, 0, 9, 9}, 1);
         },
         [] {}, true},
        {"other slot",
         [] {
             draw_restore_saved(0), record_fill(), draw_save({5, 0, 9, 9}, 1);
         },
         [] {}, false},
        {"whole window shown", [] { record_fill(), draw_record<DRAW_DIRTY>({WHOLE_SCREEN}); }, [] {}, true},
        {"background",
         [] {
             record_fill(), draw_store_bg({0, 0, 9, 9});
         },
         [] {}, true},
        {"dice",
         [] {
             record_fill(), draw_record<DRAW_NOISE_BG>({{0, 0, 1, 1}, WHITE, 0});
         },
         [] {}, true},
        {"noise",
         [] {
             record_fill(), draw_image_ex(dot, 0, 0, BLIT_NOISE, {1, 1, 1});
         },
         [] {}, true},
        {"picture to the background", [] { record_fill(), draw_image_ex(dot, 0, 0, BLIT_TO_BG, RED); }, [] {}, true},
        {"text to the background", [] { record_fill(), draw_character('a', 0, 0, RED, true); }, [] {}, true},
        {"text", [] { record_fill(), draw_character('a', 0, 0, RED, false); }, [] {}, false},
        {"drawn directly", record_fill,
         [] {
             screen_fill({5, 5, 1, 1}, GREEN);
         },
         true},
        {"background changed", record_fill,
         [] {
             screen_store_background({0, 0, 1, 1});
         },
         true},
        {"picture freed", record_fill, [] { image_free(image_create(1, 1)); }, true},
        {"pictures changed", record_fill, [] { EXPECT_TRUE(image_build_runs(dot)); }, true},
        {"nothing recorded", record_fill, [] { render_pass(); }, false},
    };
    for (const auto &row : ROWS) {
        stage on(16);
        dot = image_create(1, 1);
        std::memset(dot->pixels, 0, static_cast<std::size_t>(dot->size));
        EXPECT_TRUE(image_build_runs(dot));
        for (i32 i = 1; i < UNTIL_STEADY; ++i)
            EXPECT_TRUE(is_played(&on, row.record)) << row.name << i;
        row.between();
        EXPECT_EQ(is_played(&on, row.record), row.played) << row.name;
        on.show([] { draw_fill({5, 5, 9, 9}, GREEN, true); });
        for (i32 i = 1; i < UNTIL_STEADY; ++i)
            EXPECT_TRUE(is_played(&on, row.record)) << row.name << i;
        image_free(dot);
    }
}

} // namespace
