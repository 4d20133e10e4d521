// best_times.h: best times, run logs and player records.
//
// Main thread. The module owns the one table and all in it; what it hands out is borrowed until the next call that
// changes the table. What memory is short for is logged and left out.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/containers.h"
#include "core/base/types.h"

inline constexpr i32 MASTER_PLACES = 3;
inline constexpr i32 LOG_LENGTH = 20;           // entries kept a puzzle
inline constexpr u32 PLAYER_SEEN_STUDY = 0x800; // bit of seen: the study screen's help was shown

struct score_entry {
    char *date; // owned, such as 2004-03-07 14:05
    i32 seconds;
    char *name; // owned
};

struct puzzle_scores {
    ptr_array<score_entry> *log;      // newest first, owned
    i32 master_time[MASTER_PLACES];   // seconds; below 1 the place is free
    char *master_name[MASTER_PLACES]; // owned, may be null
};

struct player_record {
    char *name;   // owned, as first entered
    u32 mastered; // bit p: completed puzzle type p within its fourth master time
    u32 seen;     // bit p: started or completed puzzle type p; PLAYER_SEEN_STUDY
};

i32 best_times_create();   // empty tables; 1, or -1 when out of memory
void best_times_destroy(); // safe when none was made
void best_times_reset();   // clears the logs, installs the default Master places; players stay
void best_times_record(i32 puzzle, const char *name, i32 seconds); // a completed run; ignored outside 0..10
puzzle_scores *best_times_for_puzzle(i32 puzzle);                  // borrowed; null outside 0..10

// The record whose name matches, spaces and case aside; made when missing and create is set; else null.
player_record *player_find(const char *name, bool create);
u32 player_mastered(const char *name); // the matching record's mask, 0 when there is none
