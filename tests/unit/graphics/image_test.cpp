// image_test.cpp: decoding pictures into both pixel formats, and their run tables.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/blit.h"
#include "resources/archive.h"
#include "resources/image.h"
#include "resources/pixel.h"
#include "support/archive_builder.h"
#include "support/fake_sdl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

using picture_ptr = std::unique_ptr<image, decltype(&image_free)>;
using runs = std::vector<i32>;

static void use_depth(i32 depth) {
    video_format = {depth, depth / 8, depth == 16 ? 1 : 2};
    ASSERT_EQ(blit_init(), 1);
}

static u32 pixel_at(const image &picture, i32 i) {
    if (video_format.depth == 16)
        return reinterpret_cast<const u16 *>(picture.pixels)[i];
    return reinterpret_cast<const u32 *>(picture.pixels)[i];
}

static std::vector<u32> pixels_of(const image &picture) {
    std::vector<u32> all;
    for (i32 i = 0; i < picture.width * picture.height; ++i)
        all.push_back(pixel_at(picture, i));
    return all;
}

static runs runs_of(const image &picture) {
    return runs(picture.runs, picture.runs + picture.run_count);
}

// Loads the last of these entries, each named p001.xpm, p002.xpm and so on.
static picture_ptr load_last(const temp_game &game, const std::vector<std::string> &texts) {
    archive_builder builder;
    for (std::size_t i = 0; i < texts.size(); ++i)
        builder.add("xpm/p00" + std::to_string(i + 1) + ".xpm", texts[i]);
    builder.write(game.data("data.dar"));
    EXPECT_EQ(data_archive_open(), 1);
    picture_ptr picture(image_load(("p00" + std::to_string(texts.size()) + ".xpm").c_str()), image_free);
    data_archive_close();
    return picture;
}

class Image : public testing::TestWithParam<i32> {
protected:
    void SetUp() override {
        use_depth(GetParam());
        game.log_to_file();
    }
    void TearDown() override { video_format = {}; }

    u32 pixel(u32 color) const {
        const rgb c = {static_cast<u8>(color >> 16), static_cast<u8>(color >> 8), static_cast<u8>(color)};
        return GetParam() == 16 ? pixel16::from_rgb(c) : pixel32::from_rgb(c);
    }
    i32 scale() const { return GetParam() / 8; }

    temp_game game;
};
INSTANTIATE_TEST_SUITE_P(Depth, Image, testing::Values(16, 32), testing::PrintToStringParamName());

TEST_P(Image, ColorsAndRuns) {
    const picture_ptr good = load_last(
        game, {make_xpm({"K c #EA008A", "k c #ea008a", "  c None", "c c red", "# c #12aBcD", "g s x c #g1z2zz"},
                        {"Kc ", "#kK", "KkK", "zg "})}); // z is no colour's symbol
    ASSERT_NE(good, nullptr);
    const u32 key = pixel(0xEA008A), black = 0;
    EXPECT_EQ(pixels_of(*good), (std::vector<u32>{key, black, black, pixel(0x12ABCD), key, key, key, key, key, black,
                                                  pixel(0x010200), black}));
    const i32 b = scale();
    EXPECT_EQ(runs_of(*good), (runs{b, 2 * b, -1, 0, b, 2 * b, -1, 3 * b, -1, 0, 3 * b, -1, -2}));
    EXPECT_EQ(good->size, 12 * b);
    const picture_ptr near = load_last(game, {make_xpm({"n c #EF038F", "f c #EA048A"}, {"nf"})});
    ASSERT_NE(near, nullptr);
    EXPECT_EQ(runs_of(*near), b == 2 ? (runs{2, 2, -1, -2}) : (runs{0, 8, -1, -2})) << "as the pixels round";
}

