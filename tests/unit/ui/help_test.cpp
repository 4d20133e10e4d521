// help_test.cpp: the bubbles' schedule, stepping through them, their drawing, and the debug mode's key sequence.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/glyphs.h"
#include "sound/sound.h"
#include "unit/ui/ui_stage.h"

#include <SDL.h>

namespace {

struct help_stage : ui_stage {
    static void step(int frames = 1) {
        for (; frames > 0; --frames) {
            input_poll();
            help_step();
        }
    }
    static void type(const char *keys) {
        for (; *keys != '\0'; ++keys) {
            fake_key(*keys, true);
            step();
            fake_keys_up();
        }
    }
    static void show_at(std::initializer_list<i32> start_frames) {
        help_clear();
        for (const i32 start : start_frames)
            help_add_row({"", 300, 300, start, 0, {}});
        help_start();
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

TEST(help, pulses_until_it_settles_white) {
    const help_stage stage;
    help_bubble *bubble = help_bubble_create();
    bubble->start_frame = 20;
    help_add(bubble);
    help_start();
    int frame = 0;
    for (const auto &[at, grey] : {std::pair{1, 251},
                                   {17, 187},
                                   {18, 183},
                                   {19, 187},
                                   {36, 255},
                                   {37, 251},
                                   {119, 211},
                                   {120, 255},
                                   {150, 255}}) {
        for (; frame < at; ++frame) {
            stage.step();
            EXPECT_EQ(sounds_played.size(), frame < 20 ? 0u : 1u) << frame;
        }
        EXPECT_TRUE(bubble->red == grey && bubble->green == grey && bubble->blue == grey) << at;
    }
    EXPECT_EQ(sounds_played, sounds{SOUND_SCORE_SHOW});
}

TEST(help, a_click_brings_the_next_bubble_and_the_last_one_ends_the_help) {
    const struct {
        int frame, bubbles; // of the click, and after it; none: the help has ended
    } ROWS[] = {{10, 1}, {11, 3}, {99, 3}, {100, 3}, {101, 4}, {249, 4}, {250, 0}, {400, 0}}; // the first too early
    for (const bool by_key : {false, true}) {
        for (const auto &[frame, bubbles] : ROWS) {
            const help_stage stage;
            stage.show_at({250, 0, 100, 100});
            stage.step(frame - 1);
            by_key ? fake_key(SDLK_SPACE, true) : fake_mouse_button(MOUSE_LEFT, true);
            stage.step();
            EXPECT_TRUE(settings_help_showing() == (bubbles > 0) && stage.drawn() == bubbles) << frame;
            sounds_played.clear();
            stage.step(); // the button is still held, which is no new click
            EXPECT_EQ(stage.drawn(), bubbles) << frame;
            EXPECT_EQ(sounds_played.empty(), frame == 10 || bubbles == 0) << frame;
        }
    }
}

TEST(help, starts_over_when_cleared_and_stands_still_when_stopped) {
    const help_stage stage;
    stage.show_at({0, 100});
    stage.step(120);
    help_stop();
    stage.step(50);
    EXPECT_EQ(stage.drawn(), 0);
    help_start();
    EXPECT_EQ(stage.drawn(), 2) << "stopping keeps the bubbles";
    stage.show_at({0, 30});
    stage.step(29);
    EXPECT_EQ(stage.drawn(), 1);
    fake_key(SDLK_a, true);
    stage.step();
    EXPECT_FALSE(settings_help_showing()) << "the last start is that of the new bubbles";
}

TEST(help, draws_the_box_around_the_text_and_erases_the_lines) {
    const help_stage stage;
    image ink = {};
    glyph &letter = glyphs[static_cast<u8>('A')];
    letter = {.working = &ink, .source = &ink, .width = 9, .height = 12, .top = 3, .red = 0, .green = 0, .blue = 0};
    const int failed = fake_fail_each_allocation([&stage] {
        help_clear();
        help_add_row({"AA", 200, 100, 0, 2, {{50, 60, 40, 90}, {70, 10, 70, 10}}});
        help_start();
        return stage.drawn() == 1;
    });
    EXPECT_GE(failed, 3) << "the bubble, its text and the list's slot";
    stage.step();
    help_draw();
    const recording drawn = take_recording();
    EXPECT_EQ(drawn.now, (lines{"darken 198 86 24 19", "darken 198 86 24 19", "letter 65 251", "letter 65 251",
                                "frame 198 86 24 19 0", "line 50 60 40 90 1", "line 70 10 70 10 1"}));
    EXPECT_EQ(drawn.next, (lines{"restore 198 86 24 20", "restore 40 60 11 31", "restore 70 10 1 1"}));
    letter = {};
}

TEST(help, key_sequence_toggles_the_debug_mode) {
    const struct {
        const char *keys; // a key a frame
        int pause;        // frames without a key
        const char *then;
        std::size_t toggles;
    } ROWS[] = {
        {"qzkvxhwnyrt", 0, "qzkvxhwnyrt", 2},
        {"qzakbvxqhw", 0, "qnyert", 1}, // others in between
        {"qzkvxhwnyr", 0, "", 0},
        {"zkvxhwnyrt", 0, "", 0},
        {"qzkvxh", 199, "wnyrt", 1},
        {"qzkvxh", 200, "wnyrt", 0},
    };
    for (const auto &[keys, pause, then, toggles] : ROWS) {
        const help_stage stage;
        stage.type(keys);
        stage.step(pause);
        stage.type(then);
        EXPECT_EQ(app_has(APP_DEBUG), toggles % 2 == 1) << keys << pause << then;
        EXPECT_EQ(sounds_played, sounds(toggles, SOUND_PIECE_DISAPPEAR));
    }
}

} // namespace
