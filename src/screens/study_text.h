// study_text.h: the study texts, one a puzzle type, and the place that the study screen has for them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/puzzle_info.h"

// Names in the archive's TEXT_FOLDER.
inline constexpr const char *STUDY_TEXTS[] = {
    "study0.txt", "study1.txt", "study2.txt", "study3.txt", "study4.txt",  "study5.txt",
    "study6.txt", "study7.txt", "study8.txt", "study9.txt", "study10.txt",
};
static_assert(sizeof STUDY_TEXTS == PUZZLE_COUNT * sizeof(char *));

inline constexpr i32 STUDY_TEXT_WIDTH = 510; // pixels at which it is wrapped
inline constexpr i32 STUDY_TEXT_Y = 595;     // its last reference line
