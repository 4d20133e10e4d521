// ui_test.cpp: buttons, help and the order of a frame and of a change of screens, without a window: scripted input,
// sounds written down, commands read back.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/app_state.h"
#include "core/base/log.h"
#include "core/base/settings.h"
#include "core/ui/button.h"
#include "core/ui/help.h"
#include "core/ui/screen.h"
#include "input/input.h"
#include "sound/sound.h"
#include "support/fake_sdl.h"
#include "support/recording.h"

#include <SDL.h>
#include <gtest/gtest.h>

static int sound_updates;

void sound_play(i32 number) {
    sounds_played.push_back(number);
}

void sound_update() {
    ++sound_updates;
}

namespace {

// One a test: an idle render thread, input, the global record and no help.
struct ui_stage {
    fake_scope fakes;
    app_state state = {};

    ui_stage() {
        log_set_mode(0);
        fake_keys_up();
        app = &state;
        EXPECT_EQ(input_init(), 1);
        EXPECT_EQ(help_init(), 1);
        sounds_played.clear();
        draw_queue.idle = true;
    }
    ~ui_stage() {
        draw_queue_free();
        app = nullptr;
        input_shutdown();
        log_set_mode(LOG_STDERR);
    }
};

// --- Buttons -------------------------------------------------------------------------------------

constexpr image sized(i32 width, i32 height) {
    return {.pixels = nullptr, .size = 0, .width = width, .height = height, .runs = nullptr, .run_count = 0};
}

const image normal = sized(32, 22), hover = sized(33, 23), pressed = sized(41, 27);
const image *const LOOKS[] = {&normal, &hover, &pressed};

TEST(button, look_and_flags_follow_the_events) {
    using event = void (*)(button *);
    const std::map<char, event> EVENTS = {{'h', button_hover},   {'u', button_unhover},       {'p', button_press},
                                          {'r', button_release}, {'l', button_release_later}, {'t', button_tick}};
    const struct {
        const char *events;
        i32 look;
        u32 flags;
        int calls;
    } ROWS[] = {
        {"r", BUTTON_LOOK_NORMAL, 0, 0},
        {"ur", BUTTON_LOOK_NORMAL, 0, 0},
        {"ppp", BUTTON_LOOK_PRESSED, BUTTON_PRESSED, 1},
        {"prpr", BUTTON_LOOK_NORMAL, 0, 2},
        {"hpr", BUTTON_LOOK_HOVER, BUTTON_HOVER, 1},
        {"hph", BUTTON_LOOK_HOVER, BUTTON_HOVER | BUTTON_PRESSED, 1},
        {"hpu", BUTTON_LOOK_NORMAL, BUTTON_PRESSED, 1},
        {"plttt", BUTTON_LOOK_PRESSED, BUTTON_PRESSED | BUTTON_RELEASE_PENDING, 1},
        {"hpltttt", BUTTON_LOOK_HOVER, BUTTON_HOVER, 1},
        {"plttltttt", BUTTON_LOOK_NORMAL, 0, 1},
    };
    const ui_stage stage;
    for (const auto &row : ROWS) {
        int calls = 0;
        button b = {};
        button_set_pictures(&b, LOOKS[0], LOOKS[1], LOOKS[2], nullptr);
        const auto count = [](button *, std::intptr_t counter, std::intptr_t) { ++*reinterpret_cast<int *>(counter); };
        button_set_callback(&b, count, reinterpret_cast<std::intptr_t>(&calls), 0);
        for (const char *name = row.events; *name != '\0'; ++name)
            EVENTS.at (*name)(&b);
        EXPECT_EQ(b.state, row.look) << row.events;
        EXPECT_EQ(b.flags, row.flags) << row.events;
        EXPECT_EQ(calls, row.calls) << row.events;
        EXPECT_EQ(take_sounds(), sounds(static_cast<std::size_t>(row.calls), SOUND_CLICK)) << row.events;
    }
}

TEST(button, list_finds_the_last_one_edges_included) {
    const ui_stage stage;
    ptr_array<button> *list = ptr_array_create<button>(button_free);
    button *low = button_add(list, LOOKS, 10, 10, nullptr);
    button *high = button_add(list, LOOKS, 20, 20, nullptr);
    const std::tuple<i32, i32, const button *> ROWS[] = {{25, 25, high},    {15, 15, low},    {10, 10, low},
                                                         {9, 10, nullptr},  {10, 9, nullptr}, {52, 42, high},
                                                         {53, 42, nullptr}, {52, 43, nullptr}};
    for (const auto &[x, y, hit] : ROWS)
        EXPECT_EQ(button_tick_and_find(list, x, y), hit) << x << ", " << y;
    button_hover(high);
    EXPECT_EQ(button_tick_and_find(list, 53, 43), high) << "as large as it looks";
    ptr_array_destroy(list);
}

// --- Help ----------------------------------------------------------------------------------------

struct help_stage : ui_stage {
    static void step(int frames = 1) {
        for (; frames > 0; --frames) {
            input_poll();
            help_step();
        }
    }
    static void show_at(std::initializer_list<i32> start_frames) {
        std::vector<help_row> rows;
        for (const i32 start : start_frames)
            rows.push_back({"", 300, 300, start, 0, {}});
        help_show(rows);
    }
    // Bubbles that the frame draws: each has one frame around it.
    static int drawn() {
        take_recording();
        help_draw();
        int frames = 0;
        for (const std::string &line : take_recording().now)
            frames += line.starts_with("frame") ? 1 : 0;
        return frames;
    }
};

TEST(help, a_click_brings_the_next_bubble_and_the_last_one_ends_the_help) {
    const struct {
        int frame, bubbles; // of the click, and after it; none: the help has ended
    } ROWS[] = {{10, 1}, {11, 3}, {99, 3}, {100, 3}, {101, 4}, {249, 4}, {250, 0}, {400, 0}}; // the first too early
    for (const bool by_key : {false, true}) {
        for (const auto &[frame, bubbles] : ROWS) {
            const help_stage stage;
            stage.show_at({900});
            help_stop();
            stage.show_at({250, 0, 100, 100}); // which forgets the other one
            stage.show_at({800});              // which is not heard
            stage.step(frame - 1);
            by_key ? fake_key(SDLK_SPACE, true) : fake_mouse_button(MOUSE_LEFT, true);
            stage.step();
            EXPECT_EQ(settings_help_showing(), bubbles > 0) << frame;
            EXPECT_EQ(stage.drawn(), bubbles) << frame;
            sounds_played.clear();
            stage.step(); // the button is still held, which is no new click
            EXPECT_EQ(stage.drawn(), bubbles) << frame;
            EXPECT_EQ(sounds_played.empty(), frame == 10 || bubbles == 0) << frame;
        }
    }
}

// --- Screens, seven that only write down their calls ---------------------------------------------

std::string trace;                // the calls, each a letter and the screen's number
std::vector<screen_id> on_update; // requested in turn by the next update
screen_id on_enter = SCREEN_NONE; // requested by the next enter

template <char what, int n> void call() {
    trace += {what == 'v' && settings_help_showing() ? '?' : what, static_cast<char>('0' + n), ' '};
    if (what == 'u')
        for (const screen_id wanted : std::exchange(on_update, {}))
            screen_request(wanted);
    if (what == 'e' && on_enter != SCREEN_NONE)
        screen_request(std::exchange(on_enter, SCREEN_NONE));
}

// The credits screen has no operations at all.
template <int n> void fill(screen_operations *table) {
    if (n == SCREEN_CREDITS)
        return;
    table->update[n] = call<'u', n>;
    table->draw[n] = call<'d', n>;
    table->tick[n] = call<'t', n>;
    table->late[n] = call<'l', n>;
    table->enter[n] = call<'e', n>;
    table->leave[n] = call<'v', n>;
}

struct screens_stage : ui_stage {
    screen_operations table = {};

