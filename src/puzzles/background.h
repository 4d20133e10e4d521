// background.h: the full-screen picture behind the board, shared by the puzzle types. Main thread.
//
// A type says by number which one it wants; it is loaded only when another one was loaded before.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"

i32 board_reset_background();          // start-up: nothing wanted, nothing loaded; returns 1
void board_set_background(i32 number); // wanted from now on; negative: none
[[nodiscard]] i32 background_load();   // 1, or -1 when the wanted one cannot be loaded; the next call tries again
const image *background_picture();     // borrowed; null for none
void board_free_background();          // exit
