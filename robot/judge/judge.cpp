// judge.cpp: what must hold at each moment of the play.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "judge.h"
#include "ears.h"
#include "numbers.h"
#include "player/dialogs.h"
#include "player/eyes.h"
#include "player/game.h"
#include "player/letters.h"
#include "player/library.h"
#include "player/moments.h"
#include "player/pieces.h"
#include "player/robot.h"
#include "player/title.h"
#include "records.h"
#include "resources/archive_format.h"
#include "screens/study_text.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

using steady = std::chrono::steady_clock;

static constexpr point MARK_AT = {22, 135}, NAME_AT = {15, 582};
static constexpr int MASTERS_Y = 60, LINE_STEP = 20;
static constexpr std::array LOG_HEADS = {"1st Place", "2nd Place", "3rd Place", "Master Time"};
static constexpr double ROUNDING = 1.5; // seconds: the game shows whole ones
static constexpr int SECONDS_A_MINUTE = 60, DATE_TOLERANCE = 90;

// How long a run took, as far as can be said from outside, seconds.
struct run_span {
    double least, most;
};

// Of the run that is played; the game's clock begins between its first move and the first piece held, and ends when the
// last one is dropped.
static steady::time_point first_move, first_held, last_taken;
static bool any_held;
static std::optional<run_span> completed; // and not yet seen in the score log

static std::vector<colour565> before_answer; // what was seen

static double seconds_between(steady::time_point from, steady::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

// --- Title and study screen ------------------------------------------------------------------------------------

static void check_title() {
    const picture &mark = library_picture(TITLE_SET, TITLE_MASTER_MARK);
    for (int type = 0; type < PUZZLE_COUNT; ++type) {
        const bool mastered = records_mastered(type);
        const point at = MARK_AT + point{0, ROW_HEIGHT * puzzle_list_row(type)};
        eyes_until(std::string(mastered ? "a" : "no") + " master's mark beside " + puzzle_title(type),
                   [&] { return eyes_see(mark, at) == mastered; });
    }
    letters_until(player_name(), NAME_AT, YELLOW);
}

// Breaks at the last space before the width is exceeded.
static std::string wrapped(std::string text, int width) {
    std::size_t line = 0, space = std::string::npos;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ' ')
            space = i;
        const bool full = letters_width(text.substr(line, i + 1 - line)) > width;
        if (full && space != std::string::npos)
            text[space] = '\n';
        else if (text[i] != '\n')
            continue;
        line = (text[i] == '\n' ? i : space) + 1;
        space = std::string::npos;
    }
    return text;
}

static void check_study(const puzzle_kind &kind) {
    const std::string text = library_bytes(std::string(TEXT_FOLDER) + STUDY_TEXTS[kind.type]);
    letters_until_centred(wrapped(text, STUDY_TEXT_WIDTH), STUDY_TEXT_Y, NAVY);
    records_study_seen();
}

// --- Play ------------------------------------------------------------------------------------------------------

static void start_run(const puzzle_kind &kind) {
    records_run_started(kind.type);
    first_move = steady::now();
    any_held = false;
}

static void note_held() {
    if (!any_held)
        first_held = steady::now();
    any_held = true;
}

static void begin_wrong_answer() {
    ears_note("incorrect_number");
    before_answer = eyes_copy(WHOLE_SCREEN);
}

static void check_wrong_answer() {
    robot_expect(eyes_copy(WHOLE_SCREEN) == before_answer, "a wrong answer leaves everything as it was");
}

static void check_placed() {
    eyes_until("every piece but the last with its label in its cell", [] { return pieces_faces_missing() == 1; });
}

// --- Completion and score log ----------------------------------------------------------------------------------

static void check_completion(const puzzle_kind &kind) {
    completed = {seconds_between(first_held, last_taken), seconds_between(first_move, steady::now())};
    const bool master = completed->most < records_master_time(kind.type);
    robot_expect(completion_praised() == master,
                 std::string("a master's time is ") + (master ? "" : "not ") + "praised");
}

static std::string clock_text(int seconds) {
    char text[16];
    std::snprintf(text, sizeof text, "%i:%.2i", seconds / SECONDS_A_MINUTE, seconds % SECONDS_A_MINUTE);
    return text;
}

