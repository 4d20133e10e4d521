// puzzle_help_test.cpp: the help bubbles stand on the screen and do not cover each other.
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

constexpr i32 GLYPH_WIDTH = 5; // pixels, and one between two: about what the game's letters measure on average

// Frames and lines of the bubbles that show.
void read_bubbles(std::vector<rect> *frames, std::vector<rect> *lines) {
    const draw_block &list = draw_queue.lists[draw_queue.recording];
    for (i32 at = 0; at < list.length; at += DRAW_COMMANDS[list.bytes[at]].size + 1) {
        const u8 *operands = list.bytes + at + 1;
        if (list.bytes[at] == DRAW_FRAME)
            frames->push_back(recording_detail::operands_at<fill_operands>(operands).area);
        if (list.bytes[at] == DRAW_LINE)
            lines->push_back(recording_detail::operands_at<rect>(operands)); // of its ends
    }
}

TEST(puzzle_help, stands_on_the_screen_without_covering_itself) {
    constexpr i32 LAST_START = 300; // frames
    constexpr struct {
        std::size_t bubbles, lines;
        int right_aligned;
    } EXPECTED[PUZZLE_COUNT] = {{4, 2, 2}, {5, 6, 0}, {4, 2, 2}, {5, 6, 0}, {5, 6, 0}, {5, 6, 0},
                                {5, 5, 2}, {6, 4, 2}, {5, 4, 2}, {4, 3, 2}, {3, 3, 0}};
    const puzzle_table t(0);
    for (std::size_t c = ' '; c < 127; ++c)
        glyphs[c] = {image_create(GLYPH_WIDTH, 10), image_create(GLYPH_WIDTH, 10), GLYPH_WIDTH, 10, 0, -1, -1, -1};
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        SCOPED_TRACE(type);
        t.b->type = type;
        board_show_help(t.b);
        for (int i = 0; i <= LAST_START; ++i)
            help_step();
        board_show_help(t.b); // nothing while help shows
        help_draw();
        std::vector<rect> frames, lines;
        read_bubbles(&frames, &lines);
        take_recording({});
        help_stop();
        EXPECT_TRUE(frames.size() == EXPECTED[type].bubbles && lines.size() == EXPECTED[type].lines);
        int right_aligned = 0;
        for (const rect &frame : frames) {
            right_aligned += frame.x + frame.w == 777 ? 1 : 0; // two pixels of frame around the text
            EXPECT_TRUE(inside(frame, WHOLE_SCREEN)) << frame.x << ", " << frame.y;
            for (const rect &other : frames)
                EXPECT_TRUE(&other == &frame || !overlap(frame, other)) << frame.x << ", " << frame.y;
        }
        EXPECT_EQ(right_aligned, EXPECTED[type].right_aligned);
        for (const auto &[x0, y0, x1, y1] : lines)
            EXPECT_TRUE(inside({x0, y0, 1, 1}, WHOLE_SCREEN) && inside({x1, y1, 1, 1}, WHOLE_SCREEN));
    }
    font_shutdown();
}

} // namespace
