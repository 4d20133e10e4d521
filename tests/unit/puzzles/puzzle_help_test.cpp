// puzzle_help_test.cpp: the help bubbles stand on the screen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/help.h"
#include "core/settings.h"
#include "graphics/font.h"
#include "graphics/glyphs.h"
#include "puzzles/puzzle_info.h"
#include "unit/puzzles/table.h"

namespace {

constexpr i32 LAST_START = 300; // frames
constexpr i32 GLYPH_WIDTH = 5;  // pixels, and one between two: about what the game's letters measure on average

struct typecase {
    typecase() {
        for (int c = ' '; c < 127; ++c)
            glyphs[c] = {image_create(GLYPH_WIDTH, 10), image_create(GLYPH_WIDTH, 10), GLYPH_WIDTH, 10, 0, -1, -1, -1};
    }
    ~typecase() { font_shutdown(); }
};

// Frames and lines of all bubbles, once all are shown.
struct shown_help {
    std::vector<rect> frames;
    std::vector<line_operands> lines;

    explicit shown_help(empty_table &t) {
        for (int i = 0; i <= LAST_START; ++i)
            help_step();
        take_recording({});
        help_draw();
        const draw_block &list = draw_queue.lists[draw_queue.recording];
        for (i32 at = 0; at < list.length;) {
            const u8 id = list.bytes[at++];
            if (id == DRAW_FRAME)
                frames.push_back(recording_detail::operands_at<fill_operands>(list.bytes + at).area);
            if (id == DRAW_LINE)
                lines.push_back(recording_detail::operands_at<line_operands>(list.bytes + at));
            at += DRAW_COMMANDS[id].size;
        }
        take_recording({});
        (void)t;
    }
};

TEST(puzzle_help, stands_on_the_screen_without_covering_itself) {
    constexpr struct {
        std::size_t bubbles, lines;
        int right_aligned;
    } EXPECTED[PUZZLE_COUNT] = {{4, 2, 2}, {5, 6, 0}, {4, 2, 2}, {5, 6, 0}, {5, 6, 0}, {5, 6, 0},
                                {5, 5, 2}, {6, 4, 2}, {5, 4, 2}, {4, 3, 2}, {3, 3, 0}};
    const typecase letters;
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        SCOPED_TRACE(type);
        empty_table t(picture_archive(0));
        t.b->type = type;
        board_show_help(t.b);
        EXPECT_TRUE(settings_help_showing());
        const shown_help help(t);
        EXPECT_EQ(help.frames.size(), EXPECTED[type].bubbles);
        EXPECT_EQ(help.lines.size(), EXPECTED[type].lines);
        int right_aligned = 0;
        for (const rect &frame : help.frames) {
            EXPECT_TRUE(inside(frame, WHOLE_SCREEN)) << frame.x << ", " << frame.y;
            right_aligned += frame.x + frame.w == 777 ? 1 : 0; // two pixels of frame around the text
            for (const rect &other : help.frames)
                EXPECT_TRUE(&other == &frame || !overlap(frame, other)) << frame.x << ", " << frame.y;
        }
        EXPECT_EQ(right_aligned, EXPECTED[type].right_aligned);
        t.b->type = BOARD_NO_TYPE;
    }
}

TEST(puzzle_help, does_not_start_over_while_it_shows) {
    puzzle_table t(2);
    board_show_help(t.b);
    const shown_help before(t);
    board_show_help(t.b);
    EXPECT_EQ(shown_help(t).frames.size(), before.frames.size());
}

} // namespace
