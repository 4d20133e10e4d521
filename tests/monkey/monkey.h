// monkey.h: what its files share: a run of the program in a process of its own, its dice, and what it has met.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/puzzle_info.h"
#include "core/base/screen_id.h"
#include "support/whole_program/hands.h"

// Lies in memory that the processes share.
struct monkey_report {
    long frames, runs, lists_played;
    long run_frames; // of the run that goes on, or that failed
    long screens[SCREEN_COUNT], finished[PUZZLE_COUNT];
    long saved[2]; // times that prefs and that scores were replaced
};
extern monkey_report *const report;

inline constexpr const char *SAVED_FILES[] = {"prefs", "scores"};

struct monkey_plan {
    unsigned seed = 1;
    long frames = 10000;        // of this run, before it is ended from outside
    bool render_thread = false; // a real one
    bool soak = false;          // plays well, all puzzles in turn, and never leaves
    void (*move)() = nullptr;   // each frame's
};
inline monkey_plan plan;
int monkey_run(const monkey_plan &wanted); // from start to end; the exit code, or -1 for a signal

inline bool debug_used = false; // the hidden debug mode, in this run: it may finish a run early

int roll(int n); // 0 .. n - 1
[[noreturn]] void monkey_fail(const std::string &why);

void monkey_move();      // brain.cpp
void check_invariants(); // invariants.cpp
void soak_measure();     // soak.cpp: at the same point of each round
