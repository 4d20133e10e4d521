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
#include <memory>

static constexpr const char *ARCHIVE = "data.dar";

struct open_archive {
    bool opened = data_archive_open() == 1;
    open_archive() = default;
    open_archive(const open_archive &) = delete;
    open_archive &operator=(const open_archive &) = delete;
    ~open_archive() { data_archive_close(); }
};

// The text entry's content, or the result's number in brackets.
static std::string text_of(const char *name) {
    char *text = nullptr;
    const i32 n = data_archive_read_text(&text, name);
    const std::string result =
        n < 0 ? std::string("(").append(std::to_string(n)) + ")" : std::string(text, static_cast<std::size_t>(n));
    EXPECT_TRUE(n < 0 || text[n] == '\0');
    std::free(text);
    return result;
}

TEST(FileReader, EndIsKnownWithTheReadThatEmptiesTheBuffer) {
    const temp_game game;
    write_file("f", to_bytes("abcdefgh"));
    struct row {
        i32 count, result;
        const char *bytes;
        bool cut;
    };
    static const std::vector<row> cases[] = {
        {{4, 2, "abcd", false}, {4, 1, "efgh", false}, {1, 1, "", true}},
        {{8, 2, "abcdefgh", false}, {2, 1, "", true}}, // the first read is a refill that delivers
        {{5, 2, "abcde", false}, {5, 1, "fgh", true}, {1, 1, "", true}},
        {{9, 2, "abcdefgh", true}, {1, 1, "", true}},
    };
    for (const std::vector<row> &reads : cases) {
        file_reader *reader = file_reader_open("f");
        for (const row &r : reads) {
            std::string bytes(16, '?');
            EXPECT_EQ(file_reader_read(reader, bytes.data(), r.count), r.result) << r.bytes;
            EXPECT_STREQ(bytes.substr(0, static_cast<std::size_t>(r.count)).c_str(), r.bytes)
                << "missing bytes are zero";
            EXPECT_EQ(bytes[static_cast<std::size_t>(r.count)], '?');
            EXPECT_EQ(reader->cut, r.cut);
        }
        file_reader_destroy(reader);
    }
}

TEST(FileReader, ReadsAcrossTheBufferAndNeverPastItsLimit) {
    const temp_game game;
    file_bytes all(3 * FILE_READER_CAPACITY + 17);
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = static_cast<unsigned char>(i * 31 >> 3);
    write_file("f", all);
    for (const i32 limit : {3 * FILE_READER_CAPACITY, FILE_READER_CAPACITY, 5000}) {
        for (const i32 step : {1000, FILE_READER_CAPACITY, limit}) {
            const int descriptor = platform_open_read("f");
            file_reader *reader = file_reader_create_bounded(descriptor, limit);
            file_bytes read(static_cast<std::size_t>(limit) + 1, 'x');
            for (i32 at = 0; at < limit; at += step)
                file_reader_read(reader, read.data() + at, std::min(step, limit - at));
            EXPECT_FALSE(reader->cut);
            EXPECT_EQ(file_reader_read(reader, read.data() + limit, 1), FILE_READER_ENDED);
            EXPECT_TRUE(std::equal(read.begin(), read.end() - 1, all.begin())) << step << " " << limit;
            EXPECT_EQ(read.back(), 0);
            file_reader_destroy(reader);
            platform_close(descriptor);
        }
    }
}

TEST(Archive, FindsEntriesInAnyOrder) {
    const temp_game game;
    archive_builder()
        .add("txt/one", "first")
        .add("xpm/ab", "12")
        .add("txt/empty", "")
        .add("xpm/ba", "345") // the same hash as xpm/ab
        .add("txt/one", "second")
        .add("txt/\xE4", "umlaut")
        .write(game.data(ARCHIVE));
    EXPECT_EQ(data_archive_current_size(), -1);
    const open_archive archive;
    ASSERT_TRUE(archive.opened);
    EXPECT_EQ(data_archive_current_size(), -1) << "no entry yet";
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(text_of("one"), "first") << "the first of two entries with one name";
        EXPECT_EQ(text_of("\xE4"), "umlaut");
        EXPECT_EQ(text_of("empty"), "");
        EXPECT_EQ(data_archive_entry_size("xpm/ba"), 3);
        char bytes[3] = {};
        EXPECT_EQ(platform_read(data_archive_open_entry("xpm/ba"), bytes, 3), 3);
        EXPECT_EQ(std::string(bytes, 3), "345");
        EXPECT_EQ(data_archive_open_entry("xpm/Ab"), -1);
        EXPECT_EQ(data_archive_current_size(), 3) << "a failed lookup leaves the current entry";
        EXPECT_EQ(data_archive_entry_size("xpm/ab"), 2);
    }
    char *block = strdup("kept");
    EXPECT_EQ(data_archive_read_text(&block, "none"), -1);
    EXPECT_EQ(data_archive_read_text(&block, nullptr), -1);
    EXPECT_STREQ(block, "kept");
    std::free(block);
    std::filesystem::resize_file(game.data(ARCHIVE), std::filesystem::file_size(game.data(ARCHIVE)) - 1);
    EXPECT_EQ(text_of("\xE4"), "(-2)") << "cut after the directory was read";
}

