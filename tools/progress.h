// progress.h: a bar on standard error, once the work has taken two seconds and only on a terminal.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <chrono>
#include <cstddef>

struct progress {
    progress(const char *verb, std::size_t total_steps);
    progress(const progress &) = delete;
    progress &operator=(const progress &) = delete;
    ~progress(); // ends the bar's line

    const char *verb;
    std::size_t total, done = 0;
    bool terminal, shown = false;
    std::chrono::steady_clock::time_point start, last;
};

inline bool progress_wanted = true; // false: no bar at all

void progress_step(progress *bar);
