// screens.cpp: splash and title screen, help bubbles.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens.h"
#include "album.h"
#include "ears.h"
#include "eyes.h"
#include "game.h"
#include "hands.h"
#include "letters.h"
#include "library.h"
#include "records.h"
#include "robot.h"
#include "screens_parts.h"

#include <array>
#include <string>
#include <vector>

// Pictures of the title screen, by their numbers in its series.
enum title_picture { ROWS = 2, PUZZLES = 13, NAME_SIZE = 27, HEADING = 42, MARK = 47, SUB_HEADING = 55 };
// Buttons of the title screen: number of the normal picture.
enum title_button { SCORES = 26, NAME = 27, HELP = 28, EXIT = 29, CREDITS = 44, STUDY = 56 };

static constexpr int ROW_HEIGHT = 35, ROW_TOP = 130, ROW_X = 30, ROW_TEXT_X = 70, ROW_TEXT_Y = 148;
static constexpr point MARK_AT = {22, 135}, HEADING_AT = {30, 14}, NAME_AT = {15, 582};
static constexpr int PICTURE_X = 400, PICTURE_MIDDLE = 192, PICTURE_TITLE = 10;
static constexpr point SPLASH_BUTTON = {659, 480};
static constexpr std::array HELP_DARK = {203, 187};
static constexpr int HIGHLIGHT_FIRST = 180, HIGHLIGHT_LAST = 250, HIGHLIGHT_BLUE = 64;

// The bubbles are deaf for their first frames. A text starts white and pulses: when it is dark they listen.
static bool help_seen_dark(const std::string &text, point at) {
    for (const int grey : HELP_DARK)
        if (letters_seen(text, at.x, at.y, {grey, grey, grey}))
            return true;
    return false;
}

void help_until_closed(const std::string &first_text, point at, int most_clicks, point click_at, const char *shot) {
    const auto showing = [&] { return letters_seen_pulsing(first_text, at.x, at.y); };
    hands_move(AWAY.x, AWAY.y);
    eyes_until("the help \"" + first_text + "\"", showing);
    eyes_until("the help's text getting darker", [&] { return help_seen_dark(first_text, at); });
    for (int click = 1; click <= most_clicks; ++click) {
        if (click == most_clicks)
            album_snap(shot);
        hands_click(click_at.x, click_at.y);
        hands_move(AWAY.x, AWAY.y);
        eyes_look();
        if (!showing())
            break;
    }
    eyes_until_not("the help \"" + first_text + "\"", showing);
}

void click_button(const picture &normal, int x, int y) {
    ears_note("click");
    hands_click(x + normal.width / 2, y + normal.height / 2);
}

void until_button_and_click(const picture &normal, int x, int y) {
    hands_move(AWAY.x, AWAY.y); // a button under the mouse looks different
    eyes_until_seen(normal, x, y);
    click_button(normal, x, y);
}

// --- Splash ----------------------------------------------------------------------------------------------------

static const picture &title_picture_of(int number) {
    return library_picture("title/", number);
}

static bool row_title_seen(int type, rgb8 color) {
    return letters_seen(puzzle_kind_of(type).title, ROW_TEXT_X, ROW_TEXT_Y + ROW_HEIGHT * puzzle_list_row(type), color);
}

// The row's picture as far as its text and a master's mark leave it free.
static bool row_seen(int type) {
    const picture &row = title_picture_of(ROWS + type);
    const int mark_end = MARK_AT.x + title_picture_of(MARK).width - ROW_X;
    const picture left = picture_inset(row, mark_end, 0, row.width - (ROW_TEXT_X - ROW_X - 1), 0);
    return eyes_see(left, ROW_X, ROW_TOP + ROW_HEIGHT * puzzle_list_row(type));
}

static void until_splash(int button_number, const char *shot) {
    eyes_find_window(title_picture_of(HEADING), HEADING_AT.x, HEADING_AT.y);
    for (int type = 0; type < PUZZLE_COUNT; ++type)
        eyes_until(std::string("the row of ") + puzzle_kind_of(type).title + " on the splash screen",
                   [&] { return row_seen(type) && row_title_seen(type, LIGHT_GREY); });
    eyes_until_seen(library_picture("splash/", button_number), SPLASH_BUTTON.x, SPLASH_BUTTON.y);
    album_snap(shot);
}

void splash_leave() {
    static constexpr int CONTINUE = 7;
    until_splash(CONTINUE, "splash");
    click_button(library_picture("splash/", CONTINUE), SPLASH_BUTTON.x, SPLASH_BUTTON.y);
    title_check();
}

