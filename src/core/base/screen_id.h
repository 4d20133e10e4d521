// screen_id.h: the seven screens, and asking for one of them. The change happens at the end of the frame.
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

// The last request of a frame wins; a request for the current screen does nothing. Main thread.
void screen_request(screen_id id);
