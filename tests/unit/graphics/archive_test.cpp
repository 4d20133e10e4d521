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
    const std::string result = n < 0 ? "(" + std::to_string(n) + ")" : std::string(text, static_cast<std::size_t>(n));
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
    const auto size = static_cast<i32>(all.size());
    for (const i32 step : {1000, FILE_READER_CAPACITY - 1, FILE_READER_CAPACITY, FILE_READER_CAPACITY + 1, size}) {
        for (const i32 limit : {size, size - 20, FILE_READER_CAPACITY}) {
            const int descriptor = platform_open_read("f");
            file_reader *reader = file_reader_create_bounded(descriptor, limit);
            file_bytes read;
            for (i32 left = limit; left > 0; left -= step) {
                file_bytes part(static_cast<std::size_t>(std::min(step, left)));
                file_reader_read(reader, part.data(), static_cast<i32>(part.size()));
                read.insert(read.end(), part.begin(), part.end());
            }
            EXPECT_TRUE(std::equal(read.begin(), read.end(), all.begin())) << step << " " << limit;
            EXPECT_FALSE(reader->cut);
            char beyond = 'x';
            EXPECT_EQ(file_reader_read(reader, &beyond, 1), FILE_READER_ENDED);
            EXPECT_EQ(beyond, 0);
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

TEST(Archive, SeekNeedsTheFileOpen) {
    const temp_game game;
    archive_builder().add("a", "b").write("f");
    file_archive *archive = file_archive_create("f");
    EXPECT_EQ(file_archive_seek(archive, "a"), -1) << "nobody has opened the descriptor";
    file_archive_destroy(archive);
    game.log_to_file();
    EXPECT_EQ(data_archive_open(), -1);
    EXPECT_EQ(data_archive_open_entry("a"), -1);
    EXPECT_EQ(game.log_text(), "Could not open ..\\data\\data.dar for reading\n");
}

TEST(Archive, DamagedDirectory) {
    struct row {
        const char *what;
        archive_builder archive;
        bool opens;
        const char *good, *next; // what the entries txt/good and txt/next give
    };
    constexpr int largest = 0x7FFFFFFF;
    const auto good = [] { return archive_builder().add("txt/good", "fine"); };
    const auto raw = [&good](int offset, int size) {
        return good().add_raw("txt/bad", offset, size).add("txt/next", "more");
    };
    const auto with = [&good](std::initializer_list<int> numbers) {
        archive_builder builder = good();
        for (const int number : numbers)
            append_i32(&builder.directory, number);
        return builder;
    };
    const row rows[] = {
        {"empty", archive_builder(), true, "(-1)", "(-1)"},
        {"negative offset", raw(-1, 1), true, "fine", "more"},
        {"negative size", raw(0, -1), true, "fine", "more"},
        {"offset behind the end", raw(largest, 0), true, "fine", "more"},
        {"size beyond the end", raw(4, largest), true, "fine", "more"},
        {"one byte too many", raw(4, 5), true, "fine", "more"},
        {"no name", good().add_raw("", 0, 1).add("txt/next", "more"), true, "fine", "more"},
        {"negative name length", with({-1, 0, 0}), true, "fine", "(-1)"},
        {"name longer than the directory", with({1, 0, 0}), true, "fine", "(-1)"},
        {"huge name", with({largest, 0, 0}), true, "fine", "(-1)"},
        {"half an entry", with({1}), true, "fine", "(-1)"},
    };
    for (const row &r : rows) {
        SCOPED_TRACE(r.what);
        const temp_game game;
        game.log_to_file();
        r.archive.write(game.data(ARCHIVE));
        const open_archive archive;
        EXPECT_EQ(archive.opened, r.opens);
        EXPECT_EQ(text_of("good"), r.good);
        EXPECT_EQ(text_of("next"), r.next);
        EXPECT_EQ(text_of("bad"), "(-1)");
        EXPECT_EQ(game.log_text().empty(), r.archive.directory.empty()) << "damage is logged";
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
