// sprite_test.cpp: frames of each animation, lists of sprites, and the commands that a sprite records.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/sprite.h"

#include "heard.h"
#include "input/input.h"
#include "support/recording.h"

#include <gtest/gtest.h>

void sound_play(i32 number) {
    heard_sounds.push_back(number);
}

namespace {

using sounds = std::vector<i32>;
using lines = std::vector<std::string>;

constexpr image picture_of(i32 width, i32 height) {
    return {.pixels = nullptr, .size = 0, .width = width, .height = height, .runs = nullptr, .run_count = 0};
}
const image body = picture_of(61, 40), label = picture_of(21, 11);
const image top = picture_of(10, 7), right = picture_of(6, 12), bottom = picture_of(11, 5), left = picture_of(8, 13);
const picture_names names = {{&body, "body"},   {&label, "label"},   {&top, "top"},
                             {&right, "right"}, {&bottom, "bottom"}, {&left, "left"}};

struct sprite_test : testing::Test {
    sprite s = {};
    sprite_test() {
        sprite_set_body(&s, &body);
        sprite_set_edges(&s, &top, &right, &bottom, &left);
        s.label = &label;
        s.x = 100;
        s.y = 200;
        s.tab_top = 20;
        s.sock_right = 14;
        s.sock_bottom = 20;
        s.tab_left = 14;
        take_heard();
        take_recording(names);
    }
    bool has(u32 flag) const { return (s.flags & flag) != 0; }
    void update(int frames) {
        for (int i = 0; i < frames; ++i)
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

TEST_F(sprite_test, pulse_rests_a_frame_at_each_end) {
    struct row {
        int frame;
        u8 red;
    };
    constexpr row rows[] = {{1, 123}, {25, 3}, {26, 0}, {27, 0}, {28, 5}, {52, 125}, {53, 128}, {54, 128}, {55, 123}};
    sprite_pulse(&s, {128, 200, 7}, {0, 200, 9}, 0);
    int frame = 0;
    for (const row &r : rows) {
        update(r.frame - std::exchange(frame, r.frame));
        EXPECT_EQ(s.pulse_cur.r, r.red) << r.frame;
        EXPECT_EQ(s.pulse_cur.g, 200);
    }
    EXPECT_EQ(s.pulse_cur.b, 9);
    sprite_pulse(&s, WHITE, BLACK, 3);
    EXPECT_EQ(frames_while(SPRITE_PULSE), 3);
    EXPECT_EQ(s.pulse_cur.r, 240); // the last frame still fades
}

TEST_F(sprite_test, travel_ends_on_the_home_position) {
    struct row {
        const char *what;
        i32 dx, dy, speed;
        int frames;
        i32 short_x, short_y; // pixels left at the end
        sounds heard;
    };
    const row rows[] = {
        {"at home", 0, 0, 700, 1, 0, 0, {}},
        {"one axis", 100, 0, 700, 15, 0, 0, {SOUND_PIECE_RETURN}},
        {"up and left", -30, -40, 700, 10, 0, 0, {SOUND_PIECE_RETURN}},
        {"remainders", 3, -2, 30, 17, 0, 0, {SOUND_PIECE_RETURN}},
        {"no overshoot", 10, 10, 5000, 1, 0, 0, {SOUND_PIECE_RETURN}},
        {"a share below a hundredth", 1, 900, 700, 129, 1, 0, {SOUND_PIECE_RETURN}},
    };
    for (const row &r : rows) {
        SCOPED_TRACE(r.what);
        s.home_x = s.x + r.dx;
        s.home_y = s.y + r.dy;
        sprite_send_home(&s, r.speed);
        EXPECT_TRUE(has(SPRITE_INERT));
        EXPECT_EQ(frames_while(SPRITE_TRAVEL), r.frames);
        EXPECT_EQ(std::pair(s.home_x - s.x, s.home_y - s.y), std::pair(r.short_x, r.short_y));
        EXPECT_FALSE(has(SPRITE_INERT | SPRITE_HIDDEN | SPRITE_AVAILABLE));
        EXPECT_EQ(take_heard(), r.heard);
    }
    s.flags = SPRITE_HIDE_ON_ARRIVAL | SPRITE_REDEAL;
    sprite_send_home(&s, 700);
    frames_while(SPRITE_TRAVEL);
    EXPECT_EQ(s.flags, SPRITE_HIDE_ON_ARRIVAL | SPRITE_REDEAL | SPRITE_HIDDEN | SPRITE_INERT | SPRITE_AVAILABLE);
    s.flags = 0;
    sprite_fix(&s);
    sprite_send_home(&s, 700);
    EXPECT_EQ(s.flags, SPRITE_FIXED | SPRITE_INERT);
}

TEST_F(sprite_test, grow_covers_the_body_and_is_not_restarted) {
    sprite_grow(&s);
    update(5);
    sprite_grow(&s);
    EXPECT_EQ(s.grow_w, 10);
    EXPECT_TRUE(has(SPRITE_INERT));
    EXPECT_EQ(take_heard(), sounds{SOUND_PIECE_EMERGE});
    EXPECT_EQ(frames_while(SPRITE_GROW), 27); // 61 wide: 31 frames, and one to notice
    EXPECT_EQ(std::pair(s.grow_w, s.grow_h), std::pair(62, 40));
    EXPECT_FALSE(has(SPRITE_INERT));
}

TEST_F(sprite_test, unfold_takes_turns_and_darkens) {
    struct row {
        int frame;
        i32 shown[SPRITE_EDGES];
        i32 red, green;
    };
    constexpr row rows[] = {
        {1, {0, 0, 0, 0}, 255, 255},  {5, {0, 0, 0, 0}, 253, 251},  {6, {0, 0, 0, 1}, 252, 250},
        {7, {0, 0, 1, 1}, 252, 249},  {8, {0, 1, 1, 1}, 251, 248},  {9, {1, 1, 1, 1}, 251, 247},
        {57, {7, 6, 5, 7}, 227, 199}, {77, {7, 6, 5, 7}, 217, 179},
    };
    sprite_unfold(&s);
    int frame = 0;
    for (const row &r : rows) {
        update(r.frame - std::exchange(frame, r.frame));
        SCOPED_TRACE(frame);
        EXPECT_TRUE(std::ranges::equal(s.unfold_ext, r.shown));
        EXPECT_EQ(s.unfold_r, r.red);
        EXPECT_EQ(s.unfold_g, r.green);
        EXPECT_EQ(s.unfold_b, r.green);
        sprite_unfold(&s); // changes nothing while it runs
    }
    EXPECT_EQ(frames_while(SPRITE_UNFOLD), 1);
}

TEST_F(sprite_test, blink_out_flickers_faster_and_ends_hidden) {
    struct row {
        int frames_left;
        bool hidden;
    };
    constexpr row rows[] = {{399, false}, {204, false}, {200, true}, {199, false}, {196, true}, {104, true},
                            {100, false}, {99, true},   {98, false}, {78, true},   {75, false}, {74, true},
                            {73, false},  {2, true},    {1, false},  {0, true}};
    sprite_blink_out(&s);
    int remaining = 400;
    for (const row &r : rows) {
        update(std::exchange(remaining, r.frames_left) - r.frames_left);
        EXPECT_EQ(has(SPRITE_HIDDEN), r.hidden) << remaining;
        EXPECT_EQ(has(SPRITE_BLINK_OUT), remaining > 0);
        EXPECT_EQ(take_heard(), remaining == 200 ? sounds{SOUND_SCORE_SHOW} : sounds{});
    }
    s.flags = SPRITE_BLINK_OUT | SPRITE_UNFOLD | SPRITE_HIDDEN | SPRITE_PULSE | SPRITE_FIXED;
    sprite_clear_effects(&s);
    EXPECT_EQ(s.flags, SPRITE_FIXED);
}

TEST_F(sprite_test, vanishes_home_and_follows_the_mouse) {
    s.home_x = 5;
    s.home_y = 6;
    sprite_vanish_after(&s, 10);
    EXPECT_EQ(take_heard(), sounds{SOUND_PIECE_DISAPPEAR});
    update(9);
    EXPECT_EQ(s.flags, SPRITE_VANISH);
    update(1);
    EXPECT_EQ(s.flags, SPRITE_HIDDEN | SPRITE_INERT);
    EXPECT_EQ(std::pair(s.x, s.y), std::pair(5, 6));
    sprite_follow_mouse(&s, 2, 300, 400);
    for (const auto &[x, y] : {std::pair{310, 390}, {300, 395}, {0, 0}}) {
        mouse_x = x;
        mouse_y = y;
        sprite_update(&s);
    }
    EXPECT_EQ(std::pair(s.x, s.y), std::pair(5, 1)) << "it follows for two frames";
}

// --- Lists ---------------------------------------------------------------------------------------

TEST(sprite_list, hit_is_the_topmost_that_can_be_taken) {
    sprite all[3] = {};
    for (sprite &s : all)
        s.x = 10, s.y = 20, s.w = 5, s.h = 6;
    all[1].x = 12;
    all[1].flags = SPRITE_HIDDEN;
    all[2].flags = SPRITE_INERT;
    ptr_array<sprite> *list = ptr_array_create<sprite>();
    for (sprite &s : all)
        ptr_array_append(list, &s);
    struct row {
        i32 x, y;
        const sprite *hit;
    };
    const row rows[] = {{10, 20, &all[0]}, {11, 26, &all[0]}, {15, 26, &all[1]}, {17, 20, &all[1]},
                        {9, 20, nullptr},  {18, 20, nullptr}, {12, 19, nullptr}, {12, 27, nullptr}};
    for (const row &r : rows)
        EXPECT_EQ(sprite_list_hit(list, r.x, r.y), r.hit) << r.x << " " << r.y;
    ptr_array_destroy(list);
}

TEST(sprite_list, raised_sprites_move_to_the_end_in_their_order) {
    sprite all[6] = {};
    ptr_array<sprite> *list = ptr_array_create<sprite>();
    sprite_list_update(list);
    for (sprite &s : all)
        ptr_array_append(list, &s);
    for (const int i : {0, 3, 5})
        sprite_raise(&all[i]);
    sprite_blink_out(&all[3]);
    sprite_list_update(list);
    sprite_list_update(list);
    const sprite *expected[] = {&all[1], &all[2], &all[4], &all[0], &all[3], &all[5]};
    for (i32 i = 0; i < 6; ++i)
        EXPECT_EQ(list->items[i], expected[i]) << i;
    EXPECT_EQ(all[3].blink_frames, 398) << "updated once a frame";
    EXPECT_EQ(all[0].flags, 0u);
    ptr_array_destroy(list);
}

// --- Drawing -------------------------------------------------------------------------------------

TEST_F(sprite_test, draws_tabs_over_and_sockets_through_the_body) {
    const lines whole = {"save 0 119 235 11 5", "save 1 155 213 6 12", "image body 100 200", "image label 120 215",
                         "image top 119 194",   "image left 92 214",   "restore saved 0",    "image bottom 119 235",
                         "restore saved 1",     "image right 155 213"};
    const lines restored = {"restore 100 200 61 40", "restore 119 194 10 7", "restore 92 214 8 13",
                            "restore 119 235 11 5", "restore 155 213 6 12"};
    EXPECT_EQ(drawn().now, whole);
    EXPECT_EQ(drawn().next, restored);

    sprite_pulse(&s, {1, 2, 0xAB}, BLACK, 0);
    s.flags |= SPRITE_LABEL_TOP;
    const recording pulsing = drawn();
    EXPECT_EQ(pulsing.now,
              (lines{"save 0 119 235 11 5", "save 1 155 213 6 12", "image body 100 200", "ex body 100 200 104 0102ab",
                     "image label 120 203", "image top 119 194", "image left 92 214", "ex top 119 194 104 0102ab",
                     "ex left 92 214 104 0102ab", "restore saved 0", "image bottom 119 235", "restore saved 1",
                     "image right 155 213", "ex bottom 119 235 104 0102ab", "ex right 155 213 104 0102ab"}));
    EXPECT_EQ(pulsing.next, restored);
    s.flags |= SPRITE_HIDDEN;
    EXPECT_TRUE(drawn().now.empty());
}

TEST_F(sprite_test, draws_growing_through_a_centred_window) {
    sprite_grow(&s);
    update(21); // 42 wide, 40 high
    sprite_unfold(&s);
    const recording growing = drawn();
    EXPECT_EQ(growing.now, (lines{"clipped body 100 200 in 109 200 42 40", "clipped label 120 215 in 109 200 42 40"}));
    EXPECT_EQ(growing.next, lines{"restore 109 200 42 40"});
}

TEST_F(sprite_test, draws_unfolding_edges_as_far_as_they_are_out) {
    s.flags = SPRITE_UNFOLD;
    std::ranges::copy(std::initializer_list<i32>{3, 2, 4, 1}, s.unfold_ext);
    s.unfold_r = 255;
    s.unfold_g = s.unfold_b = -1;
    EXPECT_EQ(drawn().now,
              (lines{"save 0 119 236 11 4", "save 1 159 213 2 12", "image body 100 200",
                     "clipped top 119 194 in 119 198 10 3", "clipped left 99 214 in 99 214 1 13", "restore saved 0",
                     "clipped bottom 119 236 in 119 236 11 4", "restore saved 1",
                     "clipped right 159 213 in 159 213 2 12", "image label 120 215", "ex label 120 215 005 ffffff"}));
    EXPECT_EQ(drawn().next, (lines{"restore 100 200 61 40", "restore 119 198 10 3", "restore 99 214 1 13",
                                   "restore 119 236 11 4", "restore 159 213 2 12"}));
}

} // namespace
