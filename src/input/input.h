// input.h: one snapshot of keyboard and mouse a frame, beside that of the frame before.
//
// Main thread. Between two polls all answers stay the same; what goes down and up again between
// them counts as down in the next and up in the one after.
// Keys are SDL's key codes and buttons SDL's button numbers; for others the answer is "no". Only input_init can
// fail; the module owns everything.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline i32 mouse_x = 0, mouse_y = 0; // window pixels, as of the last poll

inline constexpr i32 MOUSE_LEFT = 1;

[[nodiscard]] i32 input_init(); // 1, or -1 when out of memory (logged); SDL must be running
void input_poll();              // takes the next snapshot, once a frame
void input_shutdown();          // safe when input_init never ran or failed

bool key_pressed(i32 key);      // down now, up in the previous frame
bool shift_held();              // either of the two is down
bool ctrl_held();               // likewise
bool mouse_pressed(i32 button); // down now, up in the previous frame
bool mouse_held(i32 button);    // down now
char key_char(i32 key);         // the character that the key types, letters in lower case; 0 for none
i32 key_count();                // number of key codes; 0 before input_init
i32 first_pressed_key();        // lowest key code that went down, 0 for none
bool click_or_key_pressed();    // the left mouse button or any key went down
