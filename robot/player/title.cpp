// title.cpp: splash, title screen and credits; buttons and help bubbles.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "title.h"

#include "dialogs.h"
#include "eyes.h"
#include "game.h"
#include "hands.h"
#include "letters.h"
#include "library.h"
#include "screens/column.h"

#include <algorithm>
#include <array>
#include <string>

static constexpr side_button EXIT = {TITLE_SET, TITLE_EXIT_BUTTON, 1}, HELP = {TITLE_SET, TITLE_HELP_BUTTON, 2},
                             CREDITS = {TITLE_SET, TITLE_CREDITS_BUTTON, 3}, STUDY = {TITLE_SET, TITLE_STUDY_BUTTON, 6};

static constexpr int ROW_TEXT_X = 70, ROW_TEXT_Y = 148, MARK_X = 22;
static constexpr point HEADING_AT = {30, 14}, SPLASH_BUTTON = {659, 480};
static constexpr int PICTURE_X = 400, PICTURE_MIDDLE = 192, PICTURE_TITLE = 10;
static constexpr int CREDITS_TOP = 100, VERSION_Y = 194;
static constexpr std::array HELP_DARK = {203, 187};
static constexpr int HIGHLIGHT_FIRST = 180, HIGHLIGHT_LAST = 250, HIGHLIGHT_BLUE = 64;

// --- Buttons and help bubbles ----------------------------------------------------------------------------------

void button_click(const picture &normal, point at) {
    hands_move_away(); // a button under the mouse looks different
    eyes_until_seen(normal, at);
    moments_tell(moment::CLICK);
    hands_click(at + picture_middle(normal));
}

const picture &column_picture(const side_button &button) {
    return library_picture(button.set, button.looks[BUTTON_LOOK_NORMAL]);
}

point column_place(const side_button &button) {
    const picture &p = column_picture(button);
    return {COLUMN_RIGHT - p.width, column_top(button.rise, p.height)};
}

void column_click(const side_button &button) {
    button_click(column_picture(button), column_place(button));
}

// The bubbles are deaf for their first frames. A text starts white and pulses: when it is dark they listen.
static bool help_seen_dark(const std::string &text, point at) {
    return std::any_of(HELP_DARK.begin(), HELP_DARK.end(),
                       [&](int grey) { return letters_seen(text, at, grey_of(grey)); });
}

void help_until_closed(const std::string &first_text, point at, int most_clicks, point click_at, moment seen) {
    const auto showing = [&] { return letters_seen_pulsing(first_text, at); };
    hands_move_away();
    eyes_until("the help \"" + first_text + "\"", showing);
    eyes_until("the help's text getting darker", [&] { return help_seen_dark(first_text, at); });
    for (int click = 1; click <= most_clicks; ++click) {
        if (click == most_clicks)
            moments_tell(seen);
        hands_click(click_at);
        hands_move_away();
        eyes_look();
        if (!showing())
            break;
    }
    eyes_until_not("the help \"" + first_text + "\"", showing);
}

// --- The list of puzzles ---------------------------------------------------------------------------------------

static const picture &title_picture_of(int place) {
    return library_picture(TITLE_SET, place);
}

static int row_top(int type) {
    return ROW_HEIGHT * puzzle_list_row(type);
}

static bool row_title_seen(int type, rgb colour) {
    return letters_seen(puzzle_title(type), {ROW_TEXT_X, ROW_TEXT_Y + row_top(type)}, colour);
}

// The row's picture as far as its text and a master's mark leave it free.
static bool row_picture_seen(int type) {
    const picture &row = title_picture_of(TITLE_ROWS[type]);
    const int mark_end = MARK_X + title_picture_of(TITLE_MASTER_MARK).width - LIST_X;
    const picture free = picture_part(row, {mark_end, 0, ROW_TEXT_X - LIST_X - 1 - mark_end, row.height});
    return eyes_see(free, {LIST_X, LIST_TOP + row_top(type)});
}

