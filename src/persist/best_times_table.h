// best_times_table.h: the best-times table, for the file that keeps it. Private to persist; main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/puzzle_info.h"
#include "persist/best_times.h"

struct best_times_table {
    puzzle_scores puzzles[PUZZLE_COUNT];
    ptr_array<player_record> *players; // owned; null while there is no table
    bool damaged;                      // the file on the disk holds something that could not be read
};
inline best_times_table best_times = {};

// False before best_times_create and after best_times_destroy.
inline bool best_times_exist() {
    return best_times.players != nullptr;
}
