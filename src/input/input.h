// input.h: one snapshot of keyboard and mouse a frame. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/types.h"

inline i32 mouse_x = 0, mouse_y = 0; // window pixels, as of the last poll

inline constexpr i32 MOUSE_LEFT = 1; // SDL's button numbers

[[nodiscard]] i32 input_init(); // 1, or -1 when out of memory
void input_poll();
void input_shutdown();

bool key_pressed(i32 key);   // down now, up in the previous frame
bool shift_held();
bool ctrl_held();
bool mouse_pressed(i32 button); // down now, up in the previous frame
bool mouse_held(i32 button);
char key_char(i32 key);      // the character that the key types, 0 for none
i32 key_count();             // number of key codes
i32 first_pressed_key();     // lowest key code that went down, 0 for none
