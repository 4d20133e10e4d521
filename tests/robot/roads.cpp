// roads.cpp: whole visits.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "roads.h"
#include "album.h"
#include "game.h"
#include "numbers.h"
#include "play.h"
#include "records.h"
#include "robot.h"
#include "screens.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <sstream>
#include <string>
#include <vector>

static constexpr const char *PLAYER = "Ann Lee";
static constexpr int FIRST = 0, SECOND = 2; // the counting puzzles
static constexpr std::array TOURED = {0, 10, 9, 1};

static void check_files() {
    robot_expect(game_data_file("scores") == records_scores_file(), "data/scores holds what was played");
    robot_expect(game_data_file("prefs") == records_prefs_file(), "data/prefs holds the player's name");
    std::istringstream lines(game_log());
    for (std::string line; std::getline(lines, line);)
        for (const char *bad : {"rror", "arning", "ut of memory", "ould not"})
            robot_expect(line.find(bad) == std::string::npos,
                         "the error log has no complaint such as \"" + line + "\"");
}

struct visit_plan {
    std::string name = ""; // to be typed; empty keeps the one that stands there
    bool wander = true, play = true;
};

// From the title screen to the title screen.
static void visit(const puzzle_kind &kind, const visit_plan &plan) {
    robot_say(std::string("visits ") + kind.title);
    static bool study_help_seen = false; // by this player; nobody is shown it before there is a name
    album_about(&kind);
    if (numbers_known(kind))
        numbers_check_labels(kind);
    title_select(kind);
    title_study();
    study_enter(kind, !records_name().empty() && !study_help_seen);
    study_help_seen = !records_name().empty();
    if (plan.play) {
        if (plan.wander)
            study_explore(kind);
        study_play(plan.name);
        records_run_started(kind.type);
        const run_span played =
            play_puzzle(kind, {.help_expected = records_log(kind.type).empty(), .wander = plan.wander});
        completion_confirm(kind, played);
        score_log_record(kind, played);
        robot_say("has completed it in " + std::to_string(records_log(kind.type)[0].seconds) + " s");
    } else {
        study_back();
    }
    album_about(nullptr);
}

static void leave() {
    title_exit();
    splash_finish();
    check_files();
    robot_say("has left; scores, prefs and log are right");
}

// What was played is there again after the next start.
static void start_again(const std::vector<int> &played) {
    game_start();
    splash_leave();
    for (const int type : played) {
        title_select(puzzle_kind_of(type));
        title_scores(puzzle_kind_of(type));
    }
    leave();
}

void road_short() {
    game_start();
    splash_leave();
    title_help();
    title_credits();
    visit(puzzle_kind_of(FIRST), {.name = PLAYER});
    visit(puzzle_kind_of(SECOND), {.play = false});
    visit(puzzle_kind_of(SECOND), {.wander = false});
    leave();
    start_again({FIRST, SECOND});
}

void road_long(const std::vector<int> &types) {
    game_start();
    splash_leave();
    title_help();
    title_credits();
    title_name(PLAYER);
    for (const int type : types)
        visit(puzzle_kind_of(type), {});
    leave();
    start_again(types);
}

void road_signal() {
    game_start();
    splash_leave();
    visit(puzzle_kind_of(FIRST), {.name = PLAYER, .wander = false});
    game_signal(SIGTERM);
    game_expect_exit();
    check_files();
    start_again({FIRST});
}

// Every screen and every puzzle's study; a puzzle of each style is played.
void road_tour() {
    game_start();
    splash_leave();
    title_help();
    title_credits();
    for (int row = 0; row < PUZZLE_COUNT; ++row) {
        const puzzle_kind &kind = puzzle_kind_in_row(row);
        const bool play = std::find(TOURED.begin(), TOURED.end(), kind.type) != TOURED.end();
        visit(kind, {.name = records_name().empty() ? PLAYER : "", .play = play});
    }
    title_exit();
    splash_finish();
    robot_say("has left");
}
