// Planted faults: each is found by itself, and described.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "check.h"
#include "picture_reduce.h"
#include "tools/sample.h"
#include "unit/sound/ogg_maker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace {

using plant = std::function<void(archive_file &)>;

plant removed(const std::string &name) {
    return [=](archive_file &a) { std::erase_if(a.entries, [&](const archive_entry &e) { return e.name == name; }); };
}
plant added(const std::string &name, const std::string &bytes = "x") {
    return [=](archive_file &a) { a.entries.push_back({name, bytes}); };
}
plant stored(const std::string &name, const std::string &bytes) {
    return [=](archive_file &a) { sample_bytes(a, name) = bytes; };
}
plant shaped(const std::string &name, const xpm_shape &shape) {
    return stored(name, sample_xpm(shape));
}
plant cut(const std::string &name) {
    return [=](archive_file &a) { sample_bytes(a, name).pop_back(); };
}
plant sounding(const std::string &name, const wave &w) {
    const file_bytes bytes = make_ogg(w);
    return stored(name, {bytes.begin(), bytes.end()});
}

struct fault {
    plant plants;
    std::string name, found, needed;
};

const std::string MONEY = "xpm/puzzle/money/", TIME = "xpm/puzzle/time/", PIECES = MONEY + "board/pieces/";
const std::string GLYPH = "xpm/font/normal/percent.xpm", CLICK = "ogg/click.ogg", TEXT = "txt/study0.txt";
const std::string SMALL = sample_xpm({57, 52}); // the money puzzle's cells

// clang-format off
const fault FAULTS[] = {
    {removed("xpm/bg/001.xpm"),                              "xpm/bg/001.xpm", "nothing", "a picture, 800x600: the background"},
    {removed(PIECES + "036.xpm"),                            PIECES + "036.xpm", "nothing", "one of the 36 in its folder, 57x52: an empty cell"},
    {removed(CLICK),                                         CLICK, "nothing", "a sound"},
    {added(PIECES + "037.xpm", SMALL),                       PIECES + "037.xpm", "an entry of", "the series in this folder has 36 pictures"},
    {added("xpm/BG/001.xpm", SMALL),                         "xpm/BG/001.xpm", "an entry of", "none: the game never asks"},
    {added("notes.txt"),                                     "notes.txt", "an entry of 1 bytes", "none"},
    {added(TEXT, "Twice"),                                   TEXT, "a second entry of this name", "one"},

    {stored(PIECES + "001.xpm", ""),                         PIECES + "001.xpm", "size or its colours are damaged", "an XPM picture, 57x52"},
    {stored(PIECES + "001.xpm", SMALL.substr(0, 2000)),      PIECES + "001.xpm", "cannot read", "an XPM picture"},
    {stored(PIECES + "001.xpm", SMALL.substr(0, SMALL.size() - 60)), PIECES + "001.xpm", "cannot read", "an XPM picture"},
    {stored(PIECES + "001.xpm", sample_xpm({57, 52, 3, 1, 0, "?"})), PIECES + "001.xpm", "nothing", "nothing"},
    {stored(PIECES + "001.xpm", "\"2 1 93 1\"\n" + std::string(500, '"')), PIECES + "001.xpm", "size or its colours", "57x52"},
    {shaped(PIECES + "001.xpm", {57, 52, 3, 1, 0, "#EB018C"}), PIECES + "001.xpm", "turns transparent on 16-bit screens: the pixel 7 from the left and 1 from the top is #EB018C", "another colour"},

    {shaped("xpm/bg/001.xpm", {799, 600}),                   "xpm/bg/001.xpm", "799x600", "800x600: the background"},
    {shaped("xpm/dialog/009.xpm", {39, 31}),                 "xpm/dialog/009.xpm", "39x31", "40 to 150 wide"},
    {shaped(MONEY + "piece/symbols/036.xpm", {55, 51}),      MONEY + "piece/symbols/036.xpm", "55x51", "at most 55 wide and at most 50 high"},
    {shaped(MONEY + "board/base.xpm", {412, 460}),           MONEY + "board/base.xpm", "412x460", "414 to 576 wide"},
    {shaped(GLYPH, {6, 16}),                                 GLYPH, "a letter that reaches 16 above and 0 below", "at most 15 above"},
    {shaped(GLYPH, {6, 15, 1, 1, 0, "#FFFFFF"}),             GLYPH, "nothing", "nothing"},
    {shaped(GLYPH, {6, 12, 3, 1, 5}),                        GLYPH, "reaches 7 above and 5 below", "4 below"},

    {stored(CLICK, "RIFF....WAVE"),                          CLICK, "not an Ogg Vorbis sound", "Ogg Vorbis"},
    {cut(CLICK),                                             CLICK, "cut short", "one whole"},
    {sounding(CLICK, {.rate = 22050}),                       CLICK, "22050 samples a second", "44100"},
    {sounding(CLICK, {.channels = 3}),                       CLICK, "3 channels", "mono or stereo"},
    {sounding(CLICK, {.frames = 12 * 44100}),                CLICK, "12.0 seconds", "at most 10.0"},

    {stored(TEXT, std::string(19, '\n') + "end"),            TEXT, "20 lines of text", "at most "},
    {stored(TEXT, std::string(300, 'm')),                    TEXT, "that cannot be broken", "at most 510 wide"},
    {stored(TEXT, "Bread & butter"),                         TEXT, "the character '&' in line 1, column 7", "characters that the font has"},
    {stored(TEXT, "One\nTwo\r\nThree\r\n"),                  TEXT, "the character byte 0D in line 2, column 4", "characters that the font has"},
};
// clang-format on

