// image_test.cpp: decoding pictures into both pixel formats.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/blit.h"
#include "resources/archive.h"
#include "resources/image.h"
#include "resources/pixel.h"
#include "support/archive_builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>

namespace {

using picture_ptr = std::unique_ptr<image, decltype(&image_free)>;
using runs = std::vector<std::array<i32, 3>>; // of each its column, row and length

std::vector<u32> pixels_of(const image &picture) {
    std::vector<u32> all;
    for (i32 i = 0; i < picture.width * picture.height; ++i)
        all.push_back(video_format.depth == 16 ? reinterpret_cast<const u16 *>(picture.pixels)[i]
                                               : reinterpret_cast<const u32 *>(picture.pixels)[i]);
    return all;
}

runs runs_of(const image &picture) {
    runs all;
    for (i32 i = 0; i < picture.run_count; ++i)
        all.push_back({picture.runs[i].x, picture.runs[i].y, picture.runs[i].count});
    return all;
}

// For pictures of 16 and of 32 bits.
struct image_test : testing::TestWithParam<i32> {
    const temp_game game;

    image_test() {
        const i32 depth = GetParam();
        video_format = {depth, depth / 8, depth == 16 ? 1 : 2};
        EXPECT_EQ(blit_init(), 1);
        game.log_to_file();
        testing::internal::CaptureStderr(); // warnings about symbols and memory
    }
    ~image_test() override {
        testing::internal::GetCapturedStderr();
        video_format = {};
    }

    static u32 pixel(u32 color) {
        const rgb c = {static_cast<u8>(color >> 16), static_cast<u8>(color >> 8), static_cast<u8>(color)};
        return GetParam() == 16 ? pixel16::from_rgb(c) : pixel32::from_rgb(c);
    }
    // Loads this text from an archive in which another text follows it.
    picture_ptr load(const std::string &text, const std::string &rest = "") const {
        archive_builder().add("xpm/p.xpm", text).add("xpm/rest.xpm", rest).write(game.data("data.dar"));
        const bool opened = data_archive_open() == 1;
        picture_ptr picture(opened ? image_load("p.xpm") : nullptr, image_free);
        data_archive_close();
        return picture;
    }
};
INSTANTIATE_TEST_SUITE_P(depth, image_test, testing::Values(16, 32), testing::PrintToStringParamName());

TEST_P(image_test, colours_and_runs) {
    const picture_ptr good =
        load(make_xpm({"K c #EA008A", "k c #ea008a", "  c None", "c c red", "# c #12aBcD", "g s x c #g1z2zz"},
                      {"Kc ", "#kK", "KkK", "zg "})); // z is no colour's symbol
    ASSERT_NE(good, nullptr);
    const u32 key = pixel(0xEA008A), black = 0;
    EXPECT_EQ(pixels_of(*good), (std::vector<u32>{key, black, black, pixel(0x12ABCD), key, key, key, key, key, black,
                                                  pixel(0x010200), black}));
    EXPECT_EQ(runs_of(*good), (runs{{1, 0, 2}, {0, 1, 1}, {0, 3, 3}}));
    const picture_ptr near = load(make_xpm({"n c #EF038F", "f c #EA048A"}, {"nf"}));
    ASSERT_NE(near, nullptr);
    EXPECT_EQ(runs_of(*near), GetParam() == 16 ? (runs{{1, 0, 1}}) : (runs{{0, 0, 2}})) << "as the pixels round";
}

TEST_P(image_test, symbols_of_any_length_give_the_same_picture) {
    const std::string letters = " .+@ZY`a";
    std::vector<u32> expected;
    std::mt19937 dice(1);
    for (const std::string prefix : {"", "a", "zz", "a.c", "``````", "Z1234567"}) {
        std::vector<std::string> colors, rows(40);
        dice.seed(1);
        for (std::size_t i = 0; i + 1 < letters.size(); ++i) // the last symbol is not defined
            colors.push_back(prefix + letters[i] + " c #" + std::to_string(i) + "04080");
        colors.push_back(colors[0].substr(0, prefix.size() + 1) + " c #FFFFFF"); // the later definition holds
        for (std::string &row : rows)
            for (int x = 0; x < 30; ++x)
                row += prefix + letters[dice() % letters.size()];
        const picture_ptr picture = load(make_xpm(colors, rows, static_cast<int>(prefix.size()) + 1));
        ASSERT_NE(picture, nullptr) << prefix;
        EXPECT_EQ(picture->width, 30);
        if (expected.empty())
            expected = pixels_of(*picture);
        EXPECT_EQ(pixels_of(*picture), expected) << prefix;
    }
    EXPECT_EQ(std::count(expected.begin(), expected.end(), pixel(0x004080)), 0);
    EXPECT_GT(std::count(expected.begin(), expected.end(), pixel(0xFFFFFF)), 0);
}

const std::string WHOLE = make_xpm({"aa c #EA008A", "ab c #FF8000", "b. c None"}, {"aaabb.", "ababaa"}, 2);

TEST_P(image_test, cut_at_every_byte_fails_and_stays_in_its_entry) {
    const std::size_t last_quote = WHOLE.rfind('"');
    for (std::size_t size = 0; size <= last_quote; ++size) // what follows in the archive would complete the picture
        EXPECT_EQ(load(WHOLE.substr(0, size), WHOLE.substr(size)), nullptr) << size;
    EXPECT_EQ(game.log_text().substr(0, 29), "Error loading xpm file p.xpm\n");
    EXPECT_EQ(game.log_text().size(), 29 * (last_quote + 1)) << "one message each";
    EXPECT_NE(load(WHOLE.substr(0, last_quote + 1)), nullptr) << "nothing behind the rows is needed";
}

TEST_P(image_test, impossible_values_and_unknown_symbols_fail) {
    const std::string rest = make_xpm({"a c #EA008A"}, {"aa", "aa"});
    const auto loads = [&](const char *values) {
        return load(std::string("\"") + values + "\"" + rest.substr(rest.find(','))) != nullptr;
    };
    for (const char *values : {"2 2 1 1 0 0", "2 1 1 1 extension", "2 2 1 +1"})
        EXPECT_TRUE(loads(values)) << values;
    for (const char *values : {"0 2 1 1", "2 0 1 1", "-2 2 1 1", "2 2 0 1", "2 2 1 0", "2 2 1 10", "8193 2 1 1",
                               "8192 8192 1 9", "4294967298 2 1 1", "2  2 1 1", "2 2 1", "x y z w"})
        EXPECT_FALSE(loads(values)) << values;
    for (const std::size_t colors : {92U, 93U}) // there are 92 symbols of one character
        EXPECT_EQ(load(make_xpm(std::vector<std::string>(colors, "a c None"), {"a"})) != nullptr, colors == 92);
    for (const char *symbol : {"?", "\x80"}) {
        for (const std::string fill : {"", "a", "aa"}) {
            const std::string good = fill + "a", bad = fill + symbol;
            const int length = static_cast<int>(good.size());
            EXPECT_EQ(load(make_xpm({bad + " c #000000"}, {good}, length)), nullptr) << bad;
            EXPECT_EQ(load(make_xpm({good + " c #000000"}, {bad}, length)), nullptr) << bad;
        }
    }
}

} // namespace