    screens_stage() {
        [this]<int... n>(std::integer_sequence<int, n...>) {
            (fill<n>(&table), ...);
        }
        (std::make_integer_sequence<int, SCREEN_COUNT>());
        sound_updates = 0;
        trace.clear();
        EXPECT_EQ(screen_init_all(table), 1);
        EXPECT_EQ(trace, "e6 ") << "the splash screen";
    }
    ~screens_stage() { screen_shutdown_all(); }

    // The calls of one frame.
    static std::string frame() {
        trace.clear();
        take_recording();
        screen_tick();
        screen_update();
        screen_draw();
        screen_end_frame();
        return trace;
    }
};

const lines WHOLE = {"restore 0 0 800 600"};

TEST(screens, change_once_at_the_end_of_the_frame) {
    const screens_stage stage;
    on_update = {SCREEN_DIALOG, SCREEN_TITLE};
    settings |= SETTINGS_HELP;
    EXPECT_EQ(stage.frame(), "t6 u6 d6 l6 v6 e1 ") << "the last request wins, and help ends before the screen";
    on_update = {SCREEN_TITLE};
    EXPECT_EQ(stage.frame(), "t1 u1 d1 l1 ") << "it is current";
    on_update = {SCREEN_CREDITS};
    EXPECT_EQ(stage.frame(), "t1 u1 d1 l1 v1 ");
    EXPECT_EQ(stage.frame(), "");
    screen_request(SCREEN_STUDY);
    on_enter = SCREEN_TITLE;
    EXPECT_EQ(stage.frame(), "e2 ") << "what is asked for while entering waits for the next frame";
    EXPECT_EQ(stage.frame(), "t2 u2 d2 l2 v2 e1 ");
    EXPECT_EQ(sound_updates, 6);
}

TEST(screens, a_busy_render_thread_delays_only_the_drawing) {
    const screens_stage stage;
    draw_queue.idle = false;
    on_update = {SCREEN_TITLE};
    EXPECT_EQ(stage.frame(), "t6 u6 l6 v6 e1 ");
    EXPECT_EQ(stage.frame(), "t1 u1 l1 ");
    EXPECT_TRUE(take_recording().now.empty());
    draw_queue.idle = true;
    EXPECT_EQ(stage.frame(), "t1 u1 d1 l1 ");
    EXPECT_EQ(take_recording().now, WHOLE) << "the new screen's repainting has waited";
    stage.frame();
    EXPECT_TRUE(take_recording().now.empty()) << "once";
    screen_request_redraw();
    stage.frame();
    EXPECT_EQ(take_recording().now, WHOLE);
}

} // namespace
