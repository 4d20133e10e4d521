// study.h: a puzzle's complete board with a text that explains it; the way into play. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// The screen's operations, for the screen table.
[[nodiscard]] i32 study_init(); // 1, or -1 when a picture cannot be loaded or memory is short (logged)
void study_shutdown();
void study_enter();
void study_update();
void study_draw();
