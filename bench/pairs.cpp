// pairs.cpp: taking the measurements.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "pairs.h"

#include "timing.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <deque>

static constexpr double BATCH_SECONDS = 60e-6; // long enough for the clock, short enough to be left alone mostly
static constexpr int MAX_BATCH = 4096;

static std::deque<table_row> rows; // keeps the places of its elements

// Once before, so that each way finds its own pictures in the caches and not those of the way before it.
static double batch_seconds(const way &run, int count) {
    run();
    return seconds_of([&] {
        for (int i = 0; i < count; ++i)
            run();
    });
}

static int batch_for(const way &run) {
    int count = 1;
    while (count < MAX_BATCH && batch_seconds(run, count) < BATCH_SECONDS)
        count *= 2;
    return count;
}

static double fastest(const rival &other, int count) {
    double least = batch_seconds(other.ways[0], count);
    for (std::size_t i = 1; i < other.ways.size(); ++i)
        least = std::min(least, batch_seconds(other.ways[i], count));
    return least;
}

void compare(const std::string &figure, way setup, way ours, std::vector<rival> rivals, int measurements) {
    const std::size_t first = rows.size();
    for (const rival &other : rivals)
        rows.push_back({figure, other.name, {}, {true, other.at_least}});
    const auto body = [=](benchmark::State &state) {
        setup();
        const int batch = batch_for(ours);
        for (const rival &other : rivals) // once, so that nobody is measured cold
            fastest(other, 1);
        for ([[maybe_unused]] const auto _ : state) {
            const double own = batch_seconds(ours, batch);
            state.SetIterationTime(own / batch);
            for (std::size_t i = 0; i < rivals.size(); ++i)
                rows[first + i].measured.push_back(fastest(rivals[i], batch) / own);
        }
    };
    benchmark::RegisterBenchmark(figure.c_str(), body)->UseManualTime()->Iterations(measurements);
}

void measure(const std::string &figure, const std::string &unit, way setup, way ours,
             const std::function<double(double)> &value, aim wanted, int measurements) {
    const std::size_t row = rows.size();
    rows.push_back({figure, unit, {}, wanted});
    const auto body = [=](benchmark::State &state) {
        setup();
        const int batch = batch_for(ours);
        for ([[maybe_unused]] const auto _ : state) {
            const double own = batch_seconds(ours, batch) / batch;
            state.SetIterationTime(own);
            rows[row].measured.push_back(value(own));
        }
    };
    benchmark::RegisterBenchmark(figure.c_str(), body)->UseManualTime()->Iterations(measurements);
}

void pairs_print() {
    for (const table_row &row : rows)
        if (!row.measured.empty())
            print_row(row);
}
