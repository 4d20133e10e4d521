// dialogs.cpp: the dialogs and the score log.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "album.h"
#include "ears.h"
#include "eyes.h"
#include "hands.h"
#include "letters.h"
#include "library.h"
#include "records.h"
#include "robot.h"
#include "screens.h"
#include "screens_parts.h"

#include <cmath>
#include <cstdio>
#include <ctime>

static constexpr int TITLE_Y = 276, FIRST_LINE_Y = 310, SECOND_LINE_Y = 330, ANSWER_Y = 290, NAME_OK_Y = 330;
static constexpr int COMPLETION_OK_Y = 355, PLAIN_COMPLETION_OK_Y = 340, ANSWER_GAP = 10;
enum dialog_picture { YES = 1, NO = 4, OK = 7 };

static constexpr int HEADING_X = 375, NAME_X = 520, TIME_X = 745;
static constexpr int HEADING_Y = 30, MASTERS_Y = 60, LOG_Y = 175, LINE_STEP = 20;
static constexpr double ROUNDING = 1.5; // seconds: the game shows whole ones
static constexpr int SECONDS_A_MINUTE = 60, DATE_TOLERANCE = 90;

static void until_title(const std::string &title) {
    letters_until(title, letters_center(title), TITLE_Y, WHITE);
}

void dialog_answer(const std::string &question, bool yes, const char *shot) {
    until_title(question);
    hands_move(AWAY.x, AWAY.y);
    const picture &first = library_picture("dialog/", YES), &second = library_picture("dialog/", NO);
    const int x = (WINDOW_WIDTH - 2 * first.width - ANSWER_GAP) >> 1;
    eyes_until_seen(first, x, ANSWER_Y);
    eyes_until_seen(second, x + first.width + ANSWER_GAP, ANSWER_Y);
    album_snap(shot);
    if (yes)
        hands_key(XK_y);
    else
        click_button(second, x + first.width + ANSWER_GAP, ANSWER_Y);
}

static int ok_x() {
    return (WINDOW_WIDTH - library_picture("dialog/", YES).width) >> 1;
}

void dialog_name(const std::string &name) {
    until_title("Enter your name");
    hands_move(AWAY.x, AWAY.y);
    eyes_until_seen(library_picture("dialog/", OK), ok_x(), NAME_OK_Y);
    if (!name.empty()) {
        hands_type(name);
        records_set_name(name);
    }
    letters_until(records_name(), letters_center(records_name()), FIRST_LINE_Y, YELLOW);
    album_snap("name");
    click_button(library_picture("dialog/", OK), ok_x(), NAME_OK_Y);
}

void return_dialog_stay() {
    dialog_answer("Return to the title screen?", false, "question");
}

void completion_await() {
    until_title("Congratulations");
}

void completion_confirm(const puzzle_kind &kind, const run_span &played) {
    hands_move(AWAY.x, AWAY.y);
    const std::string message = std::string("You have completed the ") + kind.title + " puzzle.";
    letters_until(message, letters_center(message), FIRST_LINE_Y, YELLOW);
    const std::string praise = "You have achieved a Master's score!";
    const bool master = played.most < kind.master_seconds[PLACES];
    eyes_until(std::string("the line \"") + praise + "\" " + (master ? "below" : "missing"),
               [&] { return letters_seen(praise, letters_center(praise), SECOND_LINE_Y, YELLOW) == master; });
    album_snap("completed");
    until_button_and_click(library_picture("dialog/", OK), ok_x(), master ? COMPLETION_OK_Y : PLAIN_COMPLETION_OK_Y);
}

static std::string clock_text(int seconds) {
    char text[16];
    std::snprintf(text, sizeof text, "%i:%.2i", seconds / SECONDS_A_MINUTE, seconds % SECONDS_A_MINUTE);
    return text;
}

static void check_masters(const puzzle_kind &kind) {
    static constexpr const char *HEADS[] = {"1st Place", "2nd Place", "3rd Place", "Master Time"};
    letters_until("Score Log", HEADING_X, HEADING_Y, GREY);
    int y = MASTERS_Y;
    for (const char *head : HEADS) {
        letters_until(head, HEADING_X, y, GREY);
        y += LINE_STEP;
    }
    y = MASTERS_Y;
    for (const place_record &place : records_masters(kind.type)) {
        letters_until(place.name, NAME_X, y, ORANGE);
        letters_until(clock_text(place.seconds), TIME_X, y, WHITE);
        y += LINE_STEP;
    }
    letters_until(clock_text(kind.master_seconds[PLACES]), TIME_X, y, WHITE);
}

static void check_log(const puzzle_kind &kind) {
    int y = LOG_Y;
    for (const run_record &run : records_log(kind.type)) {
        letters_until(run.date, HEADING_X, y, GREY);
        letters_until(run.name, NAME_X, y, ORANGE);
        letters_until(clock_text(run.seconds), TIME_X, y, WHITE);
        y += LINE_STEP;
    }
}

static void leave_score_log() {
    hands_click(AWAY.x, AWAY.y); // ends the show, where it has not ended yet
    eyes_look();
    if (letters_seen("Score Log", HEADING_X, HEADING_Y, GREY))
        hands_click(AWAY.x, AWAY.y);
    eyes_until_not("the score log", [] { return letters_seen("Score Log", HEADING_X, HEADING_Y, GREY); });
}

// A click shows all at once what else comes row by row.
void hurry_score_log() {
    letters_until("Score Log", HEADING_X, HEADING_Y, GREY);
    hands_click(AWAY.x, AWAY.y);
}

void score_log_check(const puzzle_kind &kind) {
    check_masters(kind);
    check_log(kind);
    album_snap("score-log");
    leave_score_log();
}

static void check_date(const std::string &date) {
    std::tm when = {};
    robot_expect(std::sscanf(date.c_str(), "%d-%d-%d %d:%d", &when.tm_year, &when.tm_mon, &when.tm_mday, &when.tm_hour,
                             &when.tm_min) == 5,
                 "the score log shows a date, not \"" + date + "\"");
    when.tm_year -= 1900;
    when.tm_mon -= 1;
    when.tm_isdst = -1;
    robot_expect(std::abs(std::difftime(std::time(nullptr), std::mktime(&when))) < DATE_TOLERANCE,
                 "the score log shows the time of now, not " + date);
}

void score_log_record(const puzzle_kind &kind, const run_span &played) {
    static bool watched = false; // the whole show, once
    if (watched)
        hurry_score_log();
    watched = true;
    std::string date, time;
    eyes_until("the run in the score log", [&] {
        date = letters_read(HEADING_X, LOG_Y, GREY);
        time = letters_read(TIME_X, LOG_Y, WHITE);
        return !date.empty() && !time.empty() && letters_read(NAME_X, LOG_Y, ORANGE) == records_name();
    });
    int minutes = 0, seconds = 0;
    robot_expect(std::sscanf(time.c_str(), "%d:%d", &minutes, &seconds) == 2, "a time is shown, not \"" + time + "\"");
    seconds += minutes * SECONDS_A_MINUTE;
    robot_expect(seconds > played.least - ROUNDING && seconds < played.most + ROUNDING,
                 "the score log shows " + std::to_string(played.least) + " to " + std::to_string(played.most) +
                     " seconds, not " + time);
    check_date(date);
    records_run(kind.type, {date, seconds, records_name()});
    score_log_check(kind);
    title_check();
}