// The rows that plant no fault say "nothing" twice: what is unusual, and allowed.
TEST(check, finds_each_planted_fault_and_says_what_is_needed) {
    const archive_file good = make_sample(0);
    ASSERT_TRUE(check_archive(good).empty()) << finding_text(check_archive(good)[0]);
    for (const fault &row : FAULTS) {
        SCOPED_TRACE(row.name + ": " + row.found);
        archive_file archive = good;
        row.plants(archive);
        const std::vector<finding> findings = check_archive(archive);
        if (row.found == "nothing" && row.needed == "nothing") {
            EXPECT_TRUE(findings.empty());
            continue;
        }
        ASSERT_EQ(findings.size(), 1u);
        EXPECT_EQ(findings[0].name, row.name);
        EXPECT_NE(findings[0].found.find(row.found), std::string::npos) << findings[0].found;
        EXPECT_NE(findings[0].needed.find(row.needed), std::string::npos) << findings[0].needed;
    }
}

TEST(check, finds_faults_that_concern_several_entries) {
    archive_file archive = make_sample(0);
    const std::string model = sample_bytes(archive, "xpm/dialog/001.xpm");
    sample_bytes(archive, "xpm/dialog/001.xpm") = sample_xpm({77, 33});
    EXPECT_EQ(check_archive(archive).size(), 8u); // hover, pressed and the other buttons
    sample_bytes(archive, "xpm/dialog/001.xpm") = model;
    for (archive_entry &entry : archive.entries)
        if (entry.name.starts_with("xpm/font/"))
            entry.bytes = sample_xpm({9, 10});
    const std::vector<finding> findings = check_archive(archive);
    ASSERT_FALSE(findings.empty());
    EXPECT_NE(findings[0].found.find("make the title \"Counting by 1's - 5's\" 210 wide"), std::string::npos)
        << findings[0].found;
}

TEST(check, reports_damage_of_the_archive_itself_with_all_the_rest) {
    const temp_game folder;
    const std::filesystem::path path = folder.data("cut.dar");
    archive_file archive = make_sample(0);
    archive_write(path, archive.entries);
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1);
    const std::vector<finding> findings = check_archive(archive_read(path));
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].name, archive.entries.back().name);
    EXPECT_NE(findings[0].found.find("lies outside the archive"), std::string::npos) << findings[0].found;
}

// --- Pictures on their way in --------------------------------------------------------------------

TEST(reduce, keeps_what_is_reduced_already_and_the_mean_of_what_is_not) {
    const u32 level = 0xFF808080;
    const raster grey = {8, 8, std::vector<u32>(64, level)};
    const raster reduced = picture_reduce(grey, "grey");
    u32 sum = 0;
    for (const u32 pixel : reduced.pixels)
        sum += pixel & 0xFF;
    EXPECT_NEAR(sum / 64.0, 0x80, 0.5);
    EXPECT_NE(reduced.pixels, grey.pixels);
    EXPECT_EQ(picture_reduce(reduced, "again").pixels, reduced.pixels);
}

TEST(reduce, brings_any_number_of_colours_into_an_xpm) {
    raster many = {256, 200, {}};
    for (u32 i = 0; i < 256 * 200; ++i)
        many.pixels.push_back(0xFF000000 | i * 2654435761u % 0xE00000);
    const xpm_reading reading = picture_from_xpm(picture_to_xpm(picture_reduce(many, "many")));
    ASSERT_TRUE(reading.result) << reading.fault;
    EXPECT_GT(reading.colour_count, 4000);
    EXPECT_LE(reading.colour_count, 8464);
}

TEST(reduce, makes_thin_edges_transparent) {
    const raster p = {2, 2, {0x00EA008A, 0x7F123456, 0x80123456, 0xFF000000}};
    EXPECT_EQ(picture_reduce(p, "edges").pixels, (std::vector<u32>{0, 0, 0xFF103452, 0xFF000000}));
}

} // namespace
