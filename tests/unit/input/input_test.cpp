// input_test.cpp: presses seen in one frame, keys and buttons that do not exist, and the drawn pointer.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "input/input.h"

#include "graphics/blit.h"
#include "input/cursor.h"
#include "resources/archive.h"
#include "resources/pixel.h"
#include "support/fake_sdl.h"
#include "support/recording.h"
#include "support/temp_folder.h"

#include <SDL.h>
#include <gtest/gtest.h>

namespace {

struct input_test : testing::Test {
    fake_scope fakes;
    temp_game game;
    input_test() {
        SDL_putenv(const_cast<char *>("SDL_VIDEODRIVER=dummy"));
        EXPECT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
        game.log_to_file();
        fake_keys_up();
    }
    ~input_test() override {
        input_shutdown();
        SDL_Quit();
    }
};

TEST_F(input_test, a_press_is_seen_in_its_first_frame_only) {
    fake_key(SDLK_x, true);
    fake_mouse_button(MOUSE_LEFT, true);
    ASSERT_EQ(input_init(), 1);
    EXPECT_FALSE(key_pressed(SDLK_x));
    input_poll();
    EXPECT_FALSE(key_pressed(SDLK_x)) << "held since before the start";
    EXPECT_TRUE(mouse_pressed(MOUSE_LEFT)) << "a button held at the start counts";
    fake_key(SDLK_x, false);
    input_poll();
    for (const auto &[down, pressed] : {std::pair{true, true}, {true, false}, {false, false}, {true, true}}) {
        fake_key(SDLK_q, down);
        fake_mouse_button(3, down);
        input_poll();
        EXPECT_EQ(key_pressed(SDLK_q), pressed);
        EXPECT_EQ(mouse_pressed(3), pressed);
        EXPECT_EQ(mouse_held(3), down);
        EXPECT_TRUE(mouse_held(MOUSE_LEFT));
        EXPECT_FALSE(mouse_pressed(MOUSE_LEFT));
    }
    fake_keys_up();
    input_poll();
    for (const i32 key : {SDLK_LCTRL, SDLK_b, SDLK_RSHIFT})
        fake_key(key, true);
    fake_mouse_move(12, 345);
    EXPECT_EQ(first_pressed_key(), 0) << "nothing changes between two polls";
    input_poll();
    EXPECT_EQ(first_pressed_key(), SDLK_b);
    EXPECT_TRUE(shift_held());
    EXPECT_TRUE(ctrl_held());
    EXPECT_EQ(mouse_x, 12);
    EXPECT_EQ(mouse_y, 345);
    input_poll();
    EXPECT_EQ(first_pressed_key(), 0) << "still held";
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
        EXPECT_FALSE(key_pressed(key)) << key;
        EXPECT_EQ(key_char(key), 0) << key;
    }
    EXPECT_EQ(first_pressed_key(), 0);
    EXPECT_TRUE(mouse_held(8));
    EXPECT_FALSE(mouse_held(0));
    EXPECT_FALSE(mouse_held(9));
    EXPECT_FALSE(mouse_held(-1));
}

void push_button(u8 type, u16 x, u16 y) {
    SDL_Event event = {};
    event.button = {type, 0, MOUSE_LEFT, 0, x, y};
    SDL_PushEvent(&event);
}

void push_key(u8 type, SDLKey key) {
    SDL_Event event = {};
    event.type = type;
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}

TEST_F(input_test, what_goes_down_and_up_between_two_polls_is_a_press) {
    ASSERT_EQ(input_init(), 1);
    input_poll();
    push_button(SDL_MOUSEBUTTONDOWN, 70, 80);
    push_button(SDL_MOUSEBUTTONUP, 70, 80);
    push_key(SDL_KEYDOWN, SDLK_q);
    push_key(SDL_KEYUP, SDLK_q);
    fake_mouse_move(300, 400);
    input_poll();
    EXPECT_TRUE(mouse_pressed(MOUSE_LEFT));
    EXPECT_TRUE(key_pressed(SDLK_q));
    EXPECT_EQ(mouse_x, 70) << "where the tap was, not where the mouse has gone since";
    EXPECT_EQ(mouse_y, 80) << "where the tap was, not where the mouse has gone since";
    input_poll();
    EXPECT_FALSE(mouse_held(MOUSE_LEFT));
    EXPECT_FALSE(key_pressed(SDLK_q));
    EXPECT_EQ(mouse_x, 300);
    EXPECT_EQ(mouse_y, 400);
    push_button(SDL_MOUSEBUTTONDOWN, 70, 80);
    fake_mouse_button(MOUSE_LEFT, true);
    input_poll();
    EXPECT_TRUE(mouse_pressed(MOUSE_LEFT)) << "one that lasts is where the mouse is";
    EXPECT_EQ(mouse_x, 300) << "one that lasts is where the mouse is";
    push_button(SDL_MOUSEBUTTONUP, 70, 80);
    fake_mouse_button(MOUSE_LEFT, false);
    input_poll();
    EXPECT_FALSE(mouse_held(MOUSE_LEFT)) << "its press was counted before";
}

TEST_F(input_test, the_pointer_is_drawn_with_its_hot_spot_on_the_mouse) {
    video_format = {.depth = 16, .bytes_per_pixel = 2, .shift = 1};
    std::filesystem::create_symlink(TAVIMO_DATA_FILE, game.data("data.dar"));
    ASSERT_EQ(blit_init(), 1);
    ASSERT_EQ(data_archive_open(), 1);
    ASSERT_EQ(cursor_init(), 1);
    mouse_x = 1;
    mouse_y = 100;
    cursor_draw();
    EXPECT_TRUE(take_recording().now.empty()) << "hidden until shown";
    cursor_show(true);
    const std::pair<i32, const char *> ROWS[] = {{CURSOR_ARROW, "1 100"},
                                                 {CURSOR_OPEN_HAND, "-3 98"},
                                                 {CURSOR_CLOSED_HAND, "-3 99"},
                                                 {3, "-3 99"},
                                                 {-1, "-3 99"}};
    for (const auto &[shape, place] : ROWS) {
        cursor_select(shape);
        cursor_draw();
        EXPECT_EQ(take_recording().now, lines{std::string("image ? ") + place});
    }
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE) << "hidden, it would make full screen deaf to places";
    cursor_shutdown();
    data_archive_close();
}

} // namespace
