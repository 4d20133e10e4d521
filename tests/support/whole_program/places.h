// places.h: where a player finds the buttons of the screens, and how long what moves there takes.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

// The right-hand column of buttons on the title and the study screen, counted from below, 1 the lowest.
inline constexpr int COLUMN_X = 720; // inside each, and inside the one of the splash screen
enum title_column : int { TITLE_EXIT = 1, TITLE_CREDITS = 3, TITLE_OTHERS = 5, TITLE_STUDY };
enum study_column : int { STUDY_PLAY = 2, STUDY_BUTTONS = 5 };
constexpr int column_y(int n) {
    constexpr int LOWEST_Y = 579, PITCH = 36;
    return LOWEST_Y - PITCH * (n - 1);
}
inline constexpr int SPLASH_GO_Y = 495; // continue, quit
inline constexpr int NOWHERE_Y = 300;   // between the buttons

// The title's list of puzzles, from 0.
inline constexpr int LIST_X = 100;
constexpr int list_y(int position) {
    constexpr int FIRST_Y = 147, PITCH = 35;
    return FIRST_Y + PITCH * position;
}

// Among a board's buttons: the console's two, then the keys of the keypad, if it has one.
enum keypad_place : int { KEYPAD_DIGITS = 2, KEYPAD_DELETE = 11, KEYPAD_ZERO, KEYPAD_ENTER };
constexpr int keypad_digit(char digit) {
    return digit == '0' ? KEYPAD_ZERO : KEYPAD_DIGITS + digit - '1';
}

// Frames, each more than it takes.
inline constexpr int SPLASH_REVEAL = 40, DIALOG_ENTRANCE = 42, PICTURE_SLIDE = 20, BUBBLES_DEAF = 14;