static std::string date_text(std::time_t when) {
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", std::localtime(&when));
    return text;
}

// The run's row shows a time that it can have taken, and the minute of now or the one before.
static void note_run(const puzzle_kind &kind, const run_span &played) {
    run_record run = {.date = "", .seconds = -1, .name = player_name()};
    for (int seconds = static_cast<int>(std::ceil(played.least - ROUNDING)); seconds < played.most + ROUNDING;
         ++seconds)
        if (seconds >= 0 && letters_seen(clock_text(seconds), {LOG_TIME_X, LOG_Y}, WHITE))
            run.seconds = seconds;
    robot_expect(run.seconds >= 0, "the score log shows " + std::to_string(played.least) + " to " +
                                       std::to_string(played.most) + " seconds");
    for (const int ago : {0, SECONDS_A_MINUTE, DATE_TOLERANCE})
        if (const std::string date = date_text(std::time(nullptr) - ago);
            letters_seen(date, {LOG_HEADING_X, LOG_Y}, GREY))
            run.date = date;
    robot_expect(!run.date.empty(), "the score log shows the time of now");
    records_run(kind.type, run);
    robot_say("has completed it in " + std::to_string(run.seconds) + " s");
}

static void check_score_log(const puzzle_kind &kind) {
    if (completed)
        note_run(kind, *completed);
    completed.reset();
    int y = MASTERS_Y;
    for (const char *head : LOG_HEADS) {
        letters_until(head, {LOG_HEADING_X, y}, GREY);
        y += LINE_STEP;
    }
    y = MASTERS_Y;
    for (const place_record &place : records_masters(kind.type)) {
        letters_until(place.name, {LOG_NAME_X, y}, ORANGE);
        letters_until(clock_text(place.seconds), {LOG_TIME_X, y}, WHITE);
        y += LINE_STEP;
    }
    letters_until(clock_text(records_master_time(kind.type)), {LOG_TIME_X, y}, WHITE);
    y = LOG_Y;
    for (const run_record &run : records_log(kind.type)) {
        letters_until(run.date, {LOG_HEADING_X, y}, GREY);
        letters_until(run.name, {LOG_NAME_X, y}, ORANGE);
        letters_until(clock_text(run.seconds), {LOG_TIME_X, y}, WHITE);
        y += LINE_STEP;
    }
}

// --- Listening -------------------------------------------------------------------------------------------------

static void judge(moment what, const puzzle_kind *kind) {
    // clang-format off
    switch (what) {
    case moment::TITLE: check_title(); break;
    case moment::SELECTED: numbers_check_labels(*kind); break;
    case moment::STUDY: check_study(*kind); break;
    case moment::FIRST_MOVE: start_run(*kind); break;
    case moment::COMPLETED: check_completion(*kind); break;
    case moment::SCORE_LOG: check_score_log(*kind); break;
    case moment::TAKE: last_taken = steady::now(); break;
    case moment::HELD: note_held(); break;
    case moment::CLICK: ears_note("click"); break;
    case moment::SELECT: ears_note("board_slide"); break;
    case moment::PLACE: ears_note(PLACEMENT); break;
    case moment::ANSWER: ears_note("piece_emerge"); break;
    case moment::ANSWER_WRONGLY: begin_wrong_answer(); break;
    case moment::WRONG_ANSWER_GONE: check_wrong_answer(); break;
    case moment::LAST_LEFT: check_placed(); break;
    case moment::LAST_PIECE: ears_note("puzzle_complete"); break;
    default: break;
    }
    // clang-format on
}

void judge_begin() {
    moments_listen(judge);
}

void judge_check_files() {
    robot_expect(game_file("data/scores") == records_scores_file(), "data/scores holds what was played");
    robot_expect(game_file("data/prefs") == records_prefs_file(), "data/prefs holds the player's name");
    std::istringstream lines(game_file("bin/errorlog.log"));
    for (std::string line; std::getline(lines, line);)
        for (const char *bad : {"rror", "arning", "ut of memory", "ould not"})
            robot_expect(line.find(bad) == std::string::npos,
                         "the error log has no complaint such as \"" + line + "\"");
}
