// render_test.cpp: setting the mode, recording and playing lists, save slots, and the render thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app_state.h"
#include "graphics/draw_play.h"
#include "graphics/draw_queue.h"
#include "graphics/locks.h"
#include "unit/graphics/stage.h"

#include <string>

namespace {

constexpr rgb RED = {255, 0, 0}, BLUE = {0, 0, 255};
constexpr u16 RED_PIXEL = pixel16::from_rgb(RED), BLUE_PIXEL = pixel16::from_rgb(BLUE);
constexpr u16 WHITE_PIXEL = pixel16::from_rgb(WHITE), BLACK_PIXEL = 0;

TEST(video, modes_are_tried_in_order_until_one_is_set) {
    const struct {
        bool (*refuse)(int bits, u32 flags);
        std::vector<video_mode> tried;
        i32 depth; // -1: none
    } ROWS[] = {
        {nullptr, {{16, SDL_FULLSCREEN}}, 16},
        {refuse_16_bits, {{16, SDL_FULLSCREEN}, {32, SDL_FULLSCREEN}}, 32},
        {[](int, u32 flags) { return flags != 0; }, {{16, SDL_FULLSCREEN}, {32, SDL_FULLSCREEN}, {16, 0}}, 16},
        {[](int, u32) { return true; }, {{16, SDL_FULLSCREEN}, {32, SDL_FULLSCREEN}, {16, 0}, {32, 0}}, -1},
    };
    const stage on(16);
    for (const auto &row : ROWS) {
        video_shutdown();
        fake_video_reset();
        fake_video.refuse = row.refuse;
        EXPECT_EQ(video_init(), row.depth < 0 ? -1 : 1);
        EXPECT_EQ(fake_video.modes, row.tried);
        EXPECT_EQ(video_format.depth, row.depth);
    }
}

TEST(lists, next_frame_commands_wait_for_a_frame_and_come_first_in_it) {
    stage on(16);
    on.show([] {
        draw_fill({0, 0, 9, 9}, WHITE, false);
        draw_record_next<DRAW_FILL>({{0, 0, 9, 9}, RED, 0, 0});
        draw_restore_next({5, 0, 4, 9});
        draw_fill({5, 0, 4, 9}, WHITE, false);
    });
    EXPECT_EQ(pixel_at(5, 5), WHITE_PIXEL);
    render_pass();
    on.show([] {});
    EXPECT_EQ(pixel_at(0, 0), WHITE_PIXEL) << "what is queued for the next frame does not start one";
    on.show([] { draw_fill({0, 0, 3, 3}, BLUE, false); });
    EXPECT_EQ(pixel_at(0, 0), BLUE_PIXEL);
    EXPECT_EQ(pixel_at(4, 4), RED_PIXEL);
    EXPECT_EQ(pixel_at(6, 6), BLACK_PIXEL);
    on.show([] { draw_fill({0, 0, 1, 1}, WHITE, false); });
    EXPECT_EQ(pixel_at(2, 2), BLUE_PIXEL) << "played twice";
}

TEST(lists, each_pass_shows_what_its_commands_changed) {
    stage on(16);
    image *picture = image_create(20, 10);
    std::memset(picture->pixels, 0x55, static_cast<std::size_t>(picture->size));
    ASSERT_TRUE(image_build_runs(picture));
    fake_video.watching = true;
    on.show([&] {
        draw_image(picture, 790, 0, true);
        draw_image(picture, 800, 0, false);
        draw_image_bg(picture, 0, 0);
        draw_image_ex(picture, 0, 200, BLIT_FILL | BLIT_NO_DIRTY, RED);
        draw_record<DRAW_IMAGE_EX>({picture, 0, 300, BLIT_SOURCE_RECT, RED, RED, {}, {1, 1, 3, 4}});
        draw_image_clipped(picture, 100, 100, {104, 101, 5, 5});
        draw_fill({300, 300, 5, 5}, RED, false);
    });
    on.show([&] {
        draw_frame({50, 60, 30, 20}, RED, true);
        draw_line(300, 20, 290, 40, RED, true);
        draw_darken_bg({500, 500, 5, 5});
        draw_image_bg_show(picture, 200, 400);
    });
    on.show([] {});
    on.show([] {});
    std::string shown;
    for (const auto &pass : fake_video.updates) {
        for (const SDL_Rect &r : pass)
            for (const int n : {int{r.x}, int{r.y}, int{r.w}, int{r.h}})
                shown += std::to_string(n) + " ";
        shown += "|";
    }
    // Darkening the background changes nothing on the screen; that nothing has changed is said once.
    EXPECT_EQ(shown, "790 0 10 10 0 300 3 4 104 101 5 5 |"
                     "790 0 10 10 50 60 30 1 50 60 1 20 79 60 1 20 50 79 30 1 "
                     "290 20 11 21 200 400 20 10 ||");
    image_free(picture);
}

TEST(lists, a_damaged_list_ends_at_the_damage) {
    const stage on(16);
    const fill_operands whole = {WHOLE_SCREEN, RED, 0, 0}, part = {{0, 0, 5, 5}, BLUE, 0, 0};
    const std::size_t size = sizeof whole + 1;
    for (const u8 damage : {static_cast<u8>(DRAW_OPCODE_COUNT), u8{255}, static_cast<u8>(DRAW_FILL)}) {
        std::vector<u8> bytes(2 * size);
        bytes[0] = DRAW_FILL;
        std::memcpy(&bytes[1], &whole, sizeof whole);
        bytes[size] = damage;
        std::memcpy(&bytes[size + 1], &part, sizeof part);
        if (damage == DRAW_FILL)
            bytes.pop_back();
        {
            const screen_access access;
            draw_list_play(bytes);
        }
        EXPECT_EQ(pixel_at(2, 2), RED_PIXEL) << int{damage};
    }
}

TEST(lists, a_command_without_room_is_dropped) {
    stage on(16);
    constexpr i32 MANY = 2000; // more than one growth holds
    fake_fail_allocation(2, true);
    on.show([] {
        for (i32 i = 0; i < MANY; ++i)
            draw_fill({i % SCREEN_WIDTH, i / SCREEN_WIDTH, 1, 1}, WHITE, false);
    });
    EXPECT_EQ(pixel_at(599, 0), WHITE_PIXEL);
    EXPECT_EQ(pixel_at(MANY - 1 - 2 * SCREEN_WIDTH, 2), BLACK_PIXEL);
    fake_fail_allocation(0);
    on.show([] { draw_fill({1, 1, 1, 1}, RED, false); });
    EXPECT_EQ(pixel_at(1, 1), RED_PIXEL);
}

TEST(slots, restore_what_lay_on_the_screen) {
    stage on(16, 8);
    std::mt19937 dice(3);
    const struct {
        rect area;
        i32 slot;
        bool saves;
    } ROWS[] = {
        {{100, 100, 30, 20}, 0, true}, {{-5, -5, 30, 20}, 1, true},       {{790, 590, 30, 20}, 0, true},
        {{0, 0, 800, 600}, 1, true},   {{-30, 0, 30, 20}, 0, false},      {{5, 600, 5, 5}, 0, false},
        {{5, 5, 0, 9}, 1, false},      {{5, 5, 9, 9}, SAVE_SLOTS, false}, {{5, 5, 9, 9}, -1, false},
        {{10, 10, 3, 3}, 1, true},
    };
    for (const auto &row : ROWS) {
        scatter<pixel16>(dice);
        const auto before = screen_pixels<pixel16>();
        on.show([&] { draw_save(row.area, row.slot); });
        on.show([&] { draw_fill(row.area, RED, false); });
        const auto filled = screen_pixels<pixel16>();
        on.show([&] { draw_restore_saved(row.slot); });
        EXPECT_TRUE(screen_pixels<pixel16>() == (row.saves ? before : filled)) << row.area.x << ", " << row.area.y;
    }
}

TEST(locking, a_screen_that_cannot_be_locked_loses_nothing_else) {
    stage on(16, 8);
    image *picture = image_create(4, 4);
    fake_video.fail_lock = true;
    on.show([&] {
        draw_fill(WHOLE_SCREEN, RED, true);
        draw_save({0, 0, 9, 9}, 0);
        draw_restore_saved(0);
        draw_line(0, 0, 9, 9, RED, true);
        draw_store_bg(WHOLE_SCREEN);
        draw_record<DRAW_FILL_BG>({WHOLE_SCREEN, BLUE, 0, 0});
        draw_record<DRAW_FREE_IMAGE>({picture});
    });
    screen_fill(WHOLE_SCREEN, RED);
    fake_video.fail_lock = false;
    on.show([] { draw_fill({0, 0, 5, 5}, WHITE, true); });
    EXPECT_EQ(pixel_at(0, 0), WHITE_PIXEL);
    EXPECT_EQ(pixel_at(9, 9), BLUE_PIXEL) << "the window is repainted once it can be reached again";
    EXPECT_EQ(fake_video.locks, 0);
}

// --- The render thread ---------------------------------------------------------------------------

struct running_thread {
    app_state state{};
    SDL_Thread *thread;

