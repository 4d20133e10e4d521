// screen_id.h: the seven screens.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

enum screen_id : i32 {
    SCREEN_NONE = -1,
    SCREEN_PLAY = 0,
    SCREEN_TITLE,
    SCREEN_STUDY,
    SCREEN_DIALOG,
    SCREEN_SCORE_LOG,
    SCREEN_CREDITS,
    SCREEN_SPLASH,
    SCREEN_COUNT
};
