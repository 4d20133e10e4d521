// dialogs.cpp: the dialogs and the score log.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "dialogs.h"

#include "eyes.h"
#include "hands.h"
#include "letters.h"
#include "library.h"
#include "title.h"

#include <string>

static constexpr const char *PLAYER = "Ann Lee";
static constexpr int TITLE_Y = 276, ANSWER_Y = 290, FIRST_LINE_Y = 310, SECOND_LINE_Y = 330, ANSWER_GAP = 10;
static constexpr int NAME_OK_Y = 330, PLAIN_OK_Y = 340, PRAISED_OK_Y = 355;
static constexpr set_part YES = DIALOG_YES_BUTTON, NO = DIALOG_NO_BUTTON, OK = DIALOG_OK_BUTTON;

static constexpr const char *LOG_HEADING = "Score Log";
static constexpr point LOG_HEADING_AT = {LOG_HEADING_X, 30};
static constexpr rect LOG_PANEL = {LOG_HEADING_X, 0, SCREEN_WIDTH - LOG_HEADING_X, SCREEN_HEIGHT};

static std::string name;

const std::string &player_name() {
    return name;
}

static const picture &button(const set_part &looks) {
    return library_picture(DIALOG_SET, looks.first);
}

static void await(const std::string &title) {
    letters_until_centred(title, TITLE_Y, WHITE);
}

void dialog_answer(const std::string &question, bool yes, moment seen) {
    await(question);
    hands_move_away();
    const int width = button(YES).width, x = window_centre(2 * width + ANSWER_GAP);
    const point yes_at = {x, ANSWER_Y}, no_at = {x + width + ANSWER_GAP, ANSWER_Y};
    eyes_until_seen(button(YES), yes_at);
    eyes_until_seen(button(NO), no_at);
    moments_tell(seen);
    if (yes)
        hands_key(XK_y);
    else
        button_click(button(NO), no_at);
}

static point ok_at(int y) {
    return {window_centre(button(OK).width), y};
}

void dialog_name() {
    await("Enter your name");
    hands_move_away();
    eyes_until_seen(button(OK), ok_at(NAME_OK_Y));
    if (name.empty()) {
        name = PLAYER;
        hands_type(name);
    }
    letters_until_centred(name, FIRST_LINE_Y, YELLOW);
    moments_tell(moment::NAME);
    button_click(button(OK), ok_at(NAME_OK_Y));
}

void completion_await() {
    await("Congratulations");
}

bool completion_praised() {
    const std::string praise = "You have achieved a Master's score!";
    return letters_seen(praise, {letters_centre(praise), SECOND_LINE_Y}, YELLOW);
}

void completion_confirm(const puzzle_kind &kind) {
    hands_move_away();
    letters_until_centred(std::string("You have completed the ") + puzzle_title(kind.type) + " puzzle.", FIRST_LINE_Y,
                          YELLOW);
    point at;
    eyes_until("the OK button below what the dialog says", [&] {
        at = ok_at(completion_praised() ? PRAISED_OK_Y : PLAIN_OK_Y);
        return eyes_see(button(OK), at);
    });
    moments_tell(moment::COMPLETED);
    button_click(button(OK), at);
}

// --- Score log -------------------------------------------------------------------------------------------------

static bool log_seen() {
    return letters_seen(LOG_HEADING, LOG_HEADING_AT, GREY);
}

// A click shows all at once what else comes row by row.
void score_log_watch() {
    static bool watched = false;
    letters_until(LOG_HEADING, LOG_HEADING_AT, GREY);
    if (watched)
        hands_click_away();
    watched = true;
    letters_until(name, {LOG_NAME_X, LOG_Y}, ORANGE);
    eyes_until_still("the score log", LOG_PANEL);
    moments_tell(moment::SCORE_LOG);
    hands_click_away(); // ends the show, where it has not ended yet
    eyes_look();
    if (log_seen())
        hands_click_away();
    eyes_until_not("the score log", log_seen);
    title_await();
}
