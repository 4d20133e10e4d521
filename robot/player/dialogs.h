// dialogs.h: the ways through the dialogs and the score log.
//
// One thread. A function starts on the screen that it is named after, waits for what it should see and ends when the
// next screen is seen; it gives up when that does not come.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "moments.h"
#include "puzzle_kinds.h"

#include <string>

void dialog_answer(const std::string &question, bool yes, moment seen);
void dialog_name(); // types the name when it has not been typed before

const std::string &player_name(); // empty until it was typed

inline constexpr int LOG_HEADING_X = 375, LOG_NAME_X = 520, LOG_TIME_X = 745, LOG_Y = 175; // of the last run

void completion_await();
bool completion_praised();                        // for a master's time
void completion_confirm(const puzzle_kind &kind); // to the score log

// Watches the whole show the first time, later hurries it; back to the title screen.
void score_log_watch();
