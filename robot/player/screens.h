// screens.h: the ways through the screens around the play.
//
// One thread. A function starts on the screen that it is named after, waits for what it should see and ends when the
// next screen is seen; it gives up when that does not come.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "moments.h"
#include "picture.h"
#include "puzzle_kinds.h"
#include "screens/picture_sets.h"

#include <string>

// --- Shared ------------------------------------------------------------------------------------------------------

void button_click(const picture &normal, point at); // waits for the button's own picture first

// A button of the column at the right edge of title and study screen; `rise` is counted from the lowest, which is 1.
struct column_button {
    const picture_set &set;
    set_part looks;
    int rise;
};
const picture &column_picture(const column_button &button); // when it is left alone
point column_place(const column_button &button);
void column_click(const column_button &button);

// A sequence of help bubbles of which this is the first: waits for it and clicks until it is gone, on something that
// would answer if the bubbles did not take the clicks. The last of them is `seen`.
void help_until_closed(const std::string &first_text, point at, int most_clicks, point click_at, moment seen);

void dialog_answer(const std::string &question, bool yes, moment seen);
void dialog_name(); // types the name when it has not been typed before

const std::string &player_name(); // empty until it was typed

// --- One after the other -----------------------------------------------------------------------------------------

inline constexpr int LIST_X = 30, LIST_TOP = 130, ROW_HEIGHT = 35;                         // of the list of puzzles
inline constexpr int LOG_HEADING_X = 375, LOG_NAME_X = 520, LOG_TIME_X = 745, LOG_Y = 175; // of the last run

void splash_leave();  // to the title screen
void splash_finish(); // the closing layout: to the end of the program

void title_await(); // with its list
void title_help();
void title_credits(); // there and back
void title_select(const puzzle_kind &kind);
void title_study(); // to the study screen
void title_exit();  // first no, then yes: to the closing splash

// Waits for the full board; on a player's first visit the help shows by itself and is clicked away.
void study_enter(const puzzle_kind &kind);
void study_explore(const puzzle_kind &kind); // a piece out and in again, clear, fill, help
void study_play();                           // through the name dialog to the play screen
void study_back();

void completion_await();
bool completion_praised();                        // for a master's time
void completion_confirm(const puzzle_kind &kind); // to the score log

// Watches the whole show the first time, later hurries it; back to the title screen.
void score_log_watch();
