// timing.h: processor time of the calling thread, so that what other programs take does not count.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <ctime>

inline double cpu_seconds() {
    constexpr double nanosecond = 1e-9; // seconds
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * nanosecond;
}

// Of one run.
template <class Run> double seconds_of(const Run &run) {
    const double start = cpu_seconds();
    run();
    return cpu_seconds() - start;
}
