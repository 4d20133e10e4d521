// persist_test.cpp: Master places, logs and players, the two files that keep them and the name, and what becomes of
// damaged files and failed saves.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/app_state.h"
#include "core/base/puzzle_info.h"
#include "core/base/settings.h"
#include "persist/best_times.h"
#include "persist/best_times_file.h"
#include "persist/prefs.h"
#include "platform/platform.h"
#include "support/stored_files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <limits>

namespace fs = std::filesystem;

namespace {

// The writes to files of this process that still succeed.
constexpr int MOST_WRITES = 6;
struct full_disk {
    int full_after = std::numeric_limits<int>::max();
    bool for_good = true;     // or for one write
    bool writes_half = false; // before it is found to be full
};
full_disk disk;

int exit_code_of(pid_t pid) {
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string masters(i32 puzzle) {
    std::string text;
    const puzzle_scores *scores = best_times_for_puzzle(puzzle);
    for (i32 k = 0; k < MASTER_PLACES; ++k)
        text += std::string(scores->master_name[k] != nullptr ? scores->master_name[k] : "-") + " " +
                std::to_string(scores->master_time[k]) + ";";
    return text;
}

// Everything in the table but the players, whom only player_find shows.
std::string whole_table() {
    std::string text;
    for (i32 puzzle = 0; puzzle < PUZZLE_COUNT; ++puzzle) {
        text += masters(puzzle) + "|";
        for (const score_entry *run : each(best_times_for_puzzle(puzzle)->log))
            text += std::string(run->date) + " " + run->name + " " + std::to_string(run->seconds) + ";";
    }
    return text;
}

file_bytes first_of(const file_bytes &bytes, std::size_t size) {
    return {bytes.data(), bytes.data() + size};
}

} // namespace

extern "C" ssize_t __real_write(int fd, const void *bytes, std::size_t count);
extern "C" ssize_t __wrap_write(int fd, const void *bytes, std::size_t count) {
    const bool full = disk.for_good ? disk.full_after <= 0 : disk.full_after == 0;
    if (full && disk.writes_half) {
        disk.writes_half = false;
        return __real_write(fd, bytes, (count + 1) / 2);
    }
    --disk.full_after;
    if (!full)
        return __real_write(fd, bytes, count);
    errno = ENOSPC;
    return -1;
}

namespace {

struct persist_test : testing::Test {
    const temp_game game;
    app_state state = {};

    persist_test() {
        app = &state;
        EXPECT_EQ(best_times_create(), 1);
        game.log_to_file();
    }
    ~persist_test() override {
        best_times_destroy();
        std::free(state.player_name);
        app = nullptr;
        settings = 0;
    }
    file_bytes stored(const char *name) const { return read_file(game.data(name)); }

    // The names in the folder, sorted.
    std::string listing() const {
        std::set<std::string> names;
        for (const auto &entry : fs::directory_iterator(game.data("")))
            names.insert(entry.path().filename());
        std::string text;
        for (const std::string &name : names)
            text += (text.empty() ? "" : " ") + name;
        return text;
    }
    static int save_both() { return prefs_save() + best_times_save(); }

