// whole_program.h: the whole program in virtual time: a clock, dice, devices and a render thread that a harness rules.
//
// The linker puts them in the place of SDL's and the C library's. Without a real render thread the main thread plays
// the lists wherever it would sleep, which is where the other thread's turn would be: every order of events can be
// repeated, and the process can be copied (fork) at any moment. Main thread, but for what a real render thread asks.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "support/temp_folder.h"

#include <SDL_keysym.h>

#include <atomic>
#include <functional>
#include <random>

// What the program's next poll finds.
struct device_state {
    int x, y;
    u8 buttons;
    u8 keys[SDLK_LAST];
};
inline device_state devices;

struct harness_calls {
    void (*frame)();                  // where a frame polls its input, once a screen shows
    bool (*render_turn)(bool needed); // whether a list is played now; needed: the program waits for it
    bool (*thread_fails)() = [] { return false; };
    bool render_thread = false; // a real one
};
inline harness_calls harness;
inline std::atomic<u32> virtual_now = 1;
inline std::mt19937 program_dice;

// A game folder with the real archive, and no window, for the program to be started in.
struct whole_game : temp_game {
    whole_game();
};

int run_in_child(const std::function<void()> &body); // the exit code, or -1 for a signal
void push_event(u8 type);
