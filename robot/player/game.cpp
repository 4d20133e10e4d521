// game.cpp: starting, watching, ending.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "game.h"
#include "display.h"
#include "eyes.h"
#include "library.h"
#include "process.h"
#include "robot.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

static fs::path folder;
static pid_t running = -1;

fs::path game_folder() {
    return folder;
}

std::string game_file(const std::string &name) {
    std::ifstream file(folder / name, std::ios::binary);
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

static void end(const std::string &failure, bool failed) {
    if (failed) {
        display_save(failure);
        std::printf("the screen is in %s\nthe program's log:\n%s\nits standard error:\n%s\n", failure.c_str(),
                    game_file("bin/errorlog.log").c_str(), game_file("said.txt").c_str());
    }
    if (running > 0)
        process_stop(running);
    running = -1;
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

// For SDL, also for the SDL 1.2 that stands on SDL 2. Every pixel is to be seen as the game has made it, whatever the
// display's size; a virtual display has no graphics card.
static void choose_devices(bool visitors) {
    setenv("SDL12COMPAT_SCALE_METHOD", "nearest", 1);
    if (visitors)
        return;
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    setenv("SDL_FRAMEBUFFER_ACCELERATION", "0", 1);
}

void game_prepare(const game_options &options) {
    const fs::path program = fs::absolute(options.program);
    const fs::path archive = program.parent_path().parent_path() / "data" / "data.dar";
    library_open(archive);
    std::string pattern = (fs::temp_directory_path() / "tavimo-robot-XXXXXX").string();
    robot_expect(mkdtemp(pattern.data()) != nullptr, "a temporary folder can be made");
    folder = pattern;
    robot_at_end([failure = options.failure](bool failed) { end(failure, failed); });
    fs::create_directories(folder / "bin");
    fs::create_directories(folder / "data");
    fs::create_symlink(program, folder / "bin" / "tavimo");
    fs::create_symlink(archive, folder / "data" / "data.dar");
    choose_devices(options.visitors);
}

pid_t game_start() {
    running = process_start({"./tavimo"}, folder / "said.txt", folder / "bin");
    eyes_set_alarm(ended_early);
    return running;
}

void game_expect_exit() {
    int status = 0;
    eyes_set_alarm({});
    eyes_until("the end of the program", [&] { return waitpid(running, &status, WNOHANG) != 0; });
    running = -1;
    robot_expect(WIFEXITED(status) && WEXITSTATUS(status) == 0,
                 "the program ends with exit status 0, not " + describe(status));
}
