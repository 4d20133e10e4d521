// title.h: the hub: the list of puzzles, the picture of the one selected, and the roads from here. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// The screen's operations, for the screen table.
[[nodiscard]] i32 title_init(); // 1, or -1 when a picture cannot be loaded or memory is short (logged)
void title_shutdown();
void title_enter();
void title_leave();
void title_update();
void title_draw();