    // Loads these bytes into a new table, with nothing kept of an older file.
    void load_scores(const file_bytes &bytes) {
        fs::remove(game.data("scores.bad"));
        write_file(game.data("scores"), bytes);
        best_times_destroy();
        ASSERT_EQ(best_times_create(), 1);
        EXPECT_EQ(best_times_load(), 1);
    }
    // Forgets everything, reads the file, and says what came of it: result, name (or -), completion flag.
    std::string load_prefs() {
        std::free(state.player_name);
        state.player_name = nullptr;
        state.flags = 0;
        settings = SETTINGS_HELP;
        const std::string result = std::to_string(prefs_load());
        const std::string name = app_has(APP_NAME_SET) ? state.player_name : "-";
        return result + " " + name + (settings == (SETTINGS_COMPLETED | SETTINGS_HELP) ? " 1" : " 0");
    }
};

TEST_F(persist_test, runs_take_master_places_and_the_twenty_newest_are_logged) {
    EXPECT_EQ(best_times_load(), -1) << "there is no file: the defaults";
    EXPECT_EQ(masters(8), "The Master 420;Master 2 585;Master 3 750;");
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
    for (i32 seconds = 1000; seconds < 1025; ++seconds)
        best_times_record(3, "Ann", seconds);
    const ptr_array<score_entry> *log = best_times_for_puzzle(3)->log;
    ASSERT_EQ(log->count, LOG_LENGTH);
    for (i32 i = 0; i < LOG_LENGTH; ++i)
        EXPECT_EQ(log->items[i]->seconds, 1024 - i);
}

TEST_F(persist_test, players_match_without_spaces_and_case) {
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

TEST_F(persist_test, scores_come_back_from_the_file_byte_for_byte) {
    best_times_reset();
    best_times_record(4, "old", 1000);
    file_bytes file = stored_scores("B\x80\xE4", 2);
    write_file(game.data("scores"), file);
    EXPECT_EQ(best_times_load(), 1);
    EXPECT_EQ(masters(0), "B\x80\xE4 100;B\x80\xE4 101;B\x80\xE4 102;");
    EXPECT_NE(whole_table().find("|2004-03-07 14:05 B\x80\xE4 100;2004-03-07 14:05 B\x80\xE4 101;"), std::string::npos);
    EXPECT_EQ(player_mastered("b\x80\xE4"), 0x7FFU);
    EXPECT_EQ(player_find("old", false), nullptr);
    file.resize(file.size() + 50, 'x');
    load_scores(file);
    write_file(game.data("scores"), file_bytes(file.size(), 'x'));
    EXPECT_EQ(best_times_save(), 1);
    EXPECT_EQ(stored("scores"), file) << "the same bytes again, and stale ones behind";
    EXPECT_FALSE(fs::exists(game.data("scores.bad"))) << "which are no damage";
    best_times_reset();
    write_file(game.data("scores"), stored_scores("", 0));
    EXPECT_EQ(best_times_load(), 1);
    EXPECT_EQ(masters(0), "The Master 100;Master 2 101;Master 3 102;") << "an empty name leaves the old one";
}

TEST_F(persist_test, damaged_scores_are_kept_with_all_that_could_be_read_of_them) {
    const file_bytes whole = stored_scores("Ann", 1);
    constexpr std::size_t NAME = 4, FIRST = 11, RUNS = 3 * FIRST; // first name's length, first place's end, runs
    std::vector<std::pair<file_bytes, std::size_t>> rows;         // and how many bytes are sound
    for (std::size_t size = 1; size <= whole.size(); ++size)
        rows.emplace_back(first_of(whole, size), size);
    for (const auto &[at, number] : {std::pair{NAME, -1}, {NAME, 0x7FFFFFFF}, {RUNS, -1}, {RUNS, 0x7FFFFFFF}}) {
        file_bytes bytes = first_of(whole, at);
        append_i32(&bytes, number);
        bytes.insert(bytes.end(), whole.begin() + std::ssize(bytes), whole.end());
        rows.emplace_back(bytes, at);
    }
    for (const auto &[bytes, sound] : rows) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        load_scores(bytes);
        EXPECT_EQ(masters(0).substr(0, 7), sound < NAME ? "- 0;- 0" : sound < FIRST ? "- 100;-" : "Ann 100");
        const std::string before = whole_table();
        EXPECT_EQ(best_times_save(), 1);
        EXPECT_EQ(stored("scores.bad"), sound < whole.size() ? bytes : file_bytes());
        load_scores(stored("scores"));
        EXPECT_EQ(whole_table(), before) << "saved and loaded again";
    }
}

TEST_F(persist_test, prefs_come_back_and_damaged_ones_are_kept) {
    EXPECT_EQ(load_prefs(), "-1 - 0");
    const file_bytes ann = stored_prefs("Ann");
    std::vector<std::tuple<file_bytes, const char *, bool>> rows = {
        {ann, "1 Ann 1", false},
        {{0, 0, 0, 1, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 1}, "1 - 0", true}, // a negative length
        {{0, 0, 0, 1, 0, 0, 0, 5, 0, 0, 0, 1}, "1 - 0", true},             // one byte too long
        {{9, 9, 9, 9, 0, 0, 0, 1, 0xC1, 0, 0, 2, 0}, "1 A 1", false},      // any version, any flag
    };
    for (std::size_t size = 1; size < ann.size(); ++size)
        rows.push_back({first_of(ann, size), size < 11 ? "1 - 0" : "1 Ann 0", true});
    for (const auto &[bytes, loads, damaged] : rows) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        write_file(game.data("prefs"), bytes);
        EXPECT_EQ(load_prefs(), loads);
        EXPECT_EQ(prefs_save(), 1);
        EXPECT_EQ(stored("prefs.bad"), damaged ? bytes : file_bytes());
        EXPECT_EQ(load_prefs(), loads) << "what was read is kept";
        fs::remove(game.data("prefs.bad"));
        EXPECT_EQ(prefs_save(), 1);
        EXPECT_FALSE(fs::exists(game.data("prefs.bad"))) << "sound again";
    }
    settings |= SETTINGS_COMPLETED;
    EXPECT_EQ(prefs_load(), 1);
    EXPECT_EQ(settings, SETTINGS_HELP) << "a stored zero clears the flag";
    app_state_set_name(app, "A\xE4 \x80x"); // the byte that would be stored as a zero ends the name
    EXPECT_EQ(prefs_save(), 1);
    EXPECT_EQ(load_prefs(), "1 A\xE4  0");
}

TEST_F(persist_test, an_empty_file_counts_as_none) {
    write_file(game.data("scores"), {});
    write_file(game.data("prefs"), {});
    EXPECT_EQ(best_times_load(), -1);
    EXPECT_EQ(masters(8), "The Master 420;Master 2 585;Master 3 750;");
    EXPECT_EQ(load_prefs(), "-1 - 0");
    EXPECT_EQ(save_both(), 2);
    EXPECT_EQ(listing(), "prefs scores");
}

TEST_F(persist_test, damaged_files_are_spared_until_a_copy_is_kept) {
    fs::create_directory(game.data("prefs.bad")); // no copy can be made
    const file_bytes damaged = {1, 2, 3}, ann = stored_prefs("Ann"), earlier = stored_scores("Ann", 2);
    write_file(game.data("prefs"), damaged);
    load_prefs();
    EXPECT_EQ(prefs_save(), -1);
    EXPECT_EQ(stored("prefs"), damaged);
    fs::remove(game.data("prefs.bad"));
    EXPECT_EQ(prefs_save(), 1) << "next time it works";

    fs::remove(game.data("prefs"));
    fs::create_symlink("prefs", game.data("prefs")); // leads to itself: there, but not to be opened
    EXPECT_EQ(load_prefs(), "-1 - 0");
    fs::remove(game.data("prefs"));
    write_file(game.data("prefs"), ann);         // readable again before the program ends
    write_file(game.data("prefs.bad"), earlier); // of long ago
    disk.full_after = 0;
    EXPECT_EQ(prefs_save(), -1);
    EXPECT_EQ(stored("prefs.bad"), earlier) << "a copy that fails destroys none";
    disk = {};
    EXPECT_EQ(prefs_save(), 1);
    EXPECT_EQ(stored("prefs.bad"), ann);
}

// The disk is full at each write of a save, for good or for this write, with nothing or with half of it written; there
// was no file before, one of the same length, a shorter or a longer one.
TEST_F(persist_test, a_full_disk_leaves_the_old_file_or_the_new_one) {
    best_times_record(0, "Bob", 1);
    EXPECT_EQ(best_times_save(), 1);
    const file_bytes fresh = stored("scores");
    file_bytes same = fresh, longer = stored_scores("Ann", 20);
    same[4 + 4] ^= 1; // in the first name
    int saved_in_place = 0;
    for (const file_bytes &before : {file_bytes(), same, stored_scores("Ann", 0), longer}) {
        for (int tried = 0; tried < 4 * MOST_WRITES; ++tried) {
            SCOPED_TRACE(testing::Message() << before.size() << " bytes, case " << tried);
            fs::remove(game.data("scores"));
            if (!before.empty())
                write_file(game.data("scores"), before);
            disk = {.full_after = tried / 4, .for_good = tried % 2 == 0, .writes_half = tried / 2 % 2 == 0};
            const bool saved = best_times_save() == 1;
            disk = {};
            file_bytes expected = saved ? fresh : before;
            if (saved && before.size() > fresh.size())
                expected.insert(expected.end(), before.begin() + std::ssize(fresh), before.end());
            EXPECT_EQ(stored("scores"), expected);
            EXPECT_EQ(listing(), expected.empty() ? "" : "scores");
            saved_in_place += saved && tried < 4 ? 1 : 0;
            EXPECT_EQ(best_times_save(), 1) << "as soon as there is room";
        }
    }
    EXPECT_EQ(saved_in_place, 3 * 2) << "where only the file beside the old one finds no room";
}

TEST_F(persist_test, a_limit_on_files_is_no_reason_to_cut_one) {
    const file_bytes whole = stored_scores("Ann", 20);
    load_scores(whole);
    best_times_record(0, "Bob", 1);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual = {};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit small = {4096, usual.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_EQ(best_times_save(), -1);
    setrlimit(RLIMIT_FSIZE, &usual);
    EXPECT_EQ(stored("scores"), whole);
    EXPECT_EQ(listing(), "scores");
}

TEST_F(persist_test, two_processes_save_at_one_moment) {
    constexpr int SAVES = 100;
    const auto all_saved = [] {
        for (int i = 0; i < SAVES; ++i)
            if (best_times_save() != 1)
                _exit(1);
        _exit(0);
    };
    pid_t pids[2];
    for (pid_t &pid : pids)
        if ((pid = fork()) == 0)
            all_saved();
    for (const pid_t pid : pids)
        EXPECT_EQ(exit_code_of(pid), 0);
    EXPECT_EQ(listing(), "scores");
}

TEST_F(persist_test, what_a_killed_save_left_goes_with_the_next_claim) {
    for (const char *name : {"scores.new-123", "scores", "a.new-12b", "b.new-"})
        write_file(game.data(name), {1});
    EXPECT_TRUE(platform_claim_folder("..\\data"));
    EXPECT_EQ(listing(), "a.new-12b b.new- scores");
}

// --- As somebody else, which only root can be ----------------------------------------------------

constexpr uid_t NOBODY = 65534;

struct as_nobody : persist_test {
    void SetUp() override {
        if (geteuid() != 0)
            GTEST_SKIP() << "only root can be two users";
        constexpr auto OTHERS = fs::perms::others_all | fs::perms::group_all | fs::perms::owner_all;
        fs::permissions(game.root, OTHERS);
        fs::permissions(game.data(""), OTHERS);
    }
    // What both saves give to nobody: 2 when both are saved.
    int save_as_nobody() {
        const pid_t pid = fork();
        if (pid == 0) {
            if (setgid(NOBODY) != 0 || setuid(NOBODY) != 0)
                _exit(EXIT_FAILURE);
            static_cast<void>(prefs_load());
            static_cast<void>(best_times_load());
            best_times_record(0, "Bob", 1);
            _exit(2 + save_both());
        }
        return exit_code_of(pid) - 2;
    }
};

TEST_F(as_nobody, a_file_keeps_its_owner_and_permissions) {
    constexpr auto PRIVATE = fs::perms::owner_read | fs::perms::owner_write;
    write_file(game.data("scores"), stored_scores("Ann", 1));
    fs::permissions(game.data("scores"), PRIVATE);
    ASSERT_EQ(chown(game.data("scores").c_str(), NOBODY, NOBODY), 0);
    EXPECT_EQ(best_times_save(), 1) << "by root";
    struct stat status = {};
    stat(game.data("scores").c_str(), &status);
    EXPECT_EQ(status.st_uid, NOBODY);
    EXPECT_EQ(status.st_gid, NOBODY);
    EXPECT_EQ(fs::status(game.data("scores")).permissions(), PRIVATE);
    EXPECT_EQ(save_as_nobody(), 2);
}

TEST_F(as_nobody, saves_over_others_files_in_a_sticky_folder) {
    const file_bytes old = stored_scores("Ann", 20);
    write_file(game.data("scores"), old);
    fs::permissions(game.data("scores"), fs::perms::others_read | fs::perms::others_write, fs::perm_options::add);
    fs::permissions(game.data(""), fs::perms::sticky_bit, fs::perm_options::add);
    EXPECT_EQ(save_as_nobody(), 2);
    EXPECT_NE(stored("scores"), old);
    EXPECT_EQ(best_times_load(), 1);
    EXPECT_EQ(masters(0).substr(0, 6), "Bob 1;");
    EXPECT_EQ(listing(), "prefs scores");
}

TEST_F(as_nobody, a_file_that_cannot_be_read_is_opened_for_writing_first) {
    const file_bytes old = stored_scores("Ann", 1);
    write_file(game.data("scores"), old);
    ASSERT_EQ(chown(game.data("scores").c_str(), NOBODY, NOBODY), 0);
    fs::permissions(game.data("scores"), fs::perms::none);
    EXPECT_EQ(save_as_nobody(), 0) << "prefs alone";
    EXPECT_EQ(stored("scores"), old);
    EXPECT_EQ(listing(), "prefs scores") << "and no copy";
    fs::permissions(game.data("scores"), fs::perms::owner_write);
    EXPECT_EQ(save_as_nobody(), 2);
    EXPECT_EQ(stored("scores.bad"), old);
    EXPECT_TRUE(names_in_scores(stored("scores")).has_value());
    EXPECT_EQ(listing(), "prefs scores scores.bad");
}

} // namespace
