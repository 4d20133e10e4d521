// cut_save_test.cpp: a save that the system cuts short, or that can make no second file.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/puzzle_info.h"
#include "persist/best_times.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

static void fill_logs(const char *name) {
    for (i32 puzzle = 0; puzzle < PUZZLE_COUNT; ++puzzle)
        for (i32 i = 0; i < LOG_LENGTH; ++i)
            best_times_record(puzzle, name, 1000);
}

TEST(cut_save, leaves_the_old_file_whole) {
    constexpr rlim_t FULL_AT = 4096; // bytes of a file
    const temp_game game;
    game.log_to_file();
    ASSERT_EQ(best_times_create(), 1);
    fill_logs("The old one");
    ASSERT_EQ(best_times_save(), 1);
    constexpr auto PRIVATE = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
    std::filesystem::permissions(game.data("scores"), PRIVATE);
    ASSERT_EQ(best_times_save(), 1);
    EXPECT_EQ(std::filesystem::status(game.data("scores")).permissions(), PRIVATE);
    const file_bytes old = read_file(game.data("scores"));
    fill_logs("The new one");
    rlimit usual;
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit full = {FULL_AT, usual.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    EXPECT_EQ(best_times_save(), -1);
    setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(read_file(game.data("scores")), old);
    EXPECT_NE(game.log_text().find("Could not write file"), std::string::npos) << game.log_text();
    EXPECT_FALSE(std::filesystem::exists(game.data("scores.new")));

    std::filesystem::create_directory(game.data("scores.new"));
    EXPECT_EQ(best_times_save(), 1) << "in place";
    EXPECT_NE(read_file(game.data("scores")), old);
    best_times_destroy();
}
