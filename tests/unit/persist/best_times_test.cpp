// best_times_test.cpp: Master places, logs, players and the file that keeps them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/puzzle_info.h"
#include "persist/best_times.h"
#include "support/archive_builder.h"
#include "support/fake_sdl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace fs = std::filesystem;

static std::string masters(i32 puzzle) {
    std::ostringstream out;
    const puzzle_scores *scores = best_times_for_puzzle(puzzle);
    for (i32 k = 0; k < MASTER_PLACES; ++k)
        out << (scores->master_name[k] != nullptr ? scores->master_name[k] : "-") << " " << scores->master_time[k]
            << ";";
    return out.str();
}

static std::string runs_of(i32 puzzle) {
    std::ostringstream out;
    for (const score_entry *entry : each(best_times_for_puzzle(puzzle)->log))
        out << entry->date << " " << entry->name << " " << entry->seconds << ";";
    return out.str();
}

// Everything in the table but the players, whom only player_find shows.
static std::string whole_table() {
    std::string all;
    for (i32 p = 0; p < PUZZLE_COUNT; ++p)
        all += masters(p) + "|" + runs_of(p) + "\n";
    return all;
}

class BestTimes : public testing::Test {
protected:
    BestTimes() {
        EXPECT_EQ(best_times_create(), 1);
        game.log_to_file();
    }
    ~BestTimes() override { best_times_destroy(); }

    // Loads these bytes into a new table, with nothing kept of an older file.
    void load(const file_bytes &bytes) {
        fs::remove(game.data("scores.bad"));
        write_file(game.data("scores"), bytes);
        best_times_destroy();
        ASSERT_EQ(best_times_create(), 1);
        EXPECT_EQ(best_times_load(), 1);
    }
    file_bytes stored(const char *name = "scores") const { return read_file(game.data(name)); }

    const temp_game game;
};

TEST_F(BestTimes, RunsTakeMasterPlacesAndTheTwentyNewestAreLogged) {
    EXPECT_EQ(best_times_load(), -1) << "there is no file: the defaults";
    EXPECT_EQ(masters(8), "The Master 420;Master 2 585;Master 3 750;");
    EXPECT_EQ(game.log_text(), "");
    for (const auto &[seconds, after] : {std::pair{150, "The Master 150;New 150;Master 2 240;"}, // a tie comes after
                                         {149, "New 149;The Master 150;New 150;"},
                                         {151, "New 149;The Master 150;New 150;"}}) {
        best_times_record(0, "New", seconds);
        EXPECT_EQ(masters(0), after) << seconds;
    }
    best_times_for_puzzle(1)->master_time[1] = 0; // a free place takes any time
    best_times_record(1, "New", 5000);
    EXPECT_EQ(masters(1), "The Master 165;New 5000;Master 2 0;");
    best_times_record(-1, "New", 1);
    best_times_record(PUZZLE_COUNT, "New", 1);
    EXPECT_EQ(best_times_for_puzzle(PUZZLE_COUNT), nullptr);
    for (i32 seconds = 1000; seconds < 1025; ++seconds)
        best_times_record(3, "Ann", seconds);
    const ptr_array<score_entry> *log = best_times_for_puzzle(3)->log;
    ASSERT_EQ(log->count, LOG_LENGTH);
    for (i32 i = 0; i < LOG_LENGTH; ++i)
        EXPECT_EQ(log->items[i]->seconds, 1024 - i);
}

TEST_F(BestTimes, PlayersMatchWithoutSpacesAndCase) {
    best_times_record(10, "Ann Lee", 360); // exactly the fourth time
    best_times_record(9, "annlee ", 391);  // one second more than it
    const player_record *ann = player_find(" ANN l e e", false);
    ASSERT_NE(ann, nullptr);
    EXPECT_STREQ(ann->name, "Ann Lee");
    EXPECT_EQ(player_mastered("ann lee"), 1U << 10);
    EXPECT_EQ(ann->seen, 1U << 10 | 1U << 9);
    for (const char *other : {"Ann Le", "Ann Leee", "Ann-Lee", " "})
        EXPECT_EQ(player_find(other, false), nullptr) << other;
    const player_record *nobody = player_find("  ", true);
    EXPECT_EQ(player_find(nullptr, false), nobody);
}

static void put_string(file_bytes *bytes, const std::string &text) {
    append_i32(bytes, static_cast<int>(text.size()));
    for (const char c : text)
        bytes->push_back(static_cast<unsigned char>(c + 128));
}

