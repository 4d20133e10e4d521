// render_test.cpp: recording and playing lists, a screen that cannot be locked, and the render thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/app_state.h"
#include "graphics/draw_play.h"
#include "graphics/draw_queue.h"
#include "graphics/locks.h"
#include "unit/graphics/stage.h"

#include <SDL_thread.h>

#include <string>

static int (*held_body)(void *) = nullptr; // started, but not running yet
static bool hold_thread = false;

extern "C" SDL_Thread *__real_SDL_CreateThread(int (*body)(void *), void *data);
extern "C" SDL_Thread *__wrap_SDL_CreateThread(int (*body)(void *), void *data) {
    if (!hold_thread)
        return __real_SDL_CreateThread(body, data);
    static int stand_in;
    held_body = body;
    return reinterpret_cast<SDL_Thread *>(&stand_in);
}

namespace {

constexpr rgb RED = {255, 0, 0}, BLUE = {0, 0, 255};
constexpr u16 RED_PIXEL = pixel16::from_rgb(RED), BLUE_PIXEL = pixel16::from_rgb(BLUE);
constexpr u16 WHITE_PIXEL = pixel16::from_rgb(WHITE), BLACK_PIXEL = 0;

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
    const auto append = [](std::vector<u8> *bytes, u8 id, const fill_operands &op) {
        bytes->push_back(id);
        bytes->insert(bytes->end(), reinterpret_cast<const u8 *>(&op), reinterpret_cast<const u8 *>(&op + 1));
    };
    for (const int damage : {static_cast<int>(DRAW_OPCODE_COUNT), 255, static_cast<int>(DRAW_FILL)}) {
        std::vector<u8> bytes;
        append(&bytes, DRAW_FILL, {WHOLE_SCREEN, RED, 0, 0});
        append(&bytes, static_cast<u8>(damage), {{0, 0, 5, 5}, BLUE, 0, 0});
        if (damage == DRAW_FILL)
            bytes.pop_back();
        const screen_access access;
        draw_list_play(bytes);
        EXPECT_EQ(pixel_at(2, 2), RED_PIXEL) << damage;
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

TEST(slots, are_emptied_by_saving_nothing) {
    stage on(16);
    for (const rect &nothing : {rect{-30, 0, 30, 20}, {5, 600, 5, 5}, {5, 5, 0, 9}}) {
        on.show([&] {
            draw_fill({0, 0, 9, 9}, WHITE, false);
            draw_save({0, 0, 9, 9}, 1);
            draw_fill({0, 0, 9, 9}, RED, false);
            draw_save(nothing, 1);
            draw_restore_saved(1);
        });
        EXPECT_EQ(pixel_at(5, 5), RED_PIXEL) << nothing.x;
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
    direct_fill(WHOLE_SCREEN, RED);
    fake_video.fail_lock = false;
    on.show([] { draw_fill({0, 0, 5, 5}, WHITE, true); });
    EXPECT_EQ(pixel_at(0, 0), WHITE_PIXEL);
    EXPECT_EQ(pixel_at(9, 9), BLUE_PIXEL) << "the window is repainted once it can be reached again";
    EXPECT_EQ(fake_video.locks, 0);
}

TEST(locking, what_was_not_compared_is_shown_again) {
    stage on(16, 8);
    const auto show_square = [&](rgb colour) { on.show([=] { draw_fill({0, 0, 9, 9}, colour, true); }); };
    show_square(WHITE);
    fake_video.fail_lock_in = 2; // drawing has one, comparing with what the window shows the next
    show_square(RED);
    fake_video.watching = true;
    show_square(WHITE); // as it was compared last, but not as it was shown last
    ASSERT_EQ(fake_video.updates.size(), 1U);
    EXPECT_EQ(fake_video.updates[0][0].w, SCREEN_WIDTH);
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

TEST(thread, that_has_not_run_yet_is_kept_off_the_screen) {
    const stage on(16);
    app_state state{};
    app = &state;
    hold_thread = true;
    EXPECT_NE(render_start(), nullptr);
    render_pause(1);
    EXPECT_TRUE(lock_is_held(surface_lock));
    render_resume();
    state.flags |= APP_QUIT; // one pass
    EXPECT_EQ(held_body(nullptr), 1);
    EXPECT_FALSE(render_running.load());
    hold_thread = false;
    app = nullptr;
}

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
        direct_fill({0, 0, 9, 9}, WHITE);
        direct_store_background({0, 0, 9, 9});
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
