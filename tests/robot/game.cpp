// game.cpp: starting, watching, ending.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "game.h"
#include "display.h"
#include "ears.h"
#include "eyes.h"
#include "hands.h"
#include "robot.h"

#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

namespace fs = std::filesystem;

static constexpr double END_PATIENCE = 60;          // seconds from the last click to the program's end
static constexpr const char *RECORDING_PACE = "93"; // ms of sound that SDL writes at a time: real time
static constexpr auto POLL = std::chrono::milliseconds(20);

static game_options chosen;
static fs::path folder;
static pid_t running = -1;

static std::string file_bytes(const fs::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

static std::string describe(int status) {
    if (WIFEXITED(status))
        return "with exit status " + std::to_string(WEXITSTATUS(status));
    return "by signal " + std::to_string(WTERMSIG(status));
}

// For the eyes' alarm.
static std::string ended_early() {
    int status = 0;
    if (running < 0 || waitpid(running, &status, WNOHANG) == 0)
        return "";
    running = -1;
    return "the program has ended " + describe(status);
}

static void print_last_words() {
    std::printf("the program's log:\n%s\nits standard error:\n%s\n", game_log().c_str(),
                file_bytes(folder / "said.txt").c_str());
}

static void stop_and_remove() {
    if (running > 0)
        process_stop(running);
    running = -1;
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

void game_prepare(const game_options &options) {
    chosen = options;
    std::string pattern = (fs::temp_directory_path() / "tavimo-robot-XXXXXX").string();
    robot_expect(mkdtemp(pattern.data()) != nullptr, "a temporary folder can be made");
    folder = pattern;
    robot_at_end(stop_and_remove);
    robot_on_give_up(print_last_words);
    const fs::path program = fs::absolute(options.program);
    fs::create_directories(folder / "bin");
    fs::create_directories(folder / "data");
    fs::create_symlink(program, folder / "bin" / "tavimo");
    fs::create_symlink(program.parent_path().parent_path() / "data" / "data.dar", folder / "data" / "data.dar");
}

static void set(const char *name, const std::string &value) {
    if (value.empty())
        unsetenv(name);
    else
        setenv(name, value.c_str(), 1);
}

void game_start() {
    static int starts = 0;
    const std::string recording = folder / ("sound" + std::to_string(++starts) + ".raw");
    if (chosen.record_sound)
        ears_open(recording);
    if (!chosen.loud)
        set("SDL_AUDIODRIVER", chosen.record_sound ? "disk" : "dummy");
    set("SDL_DISKAUDIOFILE", recording);
    set("SDL_DISKAUDIODELAY", RECORDING_PACE);
    set("SDL12COMPAT_SCALE_METHOD", "nearest"); // every pixel as the game has made it, whatever the display's size
    set("SDL_RENDER_DRIVER", chosen.loud ? "" : "software"); // a virtual display has no graphics card
    set("SDL_FRAMEBUFFER_ACCELERATION", chosen.loud ? "" : "0");
    set("LD_PRELOAD", chosen.preload);
    set("LD_LIBRARY_PATH", chosen.library_path);
    running = process_start({"./tavimo"}, (folder / "said.txt").c_str(), folder / "bin");
    set("LD_PRELOAD", "");
    set("LD_LIBRARY_PATH", "");
    eyes_set_alarm(ended_early);
    hands_begin();
}

void game_expect_exit() {
    int status = 0;
    for (double waited = 0; waitpid(running, &status, WNOHANG) == 0;) {
        std::this_thread::sleep_for(POLL);
        waited += std::chrono::duration<double>(POLL).count();
        if (waited > END_PATIENCE) {
            eyes_look();
            robot_give_up("the program ends");
        }
    }
    running = -1;
    robot_expect(WIFEXITED(status) && WEXITSTATUS(status) == 0,
                 "the program ends with exit status 0, not " + describe(status));
}

void game_signal(int number) {
    kill(running, number);
}

std::string game_data_file(const std::string &name) {
    return file_bytes(folder / "data" / name);
}

std::string game_log() {
    return file_bytes(folder / "bin" / "errorlog.log");
}
