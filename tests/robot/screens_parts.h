// screens_parts.h: what the ways through the screens share.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"
#include "puzzle_kinds.h"

#include <string>

void click_button(const picture &normal, int x, int y);
void until_button_and_click(const picture &normal, int x, int y);

void dialog_answer(const std::string &question, bool yes, const char *shot);
void dialog_name(const std::string &name); // empty: keeps the one that stands there
void hurry_score_log();
void score_log_check(const puzzle_kind &kind); // every row as in the robot's records; leaves
