// main.cpp: tavimo-robot: plays the real program on a virtual display, by looking at it, and judges it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "ears.h"
#include "judge.h"
#include "player/dialogs.h"
#include "player/display.h"
#include "player/eyes.h"
#include "player/game.h"
#include "player/hands.h"
#include "player/process.h"
#include "player/robot.h"
#include "player/title.h"
#include "player/visit.h"

#include <getopt.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <numeric>
#include <string>
#include <vector>

static constexpr const char *USAGE =
    "usage: tavimo-robot --program PATH [--road short|long|signal] [--puzzle N]... [--failure PNG]\n"
    "                    [--audio] [--sdl2 FOLDER] [--depth32 LIBRARY] [--vnc]\n"
    "  --program   the game, with its archive in ../data beside it\n"
    "  --road      short: two puzzles; long: all eleven; signal: ended by SIGTERM\n"
    "  --puzzle    one puzzle of the long road by its number, several times for more; default: all\n"
    "  --failure   where the screenshot goes when something expected is not seen\n"
    "  --audio     records the sound and checks it\n"
    "  --sdl2      folder of the SDL 1.2 library that stands on SDL 2; plays in full screen, scaled\n"
    "  --depth32   library that refuses 16-bit modes\n"
    "  --vnc       on the display of a VNC server, which must be installed\n";

static constexpr int FIRST = 0, SECOND = 2; // the counting puzzles
static constexpr int SCALE = 2;             // of the larger display
static constexpr side_button SCORES = {TITLE_SET, TITLE_SCORES_BUTTON, 5}, NAME = {TITLE_SET, TITLE_NAME_BUTTON, 4};

struct judge_options {
    game_options game;
    std::vector<int> puzzles;
    std::string road = "short", sdl2, depth32;
    bool audio = false, vnc = false;
};

// --- Roads: whole visits, from the program's start to its end --------------------------------------------------

static pid_t enter(const judge_options &chosen) {
    if (chosen.audio)
        ears_record();
    const pid_t program = game_start();
    splash_leave();
    return program;
}

static void leave() {
    title_exit();
    splash_finish();
    judge_check_files();
    robot_say("has left; scores, prefs and log are right");
}

// What was played is there again after the next start.
static void look_again(const judge_options &chosen, const std::vector<int> &played) {
    enter(chosen);
    for (const int type : played) {
        moments_about(&puzzle_kind_of(type));
        title_select(puzzle_kind_of(type));
        ears_note("score_log");
        column_click(SCORES);
        score_log_watch();
        moments_about(nullptr);
    }
    leave();
}

// Both counting puzzles and every screen.
static void short_road(const judge_options &chosen) {
    enter(chosen);
    title_help();
    title_credits();
    visit(puzzle_kind_of(FIRST));
    visit(puzzle_kind_of(SECOND), {.play = false});
    visit(puzzle_kind_of(SECOND), {.wander = false});
    leave();
    look_again(chosen, {FIRST, SECOND});
}

// All puzzles, or some, with all detours.
static void long_road(const judge_options &chosen) {
    enter(chosen);
    title_help();
    title_credits();
    column_click(NAME);
    dialog_name();
    title_await();
    for (const int type : chosen.puzzles)
        visit(puzzle_kind_of(type));
    leave();
    look_again(chosen, chosen.puzzles);
}

// A run, then SIGTERM; the second start knows the run.
static void signal_road(const judge_options &chosen) {
    const pid_t program = enter(chosen);
    visit(puzzle_kind_of(FIRST), {.wander = false});
    kill(program, SIGTERM);
    game_expect_exit();
    judge_check_files();
    look_again(chosen, {FIRST});
}

static const std::map<std::string, std::function<void(const judge_options &)>> ROADS = {
    {"short", short_road}, {"long", long_road}, {"signal", signal_road}};

// --- Options and set-ups ---------------------------------------------------------------------------------------

static judge_options parse(int count, char **words) {
    static const option KNOWN[] = {{"program", required_argument, nullptr, 'p'},
                                   {"road", required_argument, nullptr, 'r'},
                                   {"puzzle", required_argument, nullptr, 'z'},
                                   {"failure", required_argument, nullptr, 'f'},
                                   {"audio", no_argument, nullptr, 'a'},
                                   {"sdl2", required_argument, nullptr, 's'},
                                   {"depth32", required_argument, nullptr, 'd'},
                                   {"vnc", no_argument, nullptr, 'v'},
                                   {nullptr, 0, nullptr, 0}};
    judge_options chosen;
    bool known = true;
    // clang-format off
    for (int c = 0; (c = getopt_long(count, words, "", KNOWN, nullptr)) != -1;) {
        switch (c) {
        case 'p': chosen.game.program = optarg; break;
        case 'r': chosen.road = optarg; break;
        case 'z': chosen.puzzles.push_back(std::atoi(optarg)); break;
        case 'f': chosen.game.failure = optarg; break;
        case 'a': chosen.audio = true; break;
        case 's': chosen.sdl2 = optarg; break;
        case 'd': chosen.depth32 = std::filesystem::absolute(optarg); break;
        case 'v': chosen.vnc = true; break;
        default: known = false;
        }
    }
    // clang-format on
    if (chosen.puzzles.empty()) {
        chosen.puzzles.resize(PUZZLE_COUNT);
        std::iota(chosen.puzzles.begin(), chosen.puzzles.end(), 0);
    }
    if (!known || chosen.game.program.empty() || !ROADS.contains(chosen.road)) {
        std::fputs(USAGE, stderr);
        std::exit(EXIT_FAILURE);
    }
    return chosen;
}

// Its command runs when it is ready.
static void start_window_manager() {
    const std::filesystem::path ready = game_folder() / "ready";
    const pid_t manager = process_start({"openbox", "--startup", "touch " + ready.string()});
    robot_at_end([manager](bool) { process_stop(manager); });
    eyes_until("the window manager's work", [&] { return std::filesystem::exists(ready); });
}

int main(int count, char **words) {
    const judge_options chosen = parse(count, words);
    const bool desktop = chosen.vnc || !chosen.sdl2.empty();
    const int scale = desktop ? SCALE : 1;
    display_start(scale * SCREEN_WIDTH, scale * SCREEN_HEIGHT, chosen.vnc);
    game_prepare(chosen.game);
    if (!chosen.depth32.empty())
        setenv("LD_PRELOAD", chosen.depth32.c_str(), 1);
    if (desktop)
        start_window_manager();
    if (!chosen.sdl2.empty())
        setenv("LD_LIBRARY_PATH", chosen.sdl2.c_str(), 1);
    judge_begin();
    ROADS.at(chosen.road)(chosen);
    if (chosen.audio)
        ears_check();
    robot_say("is done: all was seen as expected");
    robot_finish();
    return EXIT_SUCCESS;
}