void splash_finish() {
    static constexpr int QUIT = 11;
    until_splash(QUIT, "closing");
    const picture &quit = library_picture("splash/", QUIT);
    hands_press_last(SPLASH_BUTTON.x + quit.width / 2, SPLASH_BUTTON.y + quit.height / 2);
    game_expect_exit();
}

// --- Title screen ----------------------------------------------------------------------------------------------

// Column of buttons at the right; `rise` is counted from the lowest, which is 1.
static point column_place(int rise) {
    const picture &size = title_picture_of(NAME_SIZE);
    return {795 - size.width, 595 - 5 * (rise - 1) - size.height * rise};
}

static void click_column(title_button button, int rise) {
    const point at = column_place(rise);
    until_button_and_click(title_picture_of(button), at.x, at.y);
}

static bool title_row_seen(int type) {
    if (!row_seen(type))
        return false;
    if (row_title_seen(type, LIGHT_GREY))
        return true;
    for (int bright = HIGHLIGHT_FIRST; bright <= HIGHLIGHT_LAST; ++bright)
        if (row_title_seen(type, {bright, bright, HIGHLIGHT_BLUE}))
            return true;
    return false;
}

static bool mark_seen(int type) {
    return eyes_see(title_picture_of(MARK), MARK_AT.x, MARK_AT.y + ROW_HEIGHT * puzzle_list_row(type));
}

static void check_marks() {
    for (int type = 0; type < PUZZLE_COUNT; ++type) {
        const bool mastered = records_mastered(type);
        eyes_until(std::string(mastered ? "a" : "no") + " master's mark beside " + puzzle_kind_of(type).title,
                   [&] { return mark_seen(type) == mastered; });
    }
}

void title_check() {
    hands_move(AWAY.x, AWAY.y);
    eyes_until_seen(title_picture_of(HEADING), HEADING_AT.x, HEADING_AT.y);
    eyes_until_seen(title_picture_of(EXIT), column_place(1).x, column_place(1).y);
    for (int type = 0; type < PUZZLE_COUNT; ++type)
        eyes_until(std::string("the row of ") + puzzle_kind_of(type).title, [&] { return title_row_seen(type); });
    check_marks();
    if (!records_name().empty())
        letters_until(records_name(), NAME_AT.x, NAME_AT.y, YELLOW);
    album_snap("title");
}

void title_help() {
    click_column(HELP, 2);
    static constexpr point A_ROW = {120, ROW_TOP + 9 * ROW_HEIGHT + ROW_HEIGHT / 2}, CHOOSE_AT = {450, 200};
    help_until_closed("Click to select a puzzle.", {210, 115}, 2, A_ROW, "title-help");
    letters_until("Choose a puzzle", CHOOSE_AT.x, CHOOSE_AT.y, LIGHT_GREY);
}

void title_select(const puzzle_kind &kind) {
    const picture &p = title_picture_of(PUZZLES + kind.type);
    const int y = PICTURE_MIDDLE - (p.height >> 1);
    eyes_look();
    if (!eyes_see(p, PICTURE_X, y)) // else it has been selected before
        ears_note("board_slide");
    hands_click(ROW_X + 90, ROW_TOP + ROW_HEIGHT * puzzle_list_row(kind.type) + ROW_HEIGHT / 2);
    eyes_until_seen(p, PICTURE_X, y);
    letters_until(kind.title, PICTURE_X + (p.width >> 1) - (letters_width(kind.title) >> 1), y - PICTURE_TITLE,
                  LIGHT_GREY);
    album_snap("title-selected");
}

void title_study() {
    click_column(STUDY, 6);
}

void title_scores(const puzzle_kind &kind) {
    ears_note("score_log");
    click_column(SCORES, 5);
    hurry_score_log();
    score_log_check(kind);
    title_check();
}

void title_name(const std::string &name) {
    click_column(NAME, 4);
    dialog_name(name);
    title_check();
}

void title_credits() {
    static constexpr point TOP = {0, 100}, VERSION = {0, 194};
    click_column(CREDITS, 3);
    const picture &heading = title_picture_of(HEADING);
    const int middle = (WINDOW_WIDTH - heading.width) >> 1;
    eyes_until_seen(heading, middle, TOP.y);
    const std::string version = "Version ";
    eyes_until("the version line on the credits screen", [&] {
        for (int x = 0; x < WINDOW_WIDTH; ++x)
            if (letters_seen(version, x, VERSION.y, LIGHT_GREY))
                return true;
        return false;
    });
    album_snap("credits");
    hands_click(AWAY.x, AWAY.y);
    title_check();
}

void title_exit() {
    click_column(EXIT, 1);
    dialog_answer("Exit program?", false, "exit");
    title_check();
    hands_key(XK_Escape);
    dialog_answer("Exit program?", true, "exit");
}
