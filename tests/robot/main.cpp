// main.cpp: tavimo-robot: plays the real program on a virtual display, by looking at it.
//
// usage: tavimo-robot --program PATH [--road short|long|signal] [--pictures DIR] [--failure PNG] [--audio]
//                     [--sdl2] [--depth32 LIBRARY]
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "display.h"
#include "ears.h"
#include "eyes.h"
#include "game.h"
#include "library.h"
#include "roads.h"
#include "robot.h"
#include "screens.h"

#include <getopt.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

static constexpr const char *USAGE =
    "usage: tavimo-robot --program PATH [--road short|long|signal] [--pictures DIR] [--failure PNG]\n"
    "                    [--audio] [--sdl2 FOLDER] [--depth32 LIBRARY]\n"
    "  --program   the game, with its archive in ../data beside it\n"
    "  --road      short: two puzzles; long: all eleven; signal: ended by SIGTERM\n"
    "  --pictures  folder for numbered pictures of the screens\n"
    "  --failure   where the screenshot goes when something expected is not seen\n"
    "  --audio     records the sound and checks it\n"
    "  --sdl2      folder of the SDL 1.2 library that stands on SDL 2; plays in full screen, scaled\n"
    "  --depth32   library that refuses 16-bit modes\n";

static const std::map<std::string, void (*)()> ROADS = {
    {"short", road_short}, {"long", road_long}, {"signal", road_signal}};

struct options {
    game_options game;
    display_options display;
    std::string road = "short", pictures, failure = "robot-failure.png";
};

static options parse(int count, char **words) {
    static const option KNOWN[] = {{"program", required_argument, nullptr, 'p'}, {"road", required_argument, nullptr, 'r'},
                                   {"pictures", required_argument, nullptr, 'i'}, {"failure", required_argument, nullptr, 'f'},
                                   {"audio", no_argument, nullptr, 'a'},         {"sdl2", required_argument, nullptr, 's'},
                                   {"depth32", required_argument, nullptr, 'd'}, {nullptr, 0, nullptr, 0}};
    options chosen;
    for (int c = 0; (c = getopt_long(count, words, "", KNOWN, nullptr)) != -1;) {
        switch (c) {
        case 'p': chosen.game.program = optarg; break;
        case 'r': chosen.road = optarg; break;
        case 'i': chosen.pictures = optarg; break;
        case 'f': chosen.failure = optarg; break;
        case 'a': chosen.game.record_sound = true; break;
        case 'd': chosen.game.preload = std::filesystem::absolute(optarg); break;
        case 's':
            chosen.game.library_path = optarg;
            chosen.display = {.width = 2 * WINDOW_WIDTH, .height = 2 * WINDOW_HEIGHT, .window_manager = true};
            break;
        default: chosen.road.clear();
        }
    }
    if (chosen.game.program.empty() || !ROADS.contains(chosen.road)) {
        std::fputs(USAGE, stderr);
        std::exit(EXIT_FAILURE);
    }
    return chosen;
}

int main(int count, char **words) {
    const options chosen = parse(count, words);
    const std::filesystem::path program = std::filesystem::absolute(chosen.game.program);
    library_open(program.parent_path().parent_path() / "data" / "data.dar");
    display_start(chosen.display);
    robot_on_give_up([&] {
        eyes_save(chosen.failure);
        std::printf("the screen is in %s\n", chosen.failure.c_str());
    });
    game_prepare(chosen.game);
    if (!chosen.pictures.empty())
        screens_save_pictures(chosen.pictures);
    ROADS.at(chosen.road)();
    if (chosen.game.record_sound)
        ears_check();
    robot_say("is done: all was seen as expected");
    robot_clean_up();
    return EXIT_SUCCESS;
}
