// main.cpp: tavimo-robot: plays the real program on a virtual display, by looking at it.
//
// usage: tavimo-robot --program PATH [--road short|long|signal|tour] [--puzzle N]... [--pictures DIR] [--failure PNG]
//                     [--audio] [--sdl2 FOLDER] [--depth32 LIBRARY] [--visitors]
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "album.h"
#include "display.h"
#include "ears.h"
#include "eyes.h"
#include "game.h"
#include "hands.h"
#include "library.h"
#include "puzzle_kinds.h"
#include "roads.h"
#include "robot.h"

#include <getopt.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

static constexpr const char *USAGE =
    "usage: tavimo-robot --program PATH [--road short|long|signal|tour] [--puzzle N]... [--pictures DIR]\n"
    "                    [--failure PNG] [--audio] [--sdl2 FOLDER] [--depth32 LIBRARY] [--visitors]\n"
    "  --program   the game, with its archive in ../data beside it\n"
    "  --road      short: two puzzles; long: all eleven; signal: ended by SIGTERM; tour: all screens, with an index "
    "page\n"
    "  --puzzle    one puzzle of the long road by its number, several times for more; default: all\n"
    "  --pictures  folder for numbered pictures of the screens\n"
    "  --failure   where the screenshot goes when something expected is not seen\n"
    "  --audio     records the sound and checks it\n"
    "  --sdl2      folder of the SDL 1.2 library that stands on SDL 2; plays in full screen, scaled\n"
    "  --depth32   library that refuses 16-bit modes\n"
    "  --visitors  plays on the visitor's own display, at a pace to be watched, and aloud\n";

static constexpr double WATCH_SECONDS = 2; // for each picture of a tour that somebody watches
static constexpr int SCALE = 2;            // of the larger display

struct options {
    game_options game;
    display_options display;
    std::vector<int> puzzles;
    std::string road = "short", pictures, failure = "robot-failure.png";
};

[[noreturn]] static void refuse() {
    std::fputs(USAGE, stderr);
    std::exit(EXIT_FAILURE);
}

static options parse(int count, char **words) {
    static const option KNOWN[] = {
        {"program", required_argument, nullptr, 'p'}, {"road", required_argument, nullptr, 'r'},
        {"puzzle", required_argument, nullptr, 'z'},  {"pictures", required_argument, nullptr, 'i'},
        {"failure", required_argument, nullptr, 'f'}, {"audio", no_argument, nullptr, 'a'},
        {"sdl2", required_argument, nullptr, 's'},    {"depth32", required_argument, nullptr, 'd'},
        {"visitors", no_argument, nullptr, 'v'},      {nullptr, 0, nullptr, 0}};
    options chosen;
    // clang-format off
    for (int c = 0; (c = getopt_long(count, words, "", KNOWN, nullptr)) != -1;) {
        switch (c) {
        case 'p': chosen.game.program = optarg; break;
        case 'r': chosen.road = optarg; break;
        case 'z': chosen.puzzles.push_back(std::atoi(optarg)); break;
        case 'i': chosen.pictures = optarg; break;
        case 'f': chosen.failure = optarg; break;
        case 'a': chosen.game.record_sound = true; break;
        case 'd': chosen.game.preload = std::filesystem::absolute(optarg); break;
        case 's':
            chosen.game.library_path = optarg;
            chosen.display = {.width = SCALE * WINDOW_WIDTH, .height = SCALE * WINDOW_HEIGHT, .window_manager = true};
            hands_push();
            break;
        case 'v':
            chosen.display.visitors = chosen.game.loud = true;
            hands_glide();
            break;
        default: refuse();
        }
    }
    // clang-format on
    if (chosen.puzzles.empty())
        for (int type = 0; type < PUZZLE_COUNT; ++type)
            chosen.puzzles.push_back(type);
    if (chosen.game.program.empty())
        refuse();
    return chosen;
}

static void tour(double watch_seconds) {
    album_guide(watch_seconds);
    road_tour();
    album_write_index();
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
        album_open(chosen.pictures);
    if (chosen.road == "short")
        road_short();
    else if (chosen.road == "long")
        road_long(chosen.puzzles);
    else if (chosen.road == "signal")
        road_signal();
    else if (chosen.road == "tour" && !chosen.pictures.empty())
        tour(chosen.display.visitors ? WATCH_SECONDS : 0);
    else
        refuse();
    if (chosen.game.record_sound)
        ears_check();
    robot_say("is done: all was seen as expected");
    robot_clean_up();
    return EXIT_SUCCESS;
}