// The selected row's title pulses.
static bool row_seen(int type) {
    if (!row_picture_seen(type))
        return false;
    bool seen = row_title_seen(type, LIGHT_GREY);
    for (int bright = HIGHLIGHT_FIRST; !seen && bright <= HIGHLIGHT_LAST; ++bright)
        seen = row_title_seen(type, {static_cast<u8>(bright), static_cast<u8>(bright), HIGHLIGHT_BLUE});
    return seen;
}

static void until_list() {
    for (int type = 0; type < PUZZLE_COUNT; ++type)
        eyes_until(std::string("the row of ") + puzzle_title(type), [&] { return row_seen(type); });
}

// --- Splash ----------------------------------------------------------------------------------------------------

static const picture &until_splash(const set_part &button, moment seen) {
    const picture &normal = library_picture(SPLASH_SET, button[BUTTON_LOOK_NORMAL]);
    eyes_find_window(title_picture_of(TITLE_HEADING), HEADING_AT);
    until_list();
    eyes_until_seen(normal, SPLASH_BUTTON);
    moments_tell(seen);
    return normal;
}

void splash_leave() {
    const picture &go = until_splash(SPLASH_GO_BUTTON, moment::SPLASH);
    hands_touch_edges();
    button_click(go, SPLASH_BUTTON);
    title_await();
}

void splash_finish() {
    hands_press_last(SPLASH_BUTTON + picture_middle(until_splash(SPLASH_QUIT_BUTTON, moment::CLOSING)));
    game_expect_exit();
}

// --- Title screen ----------------------------------------------------------------------------------------------

void title_await() {
    hands_move_away();
    eyes_until_seen(title_picture_of(TITLE_HEADING), HEADING_AT);
    eyes_until_seen(column_picture(EXIT), column_place(EXIT));
    until_list();
    moments_tell(moment::TITLE);
}

void title_help() {
    static constexpr point FIRST_AT = {210, 115}, CHOOSE_AT = {450, 200};
    static constexpr point A_ROW = {120, LIST_TOP + 9 * ROW_HEIGHT + ROW_HEIGHT / 2};
    column_click(HELP);
    help_until_closed("Click to select a puzzle.", FIRST_AT, 2, A_ROW, moment::TITLE_HELP);
    letters_until("Choose a puzzle", CHOOSE_AT, LIGHT_GREY);
}

void title_credits() {
    const picture &heading = title_picture_of(TITLE_HEADING);
    column_click(CREDITS);
    eyes_until_seen(heading, {window_centre(heading.width), CREDITS_TOP});
    letters_until_centred("Version " TAVIMO_VERSION, VERSION_Y, LIGHT_GREY);
    moments_tell(moment::CREDITS);
    hands_click_away();
    title_await();
}

void title_select(const puzzle_kind &kind) {
    const picture &p = title_picture_of(TITLE_PUZZLES[kind.type]), &row = title_picture_of(TITLE_ROWS[kind.type]);
    const point at = {PICTURE_X, PICTURE_MIDDLE - picture_middle(p).y};
    eyes_look();
    if (!eyes_see(p, at))
        moments_tell(moment::SELECT);
    hands_click(point{LIST_X, LIST_TOP + row_top(kind.type)} + picture_middle(row));
    eyes_until_seen(p, at);
    const char *title = puzzle_title(kind.type);
    letters_until(title, at + point{picture_middle(p).x - (letters_width(title) >> 1), -PICTURE_TITLE}, LIGHT_GREY);
    moments_tell(moment::SELECTED);
}

void title_study() {
    column_click(STUDY);
}

void title_exit() {
    column_click(EXIT);
    dialog_answer("Exit program?", false, moment::EXIT);
    title_await();
    hands_key(XK_Escape);
    dialog_answer("Exit program?", true, moment::EXIT);
}