// A file with two runs and one player, made by hand.
static file_bytes sample_file() {
    file_bytes bytes;
    for (int p = 0; p < PUZZLE_COUNT; ++p) {
        for (const std::string name : {"Ann", "", "B\x80\xE4"}) {
            append_i32(&bytes, 100 + p);
            put_string(&bytes, name);
        }
        append_i32(&bytes, p == 4 ? 2 : 0);
        for (const int seconds : {77, -2}) {
            if (p != 4)
                continue;
            put_string(&bytes, "2004-03-07 14:05");
            append_i32(&bytes, seconds);
            put_string(&bytes, "Ann");
        }
    }
    append_i32(&bytes, 1);
    put_string(&bytes, "Ann");
    append_i32(&bytes, -1);
    append_i32(&bytes, 0x800);
    return bytes;
}

TEST_F(BestTimes, FileHoldsTheWholeTable) {
    file_bytes sample = sample_file();
    write_file(game.data("scores"), sample);
    best_times_reset();
    best_times_record(4, "old", 1000);
    EXPECT_EQ(best_times_load(), 1);
    EXPECT_EQ(masters(0), "Ann 100;Master 2 100;B\x80\xE4 100;") << "an empty name leaves the old one";
    EXPECT_EQ(runs_of(4), "2004-03-07 14:05 Ann 77;2004-03-07 14:05 Ann -2;");
    EXPECT_EQ(player_mastered("ann"), 0xFFFFFFFFU);
    EXPECT_EQ(player_find("ANN", false)->seen, PLAYER_SEEN_STUDY);
    EXPECT_EQ(player_find("old", false), nullptr);
    sample.resize(sample.size() + 50, 'x');
    load(sample);
    write_file(game.data("scores"), file_bytes(sample.size(), 'x'));
    EXPECT_EQ(best_times_save(), 1);
    EXPECT_EQ(stored(), sample) << "the same bytes again, and stale ones behind";
    EXPECT_FALSE(fs::exists(game.data("scores.bad")));
}

TEST_F(BestTimes, CutFileKeepsWhatWasRead) {
    const file_bytes sample = sample_file();
    for (std::size_t size = 0; size <= sample.size(); ++size) {
        SCOPED_TRACE(size);
        const file_bytes cut(sample.begin(), sample.begin() + static_cast<std::ptrdiff_t>(size));
        load(cut);
        EXPECT_EQ(masters(0).substr(0, 7), size < 4 ? "- 0;- 0" : size < 11 ? "- 100;-" : "Ann 100");
        const std::string before = whole_table();
        EXPECT_EQ(best_times_save(), 1);
        const bool damaged = size > 0 && size < sample.size();
        EXPECT_EQ(fs::exists(game.data("scores.bad")), damaged);
        EXPECT_EQ(stored("scores.bad"), damaged ? cut : file_bytes());
        load(stored());
        EXPECT_EQ(whole_table(), before) << "saved and loaded again";
    }
}

TEST_F(BestTimes, ImpossibleNumbersEndTheLoad) {
    const file_bytes sample = sample_file();
    const std::ptrdiff_t size = std::ssize(sample), name = 4, count = 3 * 8 + 6, players = size - 19;
    const struct {
        std::ptrdiff_t at; // of a big-endian number
        int number;
        bool damaged;
    } ROWS[] = {{name, -1, true},  {name, 0x7FFFFFFF, true},  {name, static_cast<int>(size), true},
                {count, -1, true}, {count, 0x7FFFFFFF, true}, {players, 2, true}, // where one fits
                {0, -7, false}};                                                  // any time will do
    for (const auto &[at, number, damaged] : ROWS) {
        file_bytes bytes = sample, written;
        append_i32(&written, number);
        std::copy(written.begin(), written.end(), bytes.begin() + at);
        load(bytes);
        EXPECT_EQ(player_find("Ann", false) == nullptr, damaged) << "nothing behind the damage is read: " << at;
        EXPECT_EQ(best_times_save(), 1);
        EXPECT_EQ(stored("scores.bad"), damaged ? bytes : file_bytes()) << at << ", " << number;
    }
}

// Whatever could not be read for want of memory is still on the disk afterwards.
TEST_F(BestTimes, ShortMemoryLosesNothing) {
    fake_scope fakes;
    const file_bytes sample = sample_file();
    const int failed = fake_fail_each_allocation([&] {
        write_file(game.data("scores"), sample);
        fs::remove(game.data("scores.bad"));
        best_times_destroy();
        bool whole = best_times_create() == 1 && best_times_load() == 1;
        best_times_record(4, "Bob", 1);
        whole = whole && player_find("Bob", false) != nullptr && best_times_for_puzzle(4)->log->count == 3 &&
                masters(4).substr(0, 6) == "Bob 1;" && player_mastered("Ann") != 0;
        whole = best_times_save() == 1 && whole;
        EXPECT_TRUE(player_mastered("Ann") != 0 || stored() == sample || stored("scores.bad") == sample);
        return whole;
    });
    EXPECT_GE(failed, 60);
    EXPECT_EQ(best_times_load(), 1);
    EXPECT_EQ(masters(4), "Bob 1;Ann 104;- 104;");
}
