// score_log.h: the best times and recent runs of one puzzle, as a short timed show. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// The screen's operations, for the screen table.
[[nodiscard]] i32 score_log_init(); // 1, or -1 when a picture cannot be loaded or memory is short (logged)
void score_log_shutdown();
void score_log_enter();
void score_log_update();
void score_log_draw();

void score_log_show(i32 puzzle); // before SCREEN_SCORE_LOG is requested
