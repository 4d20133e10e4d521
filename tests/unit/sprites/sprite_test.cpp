// sprite_test.cpp: frames of each animation, lists of sprites, and the commands that a sprite records.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/sprite.h"
#include "sprites/sprite_draw.h"

#include "input/input.h"
#include "sound/sound.h"
#include "support/recording.h"

#include <gtest/gtest.h>

#include <algorithm>

void sound_play(i32 number) {
    sounds_played.push_back(number);
}

namespace {

constexpr image picture_of(i32 width, i32 height) {
    return {.pixels = nullptr, .size = 0, .width = width, .height = height, .runs = nullptr, .run_count = 0};
}
const image body = picture_of(61, 40), label = picture_of(21, 11);
const image top = picture_of(10, 7), right = picture_of(6, 12), bottom = picture_of(11, 5), left = picture_of(8, 13);
const picture_names names = {{&body, "body"},   {&label, "label"},   {&top, "top"},
                             {&right, "right"}, {&bottom, "bottom"}, {&left, "left"}};

struct sprite_test : testing::Test {
    sprite s = {};
    int frame = 0;

    sprite_test() {
        sprite_set_body(&s, &body);
        const image *const edges[] = {&top, &right, &bottom, &left};
        sprite_set_edges(&s, edges);
        s.label = &label;
        s.x = 100;
        s.y = 200;
        s.tab_top = s.sock_bottom = 20;
        s.sock_right = s.tab_left = 14;
        take_sounds();
        take_recording(names);
    }
    bool has(u32 flag) const { return (s.flags & flag) != 0; }
    void go_to(int wanted) {
        for (; frame < wanted; ++frame)
            sprite_update(&s);
    }
    int frames_while(u32 flag) {
        int frames = 0;
        for (; has(flag) && frames < 10000; ++frames)
            sprite_update(&s);
        return frames;
    }
    recording drawn() const {
        sprite_draw(&s);
        return take_recording(names);
    }
};

TEST_F(sprite_test, travel_ends_on_the_home_position) {
    const struct {
        i32 dx, dy, speed;
        int frames;
        i32 short_x; // pixels left at the end
    } ROWS[] = {
        {100, 0, 700, 15, 0}, {-30, -40, 700, 10, 0}, {3, -2, 30, 17, 0},
        {10, 10, 5000, 1, 0}, {1, 900, 700, 129, 1}, // a share below a hundredth
        {0, 0, 700, 1, 0},
    };
    for (const auto &[dx, dy, speed, frames, short_x] : ROWS) {
        s.home_x = s.x + dx;
        s.home_y = s.y + dy;
        sprite_send_home(&s, speed);
        EXPECT_TRUE(has(SPRITE_INERT));
        EXPECT_EQ(frames_while(SPRITE_TRAVEL), frames) << dx << ", " << dy;
        EXPECT_EQ(s.home_x - s.x, short_x) << dx << ", " << dy;
        EXPECT_EQ(s.home_y, s.y) << dx << ", " << dy;
        EXPECT_FALSE(has(SPRITE_INERT | SPRITE_HIDDEN | SPRITE_AVAILABLE));
        EXPECT_EQ(take_sounds(), dx == 0 ? sounds{} : sounds{SOUND_PIECE_RETURN});
    }
    s.flags = SPRITE_HIDE_ON_ARRIVAL | SPRITE_REDEAL;
    sprite_send_home(&s, 700);
    frames_while(SPRITE_TRAVEL);
    EXPECT_EQ(s.flags, SPRITE_HIDE_ON_ARRIVAL | SPRITE_REDEAL | SPRITE_HIDDEN | SPRITE_INERT | SPRITE_AVAILABLE);
    s.flags = SPRITE_FIXED;
    sprite_send_home(&s, 700);
    EXPECT_EQ(s.flags, SPRITE_FIXED);
}

TEST_F(sprite_test, grow_covers_the_body_through_a_centred_window) {
    sprite_grow(&s);
    go_to(5);
    sprite_grow(&s); // changes nothing while it runs
    EXPECT_EQ(take_sounds(), sounds{SOUND_PIECE_EMERGE});
    go_to(21);
    EXPECT_EQ(drawn().now, (lines{"clipped body 100 200 in 109 200 42 40", "clipped label 120 215 in 109 200 42 40"}));
    EXPECT_TRUE(has(SPRITE_INERT));
    EXPECT_EQ(frames_while(SPRITE_GROW), 11) << "61 wide: 31 frames, and one to notice";
    EXPECT_FALSE(has(SPRITE_INERT));
}

TEST_F(sprite_test, unfold_takes_turns_and_darkens) {
    const struct {
        int frame;
        i32 shown[EDGE_COUNT];
        i32 red, green;
    } ROWS[] = {
        {5, {0, 0, 0, 0}, 253, 251}, {6, {0, 0, 0, 1}, 252, 250},  {7, {0, 0, 1, 1}, 252, 249},
        {9, {1, 1, 1, 1}, 251, 247}, {57, {7, 6, 5, 7}, 227, 199}, {77, {7, 6, 5, 7}, 217, 179},
    };
    sprite_unfold(&s);
    for (const auto &row : ROWS) {
        go_to(row.frame);
        EXPECT_TRUE(std::ranges::equal(s.unfold_ext, row.shown)) << frame;
        EXPECT_EQ(s.unfold_r, row.red) << frame;
        EXPECT_EQ(s.unfold_g, row.green) << frame;
        EXPECT_EQ(s.unfold_b, row.green) << frame;
        sprite_unfold(&s); // changes nothing while it runs
    }
    EXPECT_EQ(frames_while(SPRITE_UNFOLD), 1);
}

TEST_F(sprite_test, blink_out_flickers_faster_and_ends_hidden) {
    sprite_blink_out(&s);
    const std::pair<int, bool> ROWS[] = {{204, false}, {200, true}, {199, false}, {104, true}, {100, false}, {99, true},
                                         {78, true},   {75, false}, {74, true},   {1, false},  {0, true}};
    for (const auto &[frames_left, hidden] : ROWS) {
        go_to(400 - frames_left);
        EXPECT_EQ(has(SPRITE_HIDDEN), hidden) << frames_left;
        EXPECT_EQ(has(SPRITE_BLINK_OUT), frames_left > 0) << frames_left;
        EXPECT_EQ(take_sounds(), frames_left == 200 ? sounds{SOUND_SCORE_SHOW} : sounds{});
    }
}

TEST_F(sprite_test, pulse_swings_with_a_rest_at_each_end) {
    sprite_pulse(&s, {128, 128, 128}, BLACK, 0);
    const std::pair<int, int> ROWS[] = {{1, 123}, {25, 3}, {26, 0}, {27, 0}, {28, 5}, {53, 128}, {54, 128}, {55, 123}};
    for (const auto &[wanted, level] : ROWS) {
        go_to(wanted);
        EXPECT_EQ(s.pulse_cur.g, level) << wanted;
    }
    sprite_pulse(&s, WHITE, BLACK, 3);
    EXPECT_EQ(frames_while(SPRITE_PULSE), 3);
}

TEST_F(sprite_test, follows_the_mouse_by_what_it_moves) {
    sprite_follow_mouse(&s, 3, 10, 20);
    mouse_x = 15;
    mouse_y = 18;
    EXPECT_EQ(frames_while(SPRITE_FOLLOW), 3);
    EXPECT_EQ(s.x, 105);
    EXPECT_EQ(s.y, 198);
}

TEST(sprite_list, hit_is_the_topmost_that_can_be_taken_and_raised_ones_move_to_the_end) {
    sprite all[6] = {};
    ptr_array<sprite> *list = ptr_array_create<sprite>();
    sprite_list_update(list);
    for (sprite &s : all) {
        s.x = 10, s.y = 20, s.w = 5, s.h = 6;
        s.flags = SPRITE_INERT;
        ptr_array_append(list, &s);
    }
    all[0].flags = all[1].flags = 0;
    all[1].x = 12;
    const std::tuple<i32, i32, const sprite *> ROWS[] = {{10, 20, &all[0]}, {11, 26, &all[0]}, {15, 26, &all[1]},
                                                         {17, 20, &all[1]}, {9, 20, nullptr},  {18, 20, nullptr},
                                                         {12, 19, nullptr}, {12, 27, nullptr}};
    for (const auto &[x, y, hit] : ROWS)
        EXPECT_EQ(sprite_list_hit(list, x, y), hit) << x << " " << y;
    for (const int i : {0, 3, 5})
        sprite_raise(&all[i]);
    sprite_list_update(list);
    sprite_list_update(list);
    const sprite *expected[] = {&all[1], &all[2], &all[4], &all[0], &all[3], &all[5]};
    EXPECT_TRUE(std::equal(list->items, list->items + 6, expected));
    EXPECT_EQ(all[0].flags, 0u);
    ptr_array_destroy(list);
}

TEST_F(sprite_test, draws_tabs_over_and_sockets_through_the_body) {
    sprite_pulse(&s, {1, 2, 0xAB}, BLACK, 0);
    s.flags |= SPRITE_LABEL_TOP;
    const recording pulsing = drawn();
    EXPECT_EQ(pulsing.now,
              (lines{"save 0 119 235 11 5", "save 1 155 213 6 12", "image body 100 200", "ex body 100 200 104 0102ab",
                     "image label 120 203", "image top 119 194", "image left 92 214", "ex top 119 194 104 0102ab",
                     "ex left 92 214 104 0102ab", "restore saved 0", "image bottom 119 235", "restore saved 1",
                     "image right 155 213", "ex bottom 119 235 104 0102ab", "ex right 155 213 104 0102ab"}));
    EXPECT_EQ(pulsing.next, (lines{"restore 100 200 61 40", "restore 119 194 10 7", "restore 92 214 8 13",
                                   "restore 119 235 11 5", "restore 155 213 6 12"}));
    s.flags |= SPRITE_HIDDEN;
    EXPECT_TRUE(drawn().now.empty());
}

TEST_F(sprite_test, draws_unfolding_edges_as_far_as_they_are_out) {
    s.flags = SPRITE_UNFOLD;
    std::ranges::copy(std::initializer_list<i32>{3, 2, 4, 1}, s.unfold_ext);
    s.unfold_r = 255;
    s.unfold_g = s.unfold_b = -1;
    const recording unfolding = drawn();
    EXPECT_EQ(unfolding.now,
              (lines{"save 0 119 236 11 4", "save 1 159 213 2 12", "image body 100 200",
                     "clipped top 119 194 in 119 198 10 3", "clipped left 99 214 in 99 214 1 13", "restore saved 0",
                     "clipped bottom 119 236 in 119 236 11 4", "restore saved 1",
                     "clipped right 159 213 in 159 213 2 12", "image label 120 215", "ex label 120 215 005 ffffff"}));
    EXPECT_EQ(unfolding.next, (lines{"restore 100 200 61 40", "restore 119 198 10 3", "restore 99 214 1 13",
                                     "restore 119 236 11 4", "restore 159 213 2 12"}));
}

} // namespace
