// screens.h: the ways through the screens around the play: what a visitor does there and what has to be seen.
//
// One thread. Every function starts on the screen that it is named after and ends when the next one is seen, or
// gives up.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle_kinds.h"

#include <string>

inline constexpr point AWAY = {785, 200}; // where the mouse is over nothing on any screen and under no help bubble

// A sequence of help bubbles of which this is the first: waits for it and clicks until it is gone, on something that
// would answer if the bubbles did not take the clicks. `shot` names the picture of the last.
void help_until_closed(const std::string &first_text, point at, int most_clicks, point click_at, const char *shot);

void splash_leave();  // to the title screen
void splash_finish(); // the closing layout: to the end of the program

void title_check(); // list, marks of the mastered puzzles, name
void title_help();
void title_select(const puzzle_kind &kind);
void title_study();                         // to the study screen
void title_scores(const puzzle_kind &kind); // to the score log and back
void title_credits();                       // there and back
void title_name(const std::string &name);
void title_exit(); // first no, then yes: to the closing splash

// Waits for the full board and the text; on a player's first visit the help shows by itself and is clicked away.
void study_enter(const puzzle_kind &kind, bool help_expected);
void study_explore(const puzzle_kind &kind); // a piece out and in again, clear, fill, help
void study_play(const std::string &name);    // through the name dialog to the play screen; empty keeps the name

void study_back();

void return_dialog_stay();
void completion_await();
void completion_confirm(const puzzle_kind &kind, const run_span &played); // to the score log
void score_log_record(const puzzle_kind &kind, const run_span &played);   // notes the run; back to the title screen
