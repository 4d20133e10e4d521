// input_test.cpp: presses seen in one frame, characters of keys, and the drawn pointer.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "input/input.h"

#include "core/log.h"
#include "graphics/blit.h"
#include "graphics/pixel.h"
#include "input/cursor.h"
#include "resources/archive.h"
#include "support/archive_builder.h"
#include "support/fake_sdl.h"
#include "support/recording.h"

#include <SDL.h>
#include <gtest/gtest.h>

namespace {

using lines = std::vector<std::string>;

struct input_test : testing::Test {
    fake_scope fakes;
    temp_game game;
    input_test() {
        game.log_to_file();
        fake_keys_up();
    }
    ~input_test() override { input_shutdown(); }
};

TEST_F(input_test, a_press_is_seen_in_its_first_frame_only) {
    fake_key(SDLK_x, true);
    fake_mouse_button(MOUSE_LEFT, true);
    ASSERT_EQ(input_init(), 1);
    EXPECT_EQ(game.log_text(), "Found 0 joystick(s).\n");
    EXPECT_FALSE(key_pressed(SDLK_x));
    input_poll();
    EXPECT_FALSE(key_pressed(SDLK_x)) << "held since before the start";
    EXPECT_TRUE(mouse_pressed(MOUSE_LEFT)) << "a button held at the start counts";
    struct row {
        bool down, pressed;
    };
    fake_key(SDLK_x, false);
    input_poll();
    for (const row &r : {row{true, true}, {true, false}, {false, false}, {true, true}}) {
        fake_key(SDLK_q, r.down);
        fake_mouse_button(3, r.down);
        input_poll();
        EXPECT_EQ(key_pressed(SDLK_q), r.pressed);
        EXPECT_EQ(mouse_pressed(3), r.pressed);
        EXPECT_EQ(mouse_held(3), r.down);
        EXPECT_FALSE(mouse_pressed(MOUSE_LEFT));
        EXPECT_TRUE(mouse_held(MOUSE_LEFT));
    }
    fake_keys_up();
    input_poll();
    fake_key(SDLK_LCTRL, true);
    fake_key(SDLK_b, true);
    fake_key(SDLK_RSHIFT, true);
    fake_mouse_move(12, 345);
    EXPECT_EQ(first_pressed_key(), 0) << "nothing changes between two polls";
    input_poll();
    EXPECT_EQ(first_pressed_key(), SDLK_b);
    EXPECT_TRUE(shift_held() && ctrl_held());
    EXPECT_EQ(std::pair(mouse_x, mouse_y), std::pair(12, 345));
    input_poll();
    EXPECT_EQ(first_pressed_key(), 0) << "still held";
}

TEST_F(input_test, keys_type_what_stands_on_them) {
    ASSERT_EQ(input_init(), 1);
    struct row {
        i32 first, last;
        const char *typed; // null: nothing
    };
    constexpr row rows[] = {
        {97, 122, "abcdefghijklmnopqrstuvwxyz"},
        {48, 57, "0123456789"},
        {256, 271, "0123456789./*-+\n"},
        {91, 93, "[\\]"},
        {44, 47, ",-./"},
        {300, 302, "   "},
        {277, 281, "     "},
        {59, 59, ";"},
        {61, 61, "="},
        {39, 39, "'"},
        {96, 96, "`"},
        {127, 127, " "},
        {8, 8, "\b"},
        {13, 13, "\n"},
        {32, 32, " "},
    };
    std::map<i32, char> typed;
    for (const row &r : rows)
        for (i32 key = r.first; key <= r.last; ++key)
            typed[key] = r.typed[key - r.first];
    for (i32 key = 0; key < key_count(); ++key)
        EXPECT_EQ(key_char(key), typed[key]) << key;
}

TEST_F(input_test, questions_beyond_the_keys_and_buttons_are_answered_no) {
    fake_key_count(50); // fewer than the characters' table names
    ASSERT_EQ(input_init(), 1);
    fake_key_count(FAKE_KEY_LIMIT);
    fake_key(400, true);
    fake_mouse_button(8, true);
    input_poll();
    EXPECT_EQ(key_count(), 50);
    for (const i32 key : {-1, 50, 400, 100000}) {
        EXPECT_FALSE(key_pressed(key));
        EXPECT_EQ(key_char(key), 0);
    }
    EXPECT_EQ(first_pressed_key(), 0);
    EXPECT_TRUE(mouse_held(8));
    EXPECT_FALSE(mouse_held(0) || mouse_held(9) || mouse_held(-1));
}

TEST_F(input_test, start_up_fails_when_memory_is_short) {
    const int failed = fake_fail_each_allocation([] {
        const bool made = input_init() == 1;
        input_shutdown();
        return made;
    });
    EXPECT_EQ(failed, 2);
    EXPECT_NE(game.log_text().find(" - Out of memory\n"), std::string::npos);
}

TEST_F(input_test, the_pointer_is_drawn_with_its_hot_spot_on_the_mouse) {
    log_set_mode(0);
    video_format = {.depth = 16, .bytes_per_pixel = 2, .shift = 1};
    ASSERT_EQ(blit_init(), 1);
    archive_builder archive;
    for (const char *name : {"001", "002"})
        archive.add(std::string("xpm/control/mouse/") + name + "/001.xpm", make_xpm({"a c #FFFFFF"}, {"aa", "aa"}));
    archive.write(game.data("data.dar"));
    ASSERT_EQ(data_archive_open(), 1);
    EXPECT_EQ(cursor_init(), -1);
    cursor_shutdown();
    data_archive_close();
    archive.add("xpm/control/mouse/003/001.xpm", make_xpm({"a c #FFFFFF"}, {"aaa"}));
    archive.write(game.data("data.dar"));
    ASSERT_EQ(data_archive_open(), 1);
    ASSERT_EQ(cursor_init(), 1);

    mouse_x = 1;
    mouse_y = 100;
    cursor_draw();
    EXPECT_TRUE(take_recording({}).now.empty()) << "hidden until shown";
    cursor_show(true);
    struct row {
        i32 select;
        const char *now, *next;
    };
    constexpr row rows[] = {{CURSOR_ARROW, "image ? 1 100", "restore 1 100 2 2"},
                            {CURSOR_OPEN_HAND, "image ? -3 98", "restore -3 98 2 2"},
                            {CURSOR_CLOSED_HAND, "image ? -3 99", "restore -3 99 3 1"},
                            {3, "image ? -3 99", "restore -3 99 3 1"},
                            {-1, "image ? -3 99", "restore -3 99 3 1"}};
    for (const row &r : rows) {
        cursor_select(r.select);
        cursor_draw();
        const recording drawn = take_recording({});
        EXPECT_EQ(drawn.now, lines{r.now});
        EXPECT_EQ(drawn.next, lines{r.next});
    }
    cursor_show(false);
    cursor_draw();
    EXPECT_TRUE(take_recording({}).now.empty());
    cursor_shutdown();
    data_archive_close();
}

} // namespace
