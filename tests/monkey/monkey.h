// monkey.h: what its files share: the devices it moves, its dice, and what it has met.
//
// The program runs in a child process. Where it polls its input, the harness checks the invariants of the frame before
// and lets the monkey make its next move. Main thread of that process.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/puzzle_info.h"
#include "core/screen_id.h"
#include "core/types.h"

#include <string>

// clang-format off
enum counted : int { EXIT_DIALOGS, RETURN_DIALOGS, NAME_DIALOGS, NAMES, RIGHT, WRONG, HELPS, STUDIED, DEBUGGED, WEB_PAGES, EXITS, PREFS_SAVES, SCORES_SAVES, COUNTED_KINDS };
inline constexpr const char *COUNTED_NAMES[COUNTED_KINDS] = {"exit dialogs", "return dialogs", "name dialogs", "names", "right answers", "wrong answers", "helps", "studied", "debug mode", "web pages", "exits", "saves of prefs", "of scores"};
// clang-format on

// Lies in memory that the processes share.
struct monkey_report {
    long frames, runs, lists_played, rounds;
    long run_frames; // of the run that goes on, or that failed
    long screens[SCREEN_COUNT];
    long started[PUZZLE_COUNT], completed[PUZZLE_COUNT], recorded[PUZZLE_COUNT];
    long counts[COUNTED_KINDS];
};
inline monkey_report *report = nullptr;

struct monkey_plan {
    unsigned seed;
    long frames; // of this run, before it is ended from outside
    int depth;   // 16 or 32
    bool render_thread;
    bool soak;                         // plays well, all puzzles in turn, and never leaves
    void (*move)();                    // each frame's
    void (*saving_begins)() = nullptr; // called once
};
inline monkey_plan plan;
monkey_report *monkey_start(bool soak);          // the shared report; also sets SDL's drivers
int monkey_run_program(const monkey_plan &plan); // from start to end; the exit code, or -1 for a signal

// What the program's next poll finds.
struct monkey_devices {
    int x, y;
    u8 buttons;
    u8 keys[323]; // SDLK_LAST
};
inline monkey_devices devices;

inline bool debug_used = false; // the hidden debug mode, in this run: it may finish a run early

int monkey_roll(int n);   // 0 .. n - 1
void monkey_wait(u32 ms); // lets virtual time pass
void monkey_push_event(u8 type);
[[noreturn]] void monkey_fail(const std::string &why);

void monkey_move();      // brain.cpp
void check_invariants(); // invariants.cpp
void soak_measure();     // soak.cpp: at the same point of each round
