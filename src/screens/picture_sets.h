// picture_sets.h: the screens' picture sets: what lies where in each. Constants only.
//
// A button is named by where its looks lie in the set, in the order of button_look.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/puzzle_info.h"
#include "core/ui/button_look.h"
#include "resources/picture_set.h"

constexpr set_part set_button(i32 first, i32 pitch = 1) {
    return {first, BUTTON_LOOK_COUNT, pitch};
}

// --- Title; other screens borrow some ------------------------------------------------------------

inline constexpr picture_set TITLE_SET = {"title/", 58};

enum title_picture : i32 {
    TITLE_BACKGROUND = 0,
    TITLE_ROW = 1,     // + type
    TITLE_PUZZLE = 12, // + type
    TITLE_HEADING = 41,
    TITLE_TABLE = 42, // shown on the way into study mode
    TITLE_MASTER_MARK = 46,
    TITLE_WEB = 47, // + button_look
    TITLE_FOOTER = 50,
    TITLE_SUBHEADING = 54,
};
inline constexpr set_part TITLE_ROWS = {TITLE_ROW, PUZZLE_COUNT}, TITLE_PUZZLES = {TITLE_PUZZLE, PUZZLE_COUNT};
inline constexpr i32 TITLE_LOOK_PITCH = 6; // four buttons and two spares lie between a button's looks
inline constexpr set_part TITLE_SCORES_BUTTON = set_button(25, TITLE_LOOK_PITCH);
inline constexpr set_part TITLE_NAME_BUTTON = set_button(26, TITLE_LOOK_PITCH);
inline constexpr set_part TITLE_HELP_BUTTON = set_button(27, TITLE_LOOK_PITCH);
inline constexpr set_part TITLE_EXIT_BUTTON = set_button(28, TITLE_LOOK_PITCH);
inline constexpr set_part TITLE_CREDITS_BUTTON = set_button(43);
inline constexpr set_part TITLE_WEB_BUTTON = set_button(TITLE_WEB);
inline constexpr set_part TITLE_STUDY_BUTTON = set_button(55);
inline constexpr set_part TITLE_SPARES[] = {{23, 2}, {29, 2}, {35, 2}, {51, 3}}; // loaded, never drawn
static_assert(set_is_complete(TITLE_SET, {{TITLE_BACKGROUND},
                                          TITLE_ROWS,
                                          TITLE_PUZZLES,
                                          {TITLE_HEADING},
                                          {TITLE_TABLE},
                                          {TITLE_MASTER_MARK},
                                          {TITLE_FOOTER},
                                          {TITLE_SUBHEADING},
                                          TITLE_SCORES_BUTTON,
                                          TITLE_NAME_BUTTON,
                                          TITLE_HELP_BUTTON,
                                          TITLE_EXIT_BUTTON,
                                          TITLE_CREDITS_BUTTON,
                                          TITLE_WEB_BUTTON,
                                          TITLE_STUDY_BUTTON,
                                          TITLE_SPARES[0],
                                          TITLE_SPARES[1],
                                          TITLE_SPARES[2],
                                          TITLE_SPARES[3]}));

// --- The others ----------------------------------------------------------------------------------

inline constexpr picture_set SPLASH_SET = {"splash/", 13};
inline constexpr i32 SPLASH_FOOTER = 1, SPLASH_SCENE = 9;
inline constexpr set_part SPLASH_WEB_BUTTON = set_button(3), SPLASH_GO_BUTTON = set_button(6),
                          SPLASH_QUIT_BUTTON = set_button(10);
inline constexpr set_part SPLASH_SPARES[] = {{0}, {2}}; // loaded, never drawn
static_assert(set_is_complete(SPLASH_SET, {{SPLASH_FOOTER},
                                           {SPLASH_SCENE},
                                           SPLASH_WEB_BUTTON,
                                           SPLASH_GO_BUTTON,
                                           SPLASH_QUIT_BUTTON,
                                           SPLASH_SPARES[0],
                                           SPLASH_SPARES[1]}));

inline constexpr picture_set STUDY_SET = {"study/", 15};
inline constexpr set_part STUDY_BACK_BUTTON = set_button(0), STUDY_HELP_BUTTON = set_button(3),
                          STUDY_CLEAR_BUTTON = set_button(6), STUDY_FILL_BUTTON = set_button(9),
                          STUDY_PLAY_BUTTON = set_button(12);
static_assert(set_is_complete(STUDY_SET, {STUDY_BACK_BUTTON, STUDY_HELP_BUTTON, STUDY_CLEAR_BUTTON, STUDY_FILL_BUTTON,
                                          STUDY_PLAY_BUTTON}));

inline constexpr picture_set DIALOG_SET = {"dialog/", 9};
inline constexpr set_part DIALOG_YES_BUTTON = set_button(0), DIALOG_NO_BUTTON = set_button(3),
                          DIALOG_OK_BUTTON = set_button(6);
static_assert(set_is_complete(DIALOG_SET, {DIALOG_YES_BUTTON, DIALOG_NO_BUTTON, DIALOG_OK_BUTTON}));

inline constexpr picture_set CREDITS_SET = {"credits/", 7};
inline constexpr i32 CREDITS_UPPER_LINE = 0, CREDITS_MIDDLE_LINE = 1, CREDITS_LOWEST_LINE = 6;
inline constexpr set_part CREDITS_PLATES = {2, 4}; // what the game is made with
static_assert(set_is_complete(CREDITS_SET,
                              {{CREDITS_UPPER_LINE}, {CREDITS_MIDDLE_LINE}, CREDITS_PLATES, {CREDITS_LOWEST_LINE}}));

inline constexpr picture_set SCORE_SET = {"score/", 1}; // the bar that uncovers the score log's rows
