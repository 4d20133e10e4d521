// text_test.cpp: loading glyphs, measuring and wrapping text, where its characters stand and in which colour.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/draw_queue.h"
#include "graphics/font.h"
#include "graphics/glyphs.h"
#include "resources/archive.h"
#include "support/archive_builder.h"
#include "unit/graphics/stage.h"

#include <algorithm>
#include <cctype>
#include <string>

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

TEST(text, measures_lines_and_skips_what_has_no_glyph) {
    const stage on(16);
    const typecase letters;
    const struct {
        const char *text;
        text_size size;
    } ROWS[] = {
        {"", {0, 0, 0}},         {nullptr, {0, 0, 0}},    {"a", {5, 10, 0}},
        {"a#a", {10, 10, 0}},    {"ab", {13, 15, 3}},     {"b\nb", {8, 32, 3}},
        {"aaa\na", {15, 27, 0}}, {"\xFF\x01", {0, 0, 0}}, {"a\n\nb", {8, 44, 3}},
    };
    for (const auto &[text, size] : ROWS) {
        const text_size got = text_measure(text);
        EXPECT_TRUE(got.width == size.width && got.height == size.height && got.top == size.top)
            << (text ? text : "null") << ": " << got.width << ", " << got.height << ", " << got.top;
    }
}

TEST(text, wraps_at_the_last_space) {
    const stage on(16);
    const typecase letters;
    const struct {
        const char *text;
        i32 width;
        const char *wrapped;
    } ROWS[] = {
        {"aa aa aa", 24, "aa aa\naa"}, {"aa aa aa", 23, "aa aa\naa"}, {"aa aa aa", 22, "aa\naa\naa"},
        {"aaaaaaaa", 9, "aaaaaaaa"},   {"aa aa", 100, "aa aa"},       {"aaaa aa aa", 23, "aaaa\naa aa"},
        {"a#a a", 11, "a#a\na"},       {"a\naaa a", 18, "a\naaa\na"}, {"", 5, ""},
    };
    for (const auto &row : ROWS) {
        char text[32];
        std::strcpy(text, row.text);
        text_wrap(text, row.width);
        EXPECT_STREQ(text, row.wrapped) << row.width;
    }
    text_wrap(nullptr, 5);
    std::string narrow;
    for (int i = 0; i < 30; ++i)
        narrow += "\naaaa a ";
    text_wrap(narrow.data(), 3); // where nothing fits, the line's width must not grow beyond its integer
    EXPECT_EQ(text_measure(narrow.c_str()).width, text_measure("aaaa").width);
}

// A list as text: id and rectangle, or id, character and place.
std::string recorded(const draw_block &list) {
    std::string text;
    for (const u8 *at = list.bytes; at != list.bytes + list.length; at += 1 + DRAW_COMMANDS[*at].size) {
        i32 n[4];
        std::memcpy(n, at + 1, sizeof n);
        const auto number = [&](i32 i) { return std::string(" ").append(std::to_string(n[i])); };
        if (*at == DRAW_TEXT)
            text += std::string("T") + static_cast<char>(n[2]) + number(0) + number(1) + ";";
        else
            text += std::string(*at == DRAW_DARKEN ? "D"
                                : *at == DRAW_FILL ? "F"
                                                   : "R")
                        .append(number(0) + number(1) + number(2) + number(3) + ";");
    }
    return text;
}

TEST(text, is_recorded_around_its_last_line) {
    const stage on(16);
    const typecase letters;
    const struct {
        const char *text;
        u32 flags;
        const char *now, *next;
    } ROWS[] = {
        {"ab", 0, "Ta 100 290;Tb 105 288;", ""},
        {"a#a\nb", 0, "Ta 100 273;Ta 105 273;Tb 100 288;", ""},
        {"ab", TEXT_TRANSIENT, "Ta 100 290;Tb 105 288;", "R 100 285 13 19;"},
        {"ab", TEXT_TRANSIENT | TEXT_CENTER_X, "Ta 393 290;Tb 398 288;", "R 393 285 13 19;"},
        {"ab", TEXT_CENTER_Y, "Ta 100 281;Tb 105 279;", ""},
        {"ab", TEXT_DARKEN, "D 98 283 17 22;Ta 100 290;Tb 105 288;", ""},
        {"a", TEXT_TRANSIENT | TEXT_DARKEN_TWICE, "D 98 288 9 14;D 98 288 9 14;Ta 100 290;", "R 98 288 9 15;"},
        {"a", TEXT_TRANSIENT | TEXT_BLACK_BOX, "F 100 288 9 14;Ta 100 290;", "R 98 288 9 15;"},
        {"a", TEXT_BLACK_BOX | TEXT_DARKEN, "D 98 288 9 14;Ta 100 290;", ""},
        {nullptr, TEXT_TRANSIENT, "", ""},
    };
    for (const auto &row : ROWS) {
        draw_queue_free();
        text_draw(row.text, 100, 300, RED, row.flags);
        EXPECT_EQ(recorded(draw_queue.lists[0]), row.now) << row.flags;
        EXPECT_EQ(recorded(draw_queue.lists[1]), row.next) << row.flags;
    }
}

