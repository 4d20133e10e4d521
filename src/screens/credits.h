// credits.h: who made the program: the heading rises and uncovers the rows. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// The screen's operations, for the screen table.
[[nodiscard]] i32 credits_init(); // 1, or -1 when a picture cannot be loaded or memory is short (logged)
void credits_shutdown();
void credits_enter();
void credits_update();
void credits_draw();
