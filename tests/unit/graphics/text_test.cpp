// text_test.cpp: measuring and wrapping text, where its characters stand and in which colour.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/font.h"
#include "graphics/glyphs.h"
#include "graphics/text.h"
#include "support/recording.h"
#include "unit/graphics/stage.h"

#include <algorithm>

namespace {

constexpr rgb RED = {255, 0, 0};

glyph &glyph_for(char c) {
    return glyphs[static_cast<u8>(c)];
}

// White glyphs without the font's pictures: 'a' 4 x 10, 'b' 7 x 15 with 3 empty rows, ' ' 2 x 1 and empty.
struct typecase {
    typecase() {
        add('a', 4, 10, 0);
        add('b', 7, 15, 3);
        add(' ', 2, 1, 1);
    }
    ~typecase() { font_shutdown(); }

    static image *block(i32 width, i32 height, i32 empty_rows) {
        image *picture = image_create(width, height);
        auto *pixels = reinterpret_cast<u16 *>(picture->pixels);
        std::fill_n(pixels, width * height, pixel16::from_rgb(WHITE));
        std::fill_n(pixels, width * empty_rows, key_pixel<pixel16>());
        EXPECT_TRUE(image_build_runs(picture));
        return picture;
    }
    static void add(char c, i32 width, i32 height, i32 empty_rows) {
        image *working = block(width, height, empty_rows), *source = block(width, height, empty_rows);
        const i32 top = empty_rows < height ? empty_rows : 0;
        glyph_for(c) = {working, source, width, height, top, -1, -1, -1};
    }
};

TEST(text, wraps_at_the_last_space_and_measures_lines) {
    const stage on(16);
    const typecase letters;
    const struct {
        std::string text;
        i32 width;
        const char *wrapped;
        text_size size;
    } ROWS[] = {
        {"aa aa aa", 24, "aa aa\naa", {23, 27, 0}},
        {"aa aa aa", 22, "aa\naa\naa", {10, 44, 0}},
        {"aaaaaaaa", 9, "aaaaaaaa", {40, 10, 0}},
        {"aaaa aa aa", 23, "aaaa\naa aa", {23, 27, 0}},
        {"a#a a", 11, "a#a\na", {10, 27, 0}},
        {"a\naaa b", 18, "a\naaa\nb", {15, 44, 3}},
        {"", 5, "", {0, 0, 0}},
        {"\xFF\x01", 100, "\xFF\x01", {0, 0, 0}},
    };
    for (auto row : ROWS) {
        text_wrap(row.text.data(), row.width);
        EXPECT_EQ(row.text, row.wrapped) << row.width;
        const text_size got = text_measure(row.text.c_str());
        EXPECT_EQ(got.width, row.size.width) << row.text;
        EXPECT_EQ(got.height, row.size.height) << row.text;
        EXPECT_EQ(got.top, row.size.top) << row.text;
    }
    std::string narrow;
    for (int i = 0; i < 30; ++i)
        narrow += "\naaaa a ";
    text_wrap(narrow.data(), 3); // where nothing fits, the line's width must not grow beyond its integer
    EXPECT_EQ(text_measure(narrow.c_str()).width, text_measure("aaaa").width);
}

TEST(text, is_recorded_around_its_last_line) {
    const stage on(16);
    const typecase letters;
    const struct {
        const char *text;
        u32 flags;
        lines now, next;
    } ROWS[] = {
        {"b#a\nb", 0, {"letter b 100 271 255", "letter a 108 273 255", "letter b 100 288 255"}, {}},
        {"b", TEXT_TRANSIENT, {"letter b 100 288 255"}, {"restore 100 285 8 19"}},
        {"b", TEXT_CENTER_X, {"letter b 396 288 255"}, {}},
        {"b", TEXT_CENTER_Y, {"letter b 100 279 255"}, {}},
        {"b", TEXT_DARKEN | TEXT_TRANSIENT, {"darken 98 283 12 22", "letter b 100 288 255"}, {"restore 98 283 12 23"}},
        {"a", TEXT_DARKEN_TWICE, {"darken 98 288 9 14", "darken 98 288 9 14", "letter a 100 290 255"}, {}},
        {"a", TEXT_BLACK_BOX, {"fill 100 288 9 14", "letter a 100 290 255"}, {}},
        {"a", TEXT_BLACK_BOX | TEXT_DARKEN, {"darken 98 288 9 14", "letter a 100 290 255"}, {}},
        {nullptr, TEXT_TRANSIENT, {}, {}},
    };
    for (const auto &row : ROWS) {
        text_draw(row.text, 100, 300, RED, row.flags);
        const recording drawn = take_recording();
        EXPECT_EQ(drawn.now, row.now) << row.flags;
        EXPECT_EQ(drawn.next, row.next) << row.flags;
    }
}

TEST(text, each_character_has_its_own_colour_in_one_list) {
    stage on(16);
    const typecase letters;
    reinterpret_cast<u16 *>(glyph_for('a').source->pixels)[5] = pixel16::from_rgb({128, 64, 128});
    on.show([] {
        text_draw("b", 10, 100, RED, 0);
        text_draw("b", 50, 100, {255, 0, 64}, TEXT_TO_BG);
        text_draw("b", 90, 100, RED, 0);
        text_draw("a", 10, 200, {255, 128, 0}, 0);
    });
    const auto background = pixels_of<pixel16>(frames.background);
    EXPECT_EQ(pixel_at(10, 91), pixel16::from_rgb(RED));
    EXPECT_EQ(pixel_at(10, 90), 0) << "transparent rows stay so";
    EXPECT_EQ(pixel_at(50, 91), 0);
    EXPECT_EQ(background[91 * SCREEN_WIDTH + 50], pixel16::from_rgb({248, 0, 248 * 64 / 255}));
    EXPECT_EQ(pixel_at(90, 91), pixel16::from_rgb(RED));
    EXPECT_EQ(pixel_at(11, 191), pixel16::from_rgb({128, 32, 0}));
}

} // namespace
