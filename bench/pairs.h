// pairs.h: timing this program's way and others in turns, so that what else the machine does hits all of them.
//
// Every measurement runs both ways, right after each other, and gives one ratio; the table shows the median. Of several
// other ways only the fastest takes part: a slow one in between would leave the caches full for the next way, and empty
// for the one after it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "table.h"

#include <functional>
#include <string>
#include <vector>

using way = std::function<void()>;

// One or more other ways to do it, of which the fastest counts, and the aim for their time over this program's.
struct rival {
    std::string name;
    std::vector<way> ways;
    double at_least;
};

inline constexpr int SHORT_MEASUREMENTS = 204, LONG_MEASUREMENTS = 15;

// Registers a benchmark; its rows are printed by pairs_print, in the order of registering. setup runs before the first
// measurement and every 17 later.
void compare(const std::string &figure, way setup, way ours, std::vector<rival> rivals, int measurements);

// The same for a figure without a rival, set up once: seconds of one run, made into a value by the scale.
void measure(const std::string &figure, const std::string &unit, way setup, way ours,
             const std::function<double(double)> &value, aim wanted, int measurements);

void pairs_print();