TEST(Archive, MissingFileAndUnopenedDescriptor) {
    const temp_game game;
    game.log_to_file();
    EXPECT_EQ(data_archive_open(), -1);
    EXPECT_EQ(data_archive_open_entry("a"), -1);
    EXPECT_EQ(game.log_text(), "Could not open ..\\data\\data.dar for reading\n");
    archive_builder().add("a", "b").write("f");
    file_archive *archive = file_archive_create("f");
    EXPECT_EQ(file_archive_seek(archive, "a"), -1);
    file_archive_destroy(archive);
}

TEST(Archive, DamagedDirectory) {
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
        const temp_game game;
        game.log_to_file();
        archive_builder builder = archive_builder().add("txt/good", "fine");
        for (const int number : r.instead)
            append_i32(&builder.directory, number);
        if (r.instead.empty())
            builder.add_raw(r.name, r.offset, r.size);
        builder.add("txt/next", "more").write(game.data(ARCHIVE));
        const open_archive archive;
        EXPECT_TRUE(archive.opened);
        EXPECT_EQ(text_of("good"), "fine");
        EXPECT_EQ(text_of("next"), r.next);
        EXPECT_EQ(text_of("bad"), "(-1)");
        const bool ends_there = game.log_text().find("directory is damaged") != std::string::npos;
        const bool skipped = game.log_text().find("lies outside the file") != std::string::npos;
        EXPECT_EQ(ends_there, !r.instead.empty());
        EXPECT_EQ(skipped, r.instead.empty());
    }
    for (const int length : {4, 3, 0, -1, -largest - 1}) { // directory lengths without entries
        const temp_game game;
        file_bytes bytes;
        append_i32(&bytes, length);
        write_file(game.data(ARCHIVE), bytes);
        const open_archive archive;
        EXPECT_TRUE(archive.opened) << length;
        EXPECT_EQ(data_archive_open_entry("a"), -1);
    }
}

TEST(Archive, CutAtEveryByteAndFlippedInEveryDirectoryByte) {
    const temp_game game;
    game.log_to_file();
    const archive_builder builder = archive_builder().add("txt/a", "12345").add("txt/bc", "678");
    const file_bytes whole = builder.bytes();
    const std::size_t directory = builder.directory.size() + 4;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        write_file(game.data(ARCHIVE), file_bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        const open_archive archive;
        EXPECT_EQ(archive.opened, size >= directory) << size;
        EXPECT_EQ(text_of("a"), size >= directory + 5 ? "12345" : "(-1)") << size;
        EXPECT_EQ(text_of("bc"), "(-1)") << size;
    }
    for (std::size_t at = 0; at < directory; ++at) {
        for (int bit = 0; bit < 8; ++bit) {
            file_bytes bytes = whole;
            bytes[at] = static_cast<unsigned char>(bytes[at] ^ 1 << bit);
            write_file(game.data(ARCHIVE), bytes);
            const open_archive archive;
            for (const char *name : {"a", "bc"}) // found, or not: but never more than the file holds
                EXPECT_LE(text_of(name).size(), whole.size()) << at << " " << bit;
        }
    }
}

TEST(Archive, ShortMemoryAtEveryAllocation) {
    const temp_game game;
    game.log_to_file();
    fake_scope fakes;
    archive_builder().add("txt/a", "12345").add("txt/b", "678").write(game.data(ARCHIVE));
    const int failed = fake_fail_each_allocation([] {
        char *text = nullptr;
        const bool read = data_archive_open() == 1 && data_archive_read_text(&text, "b") == 3;
        std::free(text);
        data_archive_close();
        return read;
    });
    EXPECT_GE(failed, 10);
}
