// screen_test.cpp: the order of a frame and of a change, with seven screens that only write down their calls.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/help.h"
#include "core/screen.h"
#include "graphics/draw_queue.h"
#include "unit/ui/ui_stage.h"

#include <string>

namespace {

std::string trace;                                   // the calls, each a letter and the screen's number
int failing_init = -1;                               // this screen's init fails
screen_id on_enter[SCREEN_COUNT];                    // requested by the screen's enter, SCREEN_NONE for nothing
screen_id on_update[2] = {SCREEN_NONE, SCREEN_NONE}; // requested in turn by the next update

void note(char what, int screen) {
    trace += what;
    trace += static_cast<char>('0' + screen);
    trace += ' ';
}

template <int n> i32 init() {
    note('i', n);
    return n == failing_init ? -1 : 1;
}
template <char what, int n> void call() {
    note(what, n);
}
template <int n> void update() {
    note('u', n);
    for (screen_id &wanted : on_update) {
        if (wanted != SCREEN_NONE)
            screen_request(wanted);
        wanted = SCREEN_NONE;
    }
}
template <int n> void enter() {
    note('e', n);
    if (on_enter[n] != SCREEN_NONE)
        screen_request(on_enter[n]);
}
template <int n> void leave() {
    note(settings_help_showing() ? '?' : 'v', n);
}

} // namespace

#define SEVEN(function)                                                                                                \
    { function<0>, function<1>, function<2>, function<3>, function<4>, function<5>, function<6> }
#define CALLS(what)                                                                                                    \
    { call<what, 0>, call<what, 1>, call<what, 2>, call<what, 3>, call<what, 4>, call<what, 5>, call<what, 6> }

// The credits screen has no operations at all.
const screen_operations screen_table = [] {
    screen_operations table = {
        .init = SEVEN(init),
        .shutdown = CALLS('s'),
        .update = SEVEN(update),
        .draw = CALLS('d'),
        .tick = CALLS('t'),
        .late = CALLS('l'),
        .enter = SEVEN(enter),
        .leave = SEVEN(leave),
    };
    table.init[SCREEN_CREDITS] = nullptr;
    table.shutdown[SCREEN_CREDITS] = table.update[SCREEN_CREDITS] = table.draw[SCREEN_CREDITS] = nullptr;
    table.tick[SCREEN_CREDITS] = table.late[SCREEN_CREDITS] = nullptr;
    table.enter[SCREEN_CREDITS] = table.leave[SCREEN_CREDITS] = nullptr;
    return table;
}();

namespace {

struct screens_stage : ui_stage {
    screens_stage() {
        failing_init = -1;
        for (screen_id &wanted : on_enter)
            wanted = SCREEN_NONE;
        EXPECT_EQ(help_init(), 1);
        trace.clear();
        EXPECT_EQ(screen_init_all(screen_table), 1);
    }
    ~screens_stage() {
        screen_shutdown_all();
        help_shutdown();
    }
    // The calls of one frame.
    static std::string frame() {
        trace.clear();
        forget();
        screen_tick();
        screen_update();
        screen_draw();
        screen_end_frame();
        return trace;
    }
    static bool restores_all() {
        const auto restored = all_of<DRAW_RESTORE>(now());
        return restored.size() == 1 && restored[0].area == WHOLE_SCREEN;
    }
};

} // namespace

TEST(Screen, StartsWithTheSplashScreenAndStopsAtTheFirstFailure) {
    screens_stage stage;
    EXPECT_EQ(trace, "i0 i1 i2 i3 i4 i6 e6 ");
    EXPECT_EQ(screen_current(), SCREEN_SPLASH);
    trace.clear();
    failing_init = 2;
    EXPECT_EQ(screen_init_all(screen_table), -1);
    EXPECT_EQ(trace, "i0 i1 i2 ");
    trace.clear();
    screen_shutdown_all();
    EXPECT_EQ(trace, "s0 s1 s2 s3 s4 s6 ");
}

TEST(Screen, ChangesOnceAtTheEndOfTheFrame) {
    screens_stage stage;
    EXPECT_EQ(stage.frame(), "t6 u6 d6 l6 ");
    on_update[0] = SCREEN_DIALOG;
    on_update[1] = SCREEN_TITLE;
    settings |= SETTINGS_HELP;
    EXPECT_EQ(stage.frame(), "t6 u6 d6 l6 v6 e1 ") << "the last request wins, and help ends before the screen";
    EXPECT_EQ(stage.frame(), "t1 u1 d1 l1 ");
    on_update[0] = SCREEN_TITLE;
    EXPECT_EQ(stage.frame(), "t1 u1 d1 l1 ") << "it is current";
    on_update[0] = SCREEN_CREDITS;
    EXPECT_EQ(stage.frame(), "t1 u1 d1 l1 v1 ");
    EXPECT_EQ(stage.frame(), "");
    screen_request(SCREEN_PLAY);
    EXPECT_EQ(stage.frame(), "e0 ");
    EXPECT_EQ(sound_updates, 7);
}

TEST(Screen, ARequestMadeWhileEnteringWaitsForTheNextFrame) {
    screens_stage stage;
    on_enter[SCREEN_STUDY] = SCREEN_TITLE;
    screen_request(SCREEN_STUDY);
    EXPECT_EQ(stage.frame(), "t6 u6 d6 l6 v6 e2 ");
    EXPECT_EQ(stage.frame(), "t2 u2 d2 l2 v2 e1 ");
}

TEST(Screen, ABusyRenderThreadDelaysOnlyTheDrawing) {
    screens_stage stage;
    draw_queue.idle = false;
    on_update[0] = SCREEN_TITLE;
    EXPECT_EQ(stage.frame(), "t6 u6 l6 v6 e1 ");
    EXPECT_EQ(stage.frame(), "t1 u1 l1 ");
    EXPECT_TRUE(stage.now().empty());
    draw_queue.idle = true;
    EXPECT_EQ(stage.frame(), "t1 u1 d1 l1 ");
    EXPECT_TRUE(stage.restores_all()) << "the new screen's repainting has waited";
    stage.frame();
    EXPECT_TRUE(stage.now().empty()) << "once";
    screen_request_redraw();
    stage.frame();
    EXPECT_TRUE(stage.restores_all());
}
