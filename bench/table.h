// table.h: the rows of the benchmarks' table: a figure, what it stands beside, and whether its aim is met.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <limits>
#include <string>
#include <vector>

struct aim {
    bool at_least; // else at most
    double limit;
};
inline constexpr aim NO_AIM = {true, -std::numeric_limits<double>::infinity()}; // of a figure that explains others

struct table_row {
    std::string figure;
    std::string other;            // what it is compared with, or the unit of a figure that stands alone
    std::vector<double> measured; // one value a measurement
    aim wanted;
};

double median(std::vector<double> values);

// One line, separated by tabs: figure, other, median, lower and upper quartile, aim, met or MISSED; - without an aim.
void print_row(const table_row &row);
