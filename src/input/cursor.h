// cursor.h: the drawn mouse pointer. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/types.h"

inline constexpr i32 CURSOR_ARROW = 0, CURSOR_OPEN_HAND = 1, CURSOR_CLOSED_HAND = 2;

[[nodiscard]] i32 cursor_init(); // 1 or -1
void cursor_shutdown();
void cursor_select(i32 slot); // other values are ignored
void cursor_show(bool on);
void cursor_draw();           // records it; the last thing but the help bubbles in a frame