TEST_P(Image, SymbolsOfAnyLengthGiveTheSamePicture) {
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
        const picture_ptr picture = load_last(game, {make_xpm(colors, rows, static_cast<int>(prefix.size()) + 1)});
        ASSERT_NE(picture, nullptr) << prefix;
        EXPECT_EQ(picture->width, 30);
        if (expected.empty())
            expected = pixels_of(*picture);
        EXPECT_EQ(pixels_of(*picture), expected) << prefix;
    }
    EXPECT_EQ(std::count(expected.begin(), expected.end(), pixel(0x004080)), 0);
    EXPECT_GT(std::count(expected.begin(), expected.end(), pixel(0xFFFFFF)), 0);
}

TEST_P(Image, RunTableDescribesEveryPixel) {
    std::mt19937 dice(7);
    for (const i32 width : {1, 2, 7, 800}) { // the widest ones grow the table several times
        const i32 height = 9;
        const picture_ptr picture(image_create(width, height), image_free);
        std::vector<bool> expected;
        for (i32 i = 0; i < width * height; ++i) {
            expected.push_back(dice() % 2 == 0);
            const u32 value = expected.back() ? pixel(0xEA008A) : pixel(0xEA008A) ^ (1U << dice() % 16);
            if (scale() == 2)
                reinterpret_cast<u16 *>(picture->pixels)[i] = static_cast<u16>(value);
            else // the unused byte does not count
                reinterpret_cast<u32 *>(picture->pixels)[i] = value | static_cast<u32>(dice()) << 24;
        }
        for (int twice = 0; twice < 2; ++twice) // rebuilding frees the first table
            ASSERT_TRUE(image_build_runs(picture.get()));
        std::vector<bool> found;
        bool transparent = true;
        i32 row_ends = 0;
        for (const i32 run : runs_of(*picture)) {
            if (run < 0) {
                row_ends += run == RUN_END_ROW ? 1 : 0;
                EXPECT_EQ(found.size(), static_cast<std::size_t>(row_ends * width)) << run;
                transparent = true;
                continue;
            }
            found.insert(found.end(), static_cast<std::size_t>(run / scale()), transparent);
            transparent = !transparent;
        }
        EXPECT_EQ(row_ends, height);
        EXPECT_EQ(runs_of(*picture).back(), RUN_END_PICTURE);
        EXPECT_EQ(found, expected);
    }
}

static const std::vector<std::string> COLORS = {"aa c #EA008A", "ab c #FF8000", "b. c None"};
static const std::vector<std::string> ROWS = {"aaabb.", "ababaa"};

TEST_P(Image, CutAtEveryByteFailsAndStaysInItsEntry) {
    const std::string whole = make_xpm(COLORS, ROWS, 2);
    const std::size_t last_quote = whole.rfind('"');
    for (std::size_t size = 0; size <= last_quote; ++size) {
        // What follows in the archive would complete the picture.
        archive_builder()
            .add("xpm/p.xpm", whole.substr(0, size))
            .add("xpm/rest.xpm", whole.substr(size))
            .write(game.data("data.dar"));
        ASSERT_EQ(data_archive_open(), 1);
        EXPECT_EQ(image_load("p.xpm"), nullptr) << size;
        data_archive_close();
    }
    EXPECT_EQ(game.log_text().substr(0, 29), "Error loading xpm file p.xpm\n");
    EXPECT_EQ(game.log_text().size(), 29 * (last_quote + 1)) << "one message each";
    EXPECT_NE(load_last(game, {whole.substr(0, last_quote + 1)}), nullptr) << "nothing behind the rows is needed";
}

TEST_P(Image, FlippedBytesNeverLeadOutOfBounds) {
    const std::string whole = make_xpm(COLORS, ROWS, 2);
    testing::internal::CaptureStderr(); // symbols that do not exist
    for (std::size_t at = whole.find('"'); at < whole.size(); ++at) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string text = whole;
            text[at] = static_cast<char>(text[at] ^ 1 << bit);
            const picture_ptr picture = load_last(game, {text});
            EXPECT_LE(picture != nullptr ? picture->width * picture->height : 0, 100) << at << " " << bit;
        }
    }
    testing::internal::GetCapturedStderr();
}