TEST(text, each_character_has_its_own_colour_in_one_list) {
    stage on(16);
    const typecase letters;
    reinterpret_cast<u16 *>(glyph_for('a').source->pixels)[5] = pixel16::from_rgb({128, 64, 128});
    on.show([] {
        text_draw("b", 10, 100, RED, 0);
        text_draw("b", 50, 100, {0, 255, 64}, TEXT_TO_BG);
        text_draw("b", 90, 100, RED, 0);
        text_draw("a", 10, 200, {255, 128, 0}, 0);
        draw_character('#', 10, 10, RED, false);
        draw_character('a', 800, 10, WHITE, false);
    });
    const auto background = pixels_of<pixel16>(frames.background);
    EXPECT_EQ(pixel_at(10, 91), pixel16::from_rgb(RED));
    EXPECT_EQ(pixel_at(10, 90), 0) << "transparent rows stay so";
    EXPECT_EQ(pixel_at(50, 91), 0);
    EXPECT_EQ(background[91 * SCREEN_WIDTH + 50], pixel16::from_rgb({0, 252, 248 * 64 / 255}));
    EXPECT_EQ(pixel_at(90, 91), pixel16::from_rgb(RED));
    EXPECT_EQ(pixel_at(11, 191), pixel16::from_rgb({128, 32, 0}));
    EXPECT_EQ(glyph_for('a').green, 128) << "a character off the screen is not coloured";
}

// An archive with a picture for each of these characters and names; each has its number of columns.
void write_font(const temp_game &game, const std::string &left_out) {
    const char *NAMES[] = {"space",    "exclamation", "quote",    "dollarsign", "percent",     "apostrophe", "lparen",
                           "rparen",   "asterisk",    "plus",     "comma",      "dash",        "period",     "slash",
                           "colon",    "semicolon",   "lessthan", "tavimo",     "greaterthan", "question",   "copy",
                           "lbracket", "backslash",   "rbracket", "underscore"};
    std::vector<std::string> names(std::begin(NAMES), std::end(NAMES));
    for (char c = '0'; c <= 'z'; ++c)
        if (std::isalnum(c))
            names.emplace_back(1, c);
    archive_builder archive;
    std::size_t width = 1;
    for (const std::string &name : names) {
        const std::string clear(width, 'k'), ink = std::string(width - 1, 'k') + "i";
        if (name != left_out)
            archive.add("xpm/font/normal/" + name + ".xpm",
                        make_xpm({"k c #EA008A", "i c #FFFFFF"}, {clear, name == "space" ? clear : ink, clear}));
        ++width;
    }
    archive.write(game.data("data.dar"));
}

TEST(font, loads_a_picture_for_each_character_that_has_one) {
    const stage on(32);
    const temp_game game;
    write_font(game, "");
    ASSERT_EQ(data_archive_open(), 1);
    ASSERT_EQ(font_init(), 1);
    const std::string marks = " !\"$%'()*+,-./:;<=>?@[\\]_";
    for (std::size_t i = 0; i < marks.size(); ++i)
        EXPECT_EQ(glyph_for(marks[i]).width, static_cast<i32>(i) + 1) << marks[i];
    EXPECT_EQ(glyph_for('0').width, 26);
    EXPECT_EQ(glyph_for('A').width, 36);
    EXPECT_EQ(glyph_for('z').width, 87);
    EXPECT_EQ(glyph_for('z').top, 1);
    EXPECT_EQ(glyph_for(' ').top, 0);
    EXPECT_EQ(std::count_if(std::begin(glyphs), std::end(glyphs), glyph_exists), 87);
    font_shutdown();

    fake_fail_allocation(100);
    EXPECT_EQ(font_init(), -1);
    font_shutdown();
    data_archive_close();
    fake_fail_allocation(0);
    write_font(game, "tavimo");
    ASSERT_EQ(data_archive_open(), 1);
    EXPECT_EQ(font_init(), -1);
    font_shutdown();
    data_archive_close();
}

} // namespace
