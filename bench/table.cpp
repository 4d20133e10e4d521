// table.cpp: printing rows.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "table.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>

static constexpr double LOWER_QUARTILE = 0.25, MIDDLE = 0.5, UPPER_QUARTILE = 0.75;

static double quantile(std::vector<double> values, double part) {
    if (values.empty())
        return 0;
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

double median(std::vector<double> values) {
    return quantile(std::move(values), MIDDLE);
}

void print_row(const table_row &row) {
    const double middle = quantile(row.measured, MIDDLE);
    std::printf("%s\t%s\t%.3g\t%.3g .. %.3g\t", row.figure.c_str(), row.other.c_str(), middle,
                quantile(row.measured, LOWER_QUARTILE), quantile(row.measured, UPPER_QUARTILE));
    if (std::isinf(row.wanted.limit)) {
        std::printf("-\t-\n");
        return;
    }
    const bool met = row.wanted.at_least ? middle >= row.wanted.limit : middle <= row.wanted.limit;
    std::printf("%s %.3g\t%s\n", row.wanted.at_least ? ">=" : "<=", row.wanted.limit, met ? "met" : "MISSED");
}
