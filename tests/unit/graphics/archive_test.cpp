// archive_test.cpp: the buffered reader and the archive, sound and damaged.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "platform/platform.h"
#include "resources/archive.h"
#include "resources/file_reader.h"
#include "support/archive_builder.h"
#include "support/fake_sdl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace {

struct archive_test : testing::Test {
    const temp_game game;

    archive_test() { game.log_to_file(); }
    ~archive_test() override { data_archive_close(); }

    // Opens an archive of these bytes in place of the one before.
    bool open(const file_bytes &bytes) const {
        data_archive_close();
        write_file(game.data("data.dar"), bytes);
        return data_archive_open() == 1;
    }
    // The text entry's content, or the result's number in brackets.
    static std::string text_of(const char *name) {
        char *text = nullptr;
        const i32 n = data_archive_read_text(&text, name);
        const std::string result =
            n < 0 ? "(" + std::to_string(n) + ")" : std::string(text, static_cast<std::size_t>(n));
        EXPECT_TRUE(n < 0 || text[n] == '\0');
        std::free(text);
        return result;
    }
};

TEST(file_reader, reads_across_the_buffer_and_not_beyond_the_end) {
    const temp_game game;
    for (const i32 size : {3 * FILE_READER_CAPACITY + 17, FILE_READER_CAPACITY, 5000}) {
        file_bytes all(static_cast<std::size_t>(size));
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = static_cast<unsigned char>(i * 31 >> 3);
        write_file("f", all);
        for (const i32 step : {1000, FILE_READER_CAPACITY, size}) {
            file_reader *reader = file_reader_open("f");
            file_bytes read(all.size() + 1, 'x');
            for (i32 at = 0; at < size; at += step)
                file_reader_read(reader, read.data() + at, std::min(step, size - at));
            EXPECT_FALSE(reader->cut);
            EXPECT_EQ(file_reader_read(reader, read.data() + size, 1), FILE_READER_ENDED);
            EXPECT_TRUE(std::equal(read.begin(), read.end() - 1, all.begin())) << step << " " << size;
            EXPECT_EQ(read.back(), 0);
            file_reader_destroy(reader);
        }
    }
}

TEST_F(archive_test, finds_entries_in_any_order) {
    ASSERT_TRUE(open(archive_builder()
                         .add("txt/one", "first")
                         .add("xpm/ab", "12")
                         .add("txt/empty", "")
                         .add("xpm/ba", "345") // the same hash as xpm/ab
                         .add("txt/one", "second")
                         .add("txt/\xE4", "umlaut")
                         .bytes()));
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(text_of("one"), "first") << "the first of two entries with one name";
        EXPECT_EQ(text_of("\xE4"), "umlaut");
        EXPECT_EQ(text_of("empty"), "");
        char bytes[3] = {};
        EXPECT_EQ(platform_read(data_archive_open_entry("xpm/ba"), bytes, 3), 3);
        EXPECT_EQ(std::string(bytes, 3), "345");
        EXPECT_EQ(data_archive_open_entry("xpm/Ab"), -1);
        EXPECT_EQ(data_archive_current_size(), 3) << "a failed lookup leaves the current entry";
        EXPECT_EQ(data_archive_entry_size("xpm/ab"), 2);
    }
    std::filesystem::resize_file(game.data("data.dar"), std::filesystem::file_size(game.data("data.dar")) - 1);
    EXPECT_EQ(text_of("\xE4"), "(-2)") << "cut after the directory was read";
}

TEST_F(archive_test, what_the_directory_says_is_checked) {
    constexpr int largest = 0x7FFFFFFF;
    struct row {
        const char *what, *next; // next: what the entry behind the damage gives
        std::string name;
        int offset, size;
        std::vector<int> instead; // of the entry, when not empty
    };
    for (const row &r : {row{"negative offset", "more", "txt/bad", -1, 1, {}},
                         {"negative size", "more", "txt/bad", 0, -1, {}},
                         {"offset behind the end", "more", "txt/bad", largest, 0, {}},
                         {"size beyond the end", "more", "txt/bad", 4, largest, {}},
                         {"one byte too many", "more", "txt/bad", 4, 5, {}},
                         {"no name", "more", "", 0, 1, {}},
                         {"negative name length", "(-1)", "", 0, 0, {-1, 0, 0}},
                         {"endless name", "(-1)", "", 0, 0, {largest, 0, 0}}}) {
        SCOPED_TRACE(r.what);
        archive_builder builder = archive_builder().add("txt/good", "fine");
        for (const int number : r.instead)
            append_i32(&builder.directory, number);
        if (r.instead.empty())
            builder.add_raw(r.name, r.offset, r.size);
        std::filesystem::remove("errorlog.log");
        EXPECT_TRUE(open(builder.add("txt/next", "more").bytes()));
        EXPECT_EQ(text_of("good"), "fine");
        EXPECT_EQ(text_of("next"), r.next);
        EXPECT_EQ(text_of("bad"), "(-1)");
        const char *said = r.instead.empty() ? "lies outside the file" : "directory is damaged";
        EXPECT_NE(game.log_text().find(said), std::string::npos);
    }
    for (const int length : {4, 3, 0, -1, -largest - 1}) { // directory lengths without entries
        file_bytes bytes;
        append_i32(&bytes, length);
        EXPECT_TRUE(open(bytes)) << length;
        EXPECT_EQ(data_archive_open_entry("a"), -1);
    }
}

TEST_F(archive_test, may_be_cut_anywhere) {
    const archive_builder builder = archive_builder().add("txt/a", "12345").add("txt/bc", "678");
    const file_bytes whole = builder.bytes();
    const std::size_t directory = builder.directory.size() + 4;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const file_bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(open(cut), size >= directory) << size;
        EXPECT_EQ(text_of("a"), size >= directory + 5 ? "12345" : "(-1)") << size;
        EXPECT_EQ(text_of("bc"), "(-1)") << size;
    }
}

} // namespace