TEST_P(Image, ImpossibleValuesFail) {
    const std::string rest = make_xpm({"a c #EA008A"}, {"aa", "aa"});
    const auto loads = [&](const char *values) {
        return load_last(game, {std::string("\"") + values + "\"" + rest.substr(rest.find(','))}) != nullptr;
    };
    for (const char *values : {"2 2 1 1 0 0", "2 1 1 1 extension", "2 2 1 +1"})
        EXPECT_TRUE(loads(values)) << values;
    for (const char *values : {"0 2 1 1", "2 0 1 1", "-2 2 1 1", "2 2 0 1", "2 2 1 0", "2 2 1 10", "8193 2 1 1",
                               "8192 8192 1 9", "4294967298 2 1 1", "2  2 1 1", "2 2 1", "x y z w"})
        EXPECT_FALSE(loads(values)) << values;
    for (const std::size_t colors : {92U, 93U}) // there are 92 symbols of one character
        EXPECT_EQ(load_last(game, {make_xpm(std::vector<std::string>(colors, "a c None"), {"a"})}) != nullptr,
                  colors == 92);
}

TEST_P(Image, UnknownSymbolsAreNamed) {
    for (const char *symbol : {"?", "\x80"}) {
        for (const std::string fill : {"", "a", "aa"}) {
            for (const bool in_colors : {true, false}) {
                const std::string good = fill + "a", bad = fill + symbol;
                const std::string text = make_xpm({(in_colors ? bad : good) + " c #000000"}, {in_colors ? good : bad},
                                                  static_cast<int>(good.size()));
                testing::internal::CaptureStderr();
                EXPECT_EQ(load_last(game, {text}), nullptr);
                EXPECT_EQ(testing::internal::GetCapturedStderr(),
                          std::string("Warning, palette symbol ") + symbol + " does not exist, returning -1\n");
            }
        }
    }
}

TEST_P(Image, SequenceStopsAtTheFirstFailure) {
    const std::string text = make_xpm({"a c #EA008A"}, {"aa"});
    archive_builder()
        .add("xpm/f/x001.xpm", text)
        .add("xpm/f/x002.xpm", text)
        .add("xpm/f/x004.xpm", text)
        .write(game.data("data.dar"));
    ASSERT_EQ(data_archive_open(), 1);
    image *array[4] = {};
    EXPECT_EQ(image_load_sequence(array, 0, "f/none"), 1);
    EXPECT_EQ(image_load_sequence(array, 2, "f/x"), 1);
    image_free_array(array, 4);
    EXPECT_EQ(array[0], nullptr);
    EXPECT_EQ(image_load_sequence(array, 4, "f/x"), -1);
    EXPECT_NE(array[1], nullptr);
    EXPECT_EQ(array[3], nullptr) << "never asked for";
    EXPECT_EQ(game.log_text(), "Error loading xpm file f/x003.xpm\n");
    image_free_array(array, 4);
    data_archive_close();
}

TEST_P(Image, ShortMemoryAtEveryAllocation) {
    archive_builder().add("xpm/p.xpm", make_xpm(COLORS, ROWS, 2)).write(game.data("data.dar"));
    ASSERT_EQ(data_archive_open(), 1);
    fake_scope fakes;
    testing::internal::CaptureStderr();
    EXPECT_GE(fake_fail_each_allocation([] {
                  const picture_ptr picture(image_load("p.xpm"), image_free);
                  return picture != nullptr;
              }),
              8);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Warning: could not allocate memory for xpm buffer\n"
                                                      "Warning: could not allocate memory for palette node\n");
    data_archive_close();
    EXPECT_EQ(image_create(-1, 5), nullptr);
    EXPECT_EQ(image_create(1 << 20, 1 << 20), nullptr);
}