    running_thread() {
        app = &state;
        thread = render_start();
    }
    ~running_thread() {
        state.flags |= APP_QUIT;
        render_stop(thread);
        app = nullptr;
    }
};

// Waits until the list before has been played, so that no two frames share a list.
void record_when_idle(const auto &record) {
    while (!render_begin_frame() || draw_queue.pending) {
        render_end_frame();
        SDL_Delay(1);
    }
    record();
    render_end_frame();
}

TEST(thread, frames_are_the_same_with_and_without_it) {
    constexpr i32 FRAMES = 40, COMMANDS = 60;
    std::size_t hashes[2];
    for (const bool threaded : {false, true}) {
        stage on(16);
        fake_dice({3, 77, 1, 250, 41});
        std::mt19937 dice(11);
        image *picture = random_picture<pixel16>(dice, 33, 21);
        const auto record = [&] {
            for (i32 i = 0; i < COMMANDS; ++i)
                record_any(dice, picture, true);
        };
        if (threaded) {
            running_thread render;
            for (i32 i = 0; i < FRAMES; ++i)
                record_when_idle(record);
            render_pause(2);
            render_resume();
        } else {
            for (i32 i = 0; i < FRAMES; ++i)
                on.show(record);
            on.show([] { draw_record<DRAW_PIXEL>({-1, -1, BLACK, 0, 0}); });
        }
        hashes[threaded] = hash_of_all();
        image_free(picture);
    }
    EXPECT_EQ(hashes[0], hashes[1]);
}

TEST(thread, a_pause_waits_for_what_was_recorded) {
    const stage on(16);
    running_thread render;
    for (i32 i = 0; i < 20; ++i) {
        const rgb colour = i % 2 == 0 ? RED : BLUE;
        record_when_idle([&] { draw_fill(WHOLE_SCREEN, colour, true); });
        render_pause(2);
        EXPECT_EQ(pixel_at(799, 599), pixel16::from_rgb(colour));
        screen_fill({0, 0, 9, 9}, WHITE);
        screen_store_background({0, 0, 9, 9});
        screen_show_background(0, 0, 20, 20);
        dirty_add(0, 0, 20, 20);
        dirty_flush();
        EXPECT_EQ(pixel_at(8, 8), WHITE_PIXEL);
        EXPECT_EQ(pixel_at(9, 9), BLACK_PIXEL);
        render_resume();
    }
    record_when_idle([] { draw_fill(WHOLE_SCREEN, RED, true); });
    render_wait_until_played();
    EXPECT_EQ(pixel_at(799, 599), RED_PIXEL);
    render.state.flags |= APP_QUIT;
    render_pause(50); // until nobody is left to pause
    render_resume();
    EXPECT_FALSE(lock_is_held(surface_lock));
}

} // namespace
