// whole_program.h: the whole program in virtual time: a clock, dice, devices and a render thread that a harness rules.
//
// On top of fake_sdl.h. Without a real render thread the main thread plays the lists wherever it would sleep, which is
// where the other thread's turn would be: every order of events can be repeated, and the process can be copied (fork)
// at any moment. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "support/fake_sdl.h"
#include "support/temp_folder.h"

#include <functional>

struct harness_calls {
    void (*frame)();                  // where a frame polls its input, once a screen shows
    bool (*render_turn)(bool needed); // whether a list is played now; needed: the program waits for it
    bool (*thread_fails)() = [] { return false; };
    bool render_thread = false; // a real one
};
inline harness_calls harness;

// A game folder with the real archive, and no window, for the program to be started in.
struct whole_game : temp_game {
    whole_game();
};

// Scripted devices, the mouse in the middle, and time that begins at 1 ms.
void virtual_time_start();
int run_in_child(const std::function<void()> &body); // the exit code, or -1 for a signal
void push_event(u8 type);
