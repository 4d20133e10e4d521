// main.cpp: tavimo-tour: a robot plays the game by looking at the display, and makes an album of what it sees.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "album.h"
#include "player/display.h"
#include "player/game.h"
#include "player/hands.h"
#include "player/robot.h"
#include "player/title.h"
#include "player/visit.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

static constexpr const char *USAGE =
    "usage: tavimo-tour --program PATH --pictures FOLDER [--failure PNG] [--visitors]\n"
    "  --program   the game, with its archive in ../data beside it\n"
    "  --pictures  where numbered pictures of all screens go, and index.html\n"
    "  --failure   where the screenshot goes when something expected is not seen\n"
    "  --visitors  plays on the visitor's own display, at a pace to be watched, and aloud; else on a virtual one\n";

static constexpr double WATCH_SECONDS = 2;          // for each picture that somebody watches
static constexpr std::array PLAYED = {0, 10, 9, 1}; // a puzzle of each kind; the others are studied only

struct tour_options {
    game_options game;
    std::string pictures;
};

static tour_options parse(int count, char **words) {
    static const option KNOWN[] = {{"program", required_argument, nullptr, 'p'},
                                   {"pictures", required_argument, nullptr, 'i'},
                                   {"failure", required_argument, nullptr, 'f'},
                                   {"visitors", no_argument, nullptr, 'v'},
                                   {nullptr, 0, nullptr, 0}};
    tour_options chosen;
    bool known = true;
    // clang-format off
    for (int c = 0; (c = getopt_long(count, words, "", KNOWN, nullptr)) != -1;) {
        switch (c) {
        case 'p': chosen.game.program = optarg; break;
        case 'i': chosen.pictures = optarg; break;
        case 'f': chosen.game.failure = optarg; break;
        case 'v': chosen.game.visitors = true; break;
        default: known = false;
        }
    }
    // clang-format on
    if (!known || chosen.game.program.empty() || chosen.pictures.empty()) {
        std::fputs(USAGE, stderr);
        std::exit(EXIT_FAILURE);
    }
    return chosen;
}

// Every screen, and every puzzle's study.
static void take_tour() {
    game_start();
    splash_leave();
    title_help();
    title_credits();
    for (int row = 0; row < PUZZLE_COUNT; ++row) {
        const puzzle_kind &kind = puzzle_kind_in_row(row);
        visit(kind, {.play = std::find(PLAYED.begin(), PLAYED.end(), kind.type) != PLAYED.end()});
    }
    title_exit();
    splash_finish();
}

int main(int count, char **words) {
    const tour_options chosen = parse(count, words);
    const bool watched = chosen.game.visitors;
    if (watched) {
        display_open();
        hands_glide();
    } else {
        display_start(SCREEN_WIDTH, SCREEN_HEIGHT);
    }
    game_prepare(chosen.game);
    album_open(chosen.pictures, watched ? WATCH_SECONDS : 0);
    take_tour();
    album_write_index();
    robot_say("has left: the tour is complete");
    robot_finish();
    return EXIT_SUCCESS;
}
