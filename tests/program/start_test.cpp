// What start-up says and does when something is missing or damaged.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#include "core/app_state.h"
#include "core/screen.h"
#include "persist/best_times.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace fs = std::filesystem;

namespace {

constexpr int EXIT_NO_START = 255; // -1 as the system reports it

void walk_in_and_out() {
    leave_splash();
    leave_program();
}

// An archive of the same content in which one entry's name is changed, so that the program misses it. Names are
// stored with 128 added to every byte.
std::string without_entry(std::string archive, std::string name) {
    for (char &c : name)
        c = static_cast<char>(c + 128);
    const std::size_t at = archive.find(name);
    if (at != std::string::npos)
        archive[at] = static_cast<char>('y' + 128);
    return archive;
}

struct bad_archive {
    const char *what;
    std::string bytes; // empty: no file at all
    const char *message;
};

TEST(start, without_a_usable_archive_says_why_and_stops) {
    const std::string good = file_text(TAVIMO_DATA_FILE);
    ASSERT_GT(good.size(), 100000u);
    const bad_archive rows[] = {
        {"missing", "", "Could not open"},
        {"cut in its directory", good.substr(0, 1000), "data.dar"},
        {"cut in its pictures", good.substr(0, good.size() / 2), "Error loading xpm file"},
        {"without a glyph", without_entry(good, "xpm/font/normal/a.xpm"), "Error loading xpm file font/normal/a.xpm"},
        {"without a title picture", without_entry(good, "xpm/title/042.xpm"), "Error loading xpm file title/042.xpm"},
    };
    for (const bad_archive &row : rows) {
        SCOPED_TRACE(row.what);
        const game_folder folder;
        if (row.bytes.empty())
            fs::remove(folder.file("data/data.dar"));
        else
            write_text(folder.file("data/data.dar"), row.bytes);
        const game_result result = play_game(folder, 16, walk_in_and_out);
        EXPECT_EQ(result.exit_code, EXIT_NO_START) << result.said;
        EXPECT_NE(result.log.find(row.message), std::string::npos) << result.log;
    }
}

TEST(start, goes_on_without_a_sound_and_without_a_device) {
    const game_folder folder;
    write_text(folder.file("data/data.dar"), without_entry(file_text(TAVIMO_DATA_FILE), "ogg/click.ogg"));
    game_result result = play_game(folder, 16, walk_in_and_out);
    EXPECT_EQ(result.exit_code, 0) << result.said;
    EXPECT_NE(result.log.find("Warning: Could not open sound file ogg/click.ogg"), std::string::npos) << result.log;

    setenv("SDL_AUDIODRIVER", "none-such", 1);
    const game_folder silent;
    result = play_game(silent, 16, walk_in_and_out);
    unsetenv("SDL_AUDIODRIVER");
    EXPECT_TRUE(result.exit_code == 0 || result.exit_code == 1) << result.said;
    if (result.exit_code == 0) {
        EXPECT_NE(result.log.find("Error initializing audio, sound will unavailable"), std::string::npos);
    } else {
        EXPECT_NE(result.said.find("Fatal Error: "), std::string::npos);
    }
}

TEST(start, keeps_a_damaged_file_beside_the_new_one) {
    const game_folder folder;
    ASSERT_EQ(play_game(folder, 16, walk_in_and_out).exit_code, 0);
    const std::string scores = file_text(folder.file("data/scores"));
    const std::string damaged = scores.substr(0, scores.size() / 2);
    write_text(folder.file("data/scores"), damaged);
    const std::string prefs(12, '\xFF');
    write_text(folder.file("data/prefs"), prefs);
    const game_result result = play_game(folder, 16, [] {
        check(best_times_for_puzzle(0)->master_time[0] == 150, "what could be read stands");
        walk_in_and_out();
    });
    EXPECT_EQ(result.exit_code, 0) << result.said;
    EXPECT_EQ(file_text(folder.file("data/scores.bad")), damaged);
    EXPECT_EQ(file_text(folder.file("data/prefs.bad")), prefs);
}

TEST(start, says_which_file_it_cannot_write) {
    const game_folder folder;
    fs::create_symlink("no-such-folder/scores", folder.file("data/scores"));
    const game_result result = play_game(folder, 16, walk_in_and_out);
    EXPECT_EQ(result.exit_code, 0) << result.said;
    EXPECT_NE(result.log.find("scores for writing"), std::string::npos) << result.log;
    EXPECT_FALSE(file_text(folder.file("data/prefs")).empty());
}

} // namespace
