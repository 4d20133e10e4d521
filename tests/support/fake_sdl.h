// fake_sdl.h: scripted keys and mouse, virtual time, fixed dice and failing allocations.
//
// The linker sends SDL_GetKeyState, SDL_GetMouseState, SDL_GetTicks, SDL_Delay, rand, malloc, calloc and realloc
// of everything linked statically through here. Each passes through to the real one until a test switches it on;
// a fake_scope on the test's stack switches everything off again. The thread that switches time or failing
// allocations on is the one whose SDL_Delay moves the clock and whose allocations fail; other threads only read
// the clock, and sleep for real, briefly.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <array>
#include <initializer_list>

void fake_reset(); // everything passes through

struct fake_scope {
    fake_scope() { fake_reset(); }
    ~fake_scope() { fake_reset(); }
    fake_scope(const fake_scope &) = delete;
    fake_scope &operator=(const fake_scope &) = delete;
};

// --- Input ------------------------------------------------------------------------------------------------
// The first call switches from the real devices to scripted ones: all up, the mouse at (0, 0). As with real ones,
// the key array that SDL hands out changes only when the program polls.

inline constexpr int FAKE_KEY_LIMIT = 1024;

// What the program's next poll finds.
struct fake_devices {
    bool scripted;
    int key_count; // key codes that SDL reports
    int x, y;
    u8 buttons;
    std::array<u8, FAKE_KEY_LIMIT> keys; // 1: down
};
inline fake_devices devices;

void fake_input_start();
void fake_key(int key, bool down);
void fake_keys_up();
void fake_key_count(int count); // at most FAKE_KEY_LIMIT
void fake_mouse_move(int x, int y);
void fake_mouse_button(int button, bool down); // SDL's button numbers

// --- Time, in milliseconds -------------------------------------------------------------------------------

void fake_time_start(u32 now); // from now on only this thread's SDL_Delay and fake_time_advance move the clock
void fake_time_advance(u32 span);
inline void (*fake_slept)(u32 span) = nullptr; // called at the end of each SDL_Delay that moves the clock

// --- Dice ------------------------------------------------------------------------------------------------

void fake_dice(std::initializer_list<int> values); // rand gives these in turn, over and over
int fake_dice_drawn();                             // draws since fake_dice
void fake_dice_seed(unsigned seed); // rand gives a generator's numbers, whatever the program's srand says

// --- Allocations of this thread --------------------------------------------------------------------------

void fake_fail_allocation(int k, bool also_later = false); // 1: the next one; 0: none, only count
int fake_allocations();                                    // since fake_fail_allocation
inline bool (*fake_allocation_fails)() = nullptr;          // asked by each allocation of any thread
