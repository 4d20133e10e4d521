// start_test.cpp: what start-up says and does when something is missing or damaged, and sudden ends.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#include "core/app_state.h"
#include "core/strings.h"
#include "persist/best_times.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

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

TEST(start, without_a_usable_archive_says_why_and_stops) {
    const game_folder whole;
    const std::string good = whole.text("data/data.dar");
    ASSERT_GT(good.size(), 100000u);
    const struct {
        const char *what;
        std::string bytes; // empty: no file at all
        const char *message;
    } ROWS[] = {
        {"missing", "", "Could not open"},
        {"cut in its directory", good.substr(0, 1000), "data.dar"},
        {"cut in its pictures", good.substr(0, good.size() / 2), "Error loading xpm file"},
        {"without a glyph", without_entry(good, "xpm/font/normal/a.xpm"), "Error loading xpm file font/normal/a.xpm"},
        {"without a title picture", without_entry(good, "xpm/title/042.xpm"), "Error loading xpm file title/042.xpm"},
    };
    for (const auto &row : ROWS) {
        SCOPED_TRACE(row.what);
        const game_folder folder;
        if (row.bytes.empty())
            fs::remove(folder.file("data/data.dar"));
        else
            folder.write("data/data.dar", row.bytes);
        const game_result result = play_game(folder, 16, walk_in_and_out);
        EXPECT_EQ(result.exit_code, EXIT_NO_START) << result.said;
        EXPECT_NE(result.log.find(row.message), std::string::npos) << result.log;
    }
}

TEST(start, with_a_folder_in_a_file_s_place_says_which) {
    const struct {
        const char *folder;
        int exit_code;
        const char *message;
    } ROWS[] = {
        {"data/data.dar", EXIT_NO_START, "data.dar is cut short"},
        {"bin/errorlog.log", 0, "Could not open error log file errorlog.log"},
        {"data/prefs", 0, "Could not keep damaged file ..\\data\\prefs"},
        {"data/scores", 0, "Could not keep damaged file ..\\data\\scores"},
    };
    for (const auto &row : ROWS) {
        SCOPED_TRACE(row.folder);
        const game_folder folder;
        fs::remove(folder.file(row.folder));
        fs::create_directories(folder.file(row.folder) / "within");
        if (row.folder == std::string("bin/errorlog.log")) // so that there is something to be said
            folder.write("data/data.dar", without_entry(folder.text("data/data.dar"), "ogg/click.ogg"));
        const game_result result = play_game(folder, 16, walk_in_and_out);
        EXPECT_EQ(result.exit_code, row.exit_code) << result.said;
        EXPECT_NE((result.log + result.said).find(row.message), std::string::npos) << result.log << result.said;
        EXPECT_TRUE(fs::is_directory(folder.file(row.folder)));
    }
}

TEST(start, goes_on_without_a_sound_and_without_a_device) {
    const game_folder folder;
    folder.write("data/data.dar", without_entry(folder.text("data/data.dar"), "ogg/click.ogg"));
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

TEST(start, keeps_a_damaged_file_and_says_which_it_cannot_write) {
    const game_folder folder;
    const std::string damaged(12, '\xFF');
    folder.write("data/prefs", damaged);
    fs::create_symlink("no-such-folder/scores", folder.file("data/scores"));
    const game_result result = play_game(folder, 16, walk_in_and_out);
    EXPECT_EQ(result.exit_code, 0) << result.said;
    EXPECT_NE(result.log.find("scores for writing"), std::string::npos) << result.log;
    EXPECT_EQ(folder.text("data/prefs.bad"), damaged);
    EXPECT_NE(folder.text("data/prefs"), damaged);
}

// --- Sudden ends ---------------------------------------------------------------------------------

// A signal ends the main loop. A library may end the program in its middle, on any thread, as the session's end does:
// that is no failure, and what the threads still use must then not be released, by anybody's exit handler.
TEST(ending, saves_what_was_recorded) {
    constexpr int CODE = 3;
    const struct {
        const char *what;
        void (*end)();
        int exit_code;
        const char *memory;
    } ROWS[] = {
        {"SIGTERM", [] { std::raise(SIGTERM); }, 0, "released\n"},
        {"SIGINT", [] { std::raise(SIGINT); }, 0, "released\n"},
        {"exit on the main thread", [] { exit_main_loop(CODE); }, 0, ""},
        {"exit on another thread", [] { std::exit(CODE); }, 0, ""},
    };
    for (const auto &row : ROWS) {
        SCOPED_TRACE(row.what);
        const game_folder folder;
        const game_result result = play_game(folder, 16, [&row] {
            leave_splash();
            app_state_set_name(app, "bob");
            best_times_record(0, "bob", 1);
            row.end();
            wait_frames(50);
            check(false, "the program ends");
        });
        EXPECT_EQ(result.exit_code, row.exit_code);
        EXPECT_EQ(result.said, row.memory);
        std::string stored = "bob";
        string_shift(stored.data(), 128);
        EXPECT_NE(folder.text("data/scores").find(stored), std::string::npos);
        EXPECT_NE(folder.text("data/prefs").find(stored), std::string::npos);
    }
}

} // namespace
