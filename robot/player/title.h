// title.h: the ways through splash and title screen, and what screens with buttons and bubbles share.
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

void button_click(const picture &normal, point at); // waits for the button's own picture first

// A button of the column at the right edge of title and study screen; `rise` is counted from the lowest, which is 1.
struct side_button {
    const picture_set &set;
    set_part looks;
    int rise;
};
const picture &column_picture(const side_button &button); // when it is left alone
point column_place(const side_button &button);
void column_click(const side_button &button);

// A sequence of help bubbles of which this is the first: waits for it and clicks until it is gone, on something that
// would answer if the bubbles did not take the clicks. The last of them is `seen`.
void help_until_closed(const std::string &first_text, point at, int most_clicks, point click_at, moment seen);

inline constexpr int LIST_X = 30, LIST_TOP = 130, ROW_HEIGHT = 35; // of the list of puzzles

void splash_leave();  // to the title screen
void splash_finish(); // the closing layout: to the end of the program

void title_await(); // with its list
void title_help();
void title_credits(); // there and back
void title_select(const puzzle_kind &kind);
void title_study(); // to the study screen
void title_exit();  // first no, then yes: to the closing splash
