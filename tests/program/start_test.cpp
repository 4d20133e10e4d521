// start_test.cpp: what start-up says and does when something is missing or damaged, and sudden ends.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#include "core/base/app_state.h"
#include "core/base/strings.h"
#include "persist/best_times.h"
#include "puzzles/board.h"
#include "puzzles/debug_actions.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

namespace fs = std::filesystem;

namespace {

constexpr int EXIT_NO_START = 255; // -1 as the system reports it

void walk_in_and_out() {
    leave_splash();
    leave_program();
}

void cut_archive(const game_folder &folder, std::size_t size) {
    folder.write("data/data.dar", folder.text("data/data.dar").substr(0, size));
}

// The archive and the saved files store texts with 128 added to every byte.
std::string as_stored(std::string text) {
    string_shift(text.data(), 128);
    return text;
}

// Changes the entry's name, so that the program misses it.
void lose_entry(const game_folder &folder, const std::string &name) {
    std::string archive = folder.text("data/data.dar");
    archive.at(archive.find(as_stored(name))) = static_cast<char>('y' + 128);
    folder.write("data/data.dar", archive);
}

void put_folder(const game_folder &folder, const std::string &name) {
    fs::remove(folder.file(name));
    fs::create_directories(folder.file(name) / "within");
}

TEST(start, says_what_is_missing_or_damaged) {
    const struct {
        const char *what;
        void (*spoil)(const game_folder &folder);
        int exit_code;
        const char *message;
    } ROWS[] = {
        {"no archive", [](auto &f) { fs::remove(f.file("data/data.dar")); }, EXIT_NO_START, "Could not open"},
        {"a folder for it", [](auto &f) { put_folder(f, "data/data.dar"); }, EXIT_NO_START, "data.dar is cut short"},
        {"cut in its directory", [](auto &f) { cut_archive(f, 1000); }, EXIT_NO_START, "data.dar"},
        {"cut in its pictures", [](auto &f) { cut_archive(f, 200'000); }, EXIT_NO_START, "Error loading xpm file"},
        {"no glyph", [](auto &f) { lose_entry(f, "xpm/font/normal/a.xpm"); }, EXIT_NO_START, "file font/normal/a.xpm"},
        {"no picture", [](auto &f) { lose_entry(f, "xpm/title/042.xpm"); }, EXIT_NO_START, "file title/042.xpm"},
        {"no sound", [](auto &f) { lose_entry(f, "ogg/click.ogg"); }, 0, "Could not open sound file ogg/click.ogg"},
        {"no log", [](auto &f) { put_folder(f, "bin/errorlog.log"), lose_entry(f, "ogg/click.ogg"); }, 0,
         "Could not open error log file errorlog.log"},
        {"damaged prefs", [](auto &f) { f.write("data/prefs", std::string(12, '\xFF')); }, 0, "copy is kept in"},
        {"a folder for prefs", [](auto &f) { put_folder(f, "data/prefs"); }, 0, "prefs for writing"},
        {"no room to keep what is damaged",
         [](auto &f) { f.write("data/prefs", "12"), put_folder(f, "data/prefs.bad"); }, 0,
         "Could not keep damaged file"},
        {"no such audio driver", [](auto &) { setenv("SDL_AUDIODRIVER", "nosuch", 1); }, 0, "sound will unavailable"},
        {"no place for scores", [](auto &f) { fs::create_symlink("no/scores", f.file("data/scores")); }, 0,
         "scores for writing"},
    };
    for (const auto &row : ROWS) {
        SCOPED_TRACE(row.what);
        const game_folder folder;
        row.spoil(folder);
        const game_result result = play_game(folder, 16, walk_in_and_out);
        EXPECT_EQ(result.exit_code, row.exit_code) << result.said;
        EXPECT_NE((result.log + result.said).find(row.message), std::string::npos) << result.log << result.said;
        unsetenv("SDL_AUDIODRIVER");
    }
}

TEST(start, ends_without_a_display) {
    for (const char *display : {"", ":54321"}) {
        const game_folder folder;
        unsetenv("SDL_VIDEODRIVER");
        setenv("DISPLAY", display, 1);
        const game_result result = play_game(folder, 16, walk_in_and_out);
        EXPECT_EQ(result.exit_code, 1);
        EXPECT_NE(result.said.find("no display\n"), std::string::npos) << result.said;
    }
}

// --- Sudden ends ---------------------------------------------------------------------------------

constexpr int CODE = 3;

// Another thread ends the program while the main thread, after its loop, waits for the disk: here for a pipe's reader.
void exit_while_the_end_saves() {
    using namespace std::chrono_literals;
    const char *const prefs = "../data/prefs", *const pipe = "../data/pipe";
    fs::remove(prefs);
    mkfifo(prefs, S_IRUSR | S_IWUSR);
    std::thread([] {
        std::this_thread::sleep_for(50ms);
        std::exit(CODE);
    }).detach();
    std::thread([=] {
        std::this_thread::sleep_for(300ms);
        fs::rename(prefs, pipe);
        write_file(prefs, {});
        static_cast<void>(open(pipe, O_RDONLY | O_CLOEXEC)); // the reader comes
    }).detach();
    std::raise(SIGTERM);
}

void leave_for_the_web_page() {
    setenv("PATH", "/none", 1); // no browser
    click(230, 125);
}

// A signal ends the main loop. A library may end the program in its middle, on any thread, as the session's end does:
// that is no failure, and what the threads still use must then not be released, by anybody's exit handler.
TEST(ending, saves_what_was_recorded) {
    const struct {
        const char *what;
        void (*end)();
        int exit_code;
        const char *memory; // null: on which thread the end comes first is open
    } ROWS[] = {
        {"SIGTERM", [] { std::raise(SIGTERM); }, 0, "released\n"},
        {"SIGHUP", [] { std::raise(SIGHUP); }, 0, "released\n"},
        {"SIGINT", [] { std::raise(SIGINT); }, 0, "released\n"},
        {"the web page's button", leave_for_the_web_page, 0, "released\n"},
        {"exit on the main thread", [] { exit_main_loop(CODE); }, 0, ""},
        {"exit on another thread", [] { std::exit(CODE); }, 0, ""},
        {"exit while the end saves", exit_while_the_end_saves, 0, nullptr},
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
        EXPECT_TRUE(row.memory == nullptr || result.said == row.memory) << result.said;
        EXPECT_NE(folder.text("data/scores").find(as_stored("bob")), std::string::npos);
        EXPECT_NE(folder.text("data/prefs").find(as_stored("bob")), std::string::npos);
    }
}

TEST(ending, records_a_run_that_nobody_has_confirmed_yet) {
    const game_folder folder;
    const game_result result = play_game(folder, 16, [] {
        leave_splash();
        select_puzzle(0);
        study_selected();
        close_help();
        start_playing("bob");
        close_help();
        board_debug_finish(the_board());
        until_screen(SCREEN_DIALOG);
        check(best_times_for_puzzle(0)->log->count == 0, "nothing is recorded yet");
        std::raise(SIGHUP);
        wait_frames(50);
    });
    EXPECT_EQ(result.exit_code, 0) << result.said;
    EXPECT_NE(folder.text("data/scores").find(as_stored("bob")), std::string::npos);
}

} // namespace
