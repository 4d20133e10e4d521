// screen_test.cpp: the order of a frame and of a change, with seven screens that only write down their calls.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/screen.h"

#include "sound/sound.h"
#include "unit/ui/ui_stage.h"

#include <string>

namespace {

int sound_updates;

} // namespace

void sound_play(i32 number) {
    sounds_played.push_back(number);
}

void sound_update() {
    ++sound_updates;
}

namespace {

std::string trace;                // the calls, each a letter and the screen's number
int failing_init = -1;            // this screen's init fails
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
template <int n> i32 init() {
    call<'i', n>();
    return n == failing_init ? -1 : 1;
}

// The credits screen has no operations at all.
template <int n> void fill(screen_operations *table) {
    if (n == SCREEN_CREDITS)
        return;
    table->init[n] = init<n>;
    table->shutdown[n] = call<'s', n>;
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
        failing_init = -1;
        sound_updates = 0;
        trace.clear();
        EXPECT_EQ(screen_init_all(table), 1);
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

TEST(screens, start_with_the_splash_screen_and_stop_at_the_first_failure) {
    const screens_stage stage;
    EXPECT_EQ(trace, "i0 i1 i2 i3 i4 i6 e6 ");
    EXPECT_EQ(screen_current(), SCREEN_SPLASH);
    trace.clear();
    failing_init = 2;
    EXPECT_EQ(screen_init_all(stage.table), -1);
    screen_shutdown_all();
    EXPECT_EQ(trace, "i0 i1 i2 s0 s1 s2 s3 s4 s6 ");
}

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
