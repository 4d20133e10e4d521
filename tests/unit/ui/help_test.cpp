// help_test.cpp: the bubbles' schedule, stepping through them, their drawing, and the debug mode's key sequence.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/help.h"
#include "graphics/glyphs.h"
#include "input/input.h"
#include "sound/sound.h"
#include "unit/ui/ui_stage.h"

#include <SDL.h>

#include <map>

namespace {

struct help_stage : ui_stage {
    help_stage() { EXPECT_EQ(help_init(), 1); }
    ~help_stage() { help_shutdown(); }

    void step(int frames = 1) {
        for (; frames > 0; --frames) {
            input_poll();
            help_step();
        }
    }
    void type(const char *keys) {
        for (; *keys != '\0'; ++keys) {
            fake_key(*keys, true);
            step();
            fake_keys_up();
        }
    }
    // Bubbles that the frame draws: each has one frame around it.
    static std::size_t drawn() {
        forget();
        help_draw();
        return all_of<DRAW_FRAME>(now()).size();
    }
};

void show_at(std::initializer_list<i32> start_frames) {
    help_clear();
    for (const i32 start : start_frames)
        help_add_row({"", 300, 300, start, 0, {}});
    help_start();
}

} // namespace

TEST(Help, PulsesUntilItSettlesWhite) {
    help_stage stage;
    help_bubble *bubble = help_bubble_create();
    bubble->start_frame = 20;
    help_add(bubble);
    help_start();
    const std::map<int, i32> GREY = {{1, 251},  {17, 187}, {18, 183},  {19, 187},  {36, 255},
                                     {37, 251}, {54, 183}, {119, 211}, {120, 255}, {150, 255}};
    for (int frame = 1; frame <= 150; ++frame) {
        stage.step();
        if (GREY.contains(frame)) {
            EXPECT_EQ(bubble->red, GREY.at(frame)) << frame;
            EXPECT_EQ(bubble->blue, bubble->red);
        }
        EXPECT_EQ(sounds_played.size(), frame < 21 ? 0u : 1u) << frame;
    }
    EXPECT_EQ(sounds_played, std::vector<i32>{SOUND_SCORE_SHOW});
}

TEST(Help, AClickBringsTheNextBubbleAndTheLastOneEndsTheHelp) {
    const struct {
        int frame; // of the click
        std::size_t bubbles;
        bool showing;
    } ROWS[] = {
        {10, 1, true}, // too early
        {11, 3, true}, {99, 3, true}, {100, 3, true}, {101, 4, true}, {249, 4, true}, {250, 0, false}, {400, 0, false},
    };
    for (const bool by_key : {false, true}) {
        for (const auto &row : ROWS) {
            help_stage stage;
            show_at({250, 0, 100, 100});
            stage.step(row.frame - 1);
            if (by_key)
                fake_key(SDLK_SPACE, true);
            else
                fake_mouse_button(MOUSE_LEFT, true);
            stage.step();
            EXPECT_EQ(settings_help_showing(), row.showing) << row.frame;
            EXPECT_EQ(stage.drawn(), row.bubbles) << row.frame;
            sounds_played.clear();
            stage.step(); // the button is still held, which is no new click
            EXPECT_EQ(stage.drawn(), row.bubbles) << row.frame;
            const bool appears = row.showing && row.frame != 10;
            EXPECT_EQ(sounds_played.empty(), !appears) << row.frame;
        }
    }
}

TEST(Help, ClearedHelpStartsOverAndStoppedHelpStandsStill) {
    help_stage stage;
    show_at({0, 100});
    stage.step(120);
    help_stop();
    stage.step(50);
    EXPECT_EQ(stage.drawn(), 0u);
    help_start();
    EXPECT_EQ(stage.drawn(), 2u) << "stopping keeps the bubbles";
    show_at({0, 30});
    stage.step(29);
    EXPECT_EQ(stage.drawn(), 1u);
    fake_key(SDLK_a, true);
    stage.step();
    EXPECT_FALSE(settings_help_showing()) << "the last start is that of the new bubbles";
}

TEST(Help, DrawsTheBoxAroundTheTextAndErasesTheLines) {
    help_stage stage;
    image ink = {};
    glyph &letter = glyphs[static_cast<u8>('A')];
    letter = {.working = &ink, .source = &ink, .width = 9, .height = 12, .top = 3, .red = 0, .green = 0, .blue = 0};
    help_add_row({"AA", 200, 100, 0, 3, {{50, 60, 40, 90}, {40, 90, 50, 60}, {70, 10, 70, 10}}});
    help_start();
    stage.step();
    EXPECT_EQ(stage.drawn(), 1u);
    const auto now = ui_stage::now(), next = ui_stage::next();
    const rect box = {198, 86, 24, 19};
    const auto darkened = all_of<DRAW_DARKEN>(now);
    ASSERT_EQ(darkened.size(), 2u);
    EXPECT_EQ(darkened[0].area, box);
    const auto framed = all_of<DRAW_FRAME>(now);
    EXPECT_EQ(framed[0].area, box);
    EXPECT_EQ(framed[0].dirty, 0);
    const auto letters = all_of<DRAW_TEXT>(now);
    ASSERT_EQ(letters.size(), 2u);
    EXPECT_EQ(letters[1].red, 251);
    const auto lines = all_of<DRAW_LINE>(now);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].y1, 90);
    EXPECT_NE(lines[0].dirty, 0);
    const auto restored = all_of<DRAW_RESTORE>(next);
    ASSERT_EQ(restored.size(), 4u);
    EXPECT_EQ(restored[0].area, (rect{198, 86, 24, 20}));
    EXPECT_EQ(restored[1].area, (rect{40, 60, 11, 31}));
    EXPECT_EQ(restored[2].area, (rect{40, 60, 11, 31}));
    EXPECT_EQ(restored[3].area, (rect{70, 10, 1, 1}));
    letter = {};
}

TEST(Help, TheKeySequenceTogglesTheDebugMode) {
    const struct {
        const char *keys; // a key a frame
        int pause;        // frames without a key
        const char *then;
        std::size_t toggles;
    } ROWS[] = {
        {"qzkvxhwnyrt", 0, "", 1},      {"qzkvxhwnyrt", 0, "qzkvxhwnyrt", 2},
        {"qzakbvxqhw", 0, "qnyert", 1}, // others in between
        {"qzkvxhwnyr", 0, "", 0},       {"zkvxhwnyrt", 0, "", 0},
        {"qzkvxh", 199, "wnyrt", 1},    {"qzkvxh", 200, "wnyrt", 0},
    };
    for (const auto &row : ROWS) {
        help_stage stage;
        stage.type(row.keys);
        stage.step(row.pause);
        stage.type(row.then);
        EXPECT_EQ(app_has(APP_DEBUG), row.toggles % 2 == 1) << row.keys << row.pause << row.then;
        EXPECT_EQ(sounds_played, std::vector<i32>(row.toggles, SOUND_PIECE_DISAPPEAR));
    }
}

TEST(Help, LeavesOutWhatMemoryIsShortFor) {
    help_stage stage;
    help_start();
    const int failed = fake_fail_each_allocation([&stage] {
        help_add_row({"text", 0, 0, 0, 0, {}});
        return stage.drawn() == 1;
    });
    EXPECT_GE(failed, 3) << "the bubble, its text and the list's slot";
    EXPECT_EQ(stage.drawn(), 1u);
}
