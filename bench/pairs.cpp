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
static constexpr int TRIES = 7; // of each of several ways, before the fastest is measured
static constexpr int MEASUREMENTS_OF_SETUP = 17;

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

// The way that takes least in most of a few tries.
static way fastest(const rival &other, int count) {
    std::vector<double> middles;
    for (const way &run : other.ways) {
        std::vector<double> taken;
        for (int i = 0; i < TRIES; ++i)
            taken.push_back(batch_seconds(run, count));
        middles.push_back(median(taken));
    }
    return other.ways[static_cast<std::size_t>(std::ranges::min_element(middles) - middles.begin())];
}

void compare(const std::string &figure, way setup, way ours, std::vector<rival> rivals, int measurements) {
    const std::size_t first = rows.size();
    for (const rival &other : rivals)
        rows.push_back({figure, other.name, {}, {true, other.at_least}});
    const auto body = [=](benchmark::State &state) {
        int batch = 0, taken = 0;
        std::vector<way> others;
        for ([[maybe_unused]] const auto _ : state) {
            if (taken++ % MEASUREMENTS_OF_SETUP == 0) {
                setup();
                batch = batch_for(ours);
                others.clear();
                for (const rival &other : rivals)
                    others.push_back(fastest(other, batch));
            }
            double own = 0;
            for (std::size_t i = 0; i < rivals.size(); ++i) {
                own = batch_seconds(ours, batch);
                rows[first + i].measured.push_back(batch_seconds(others[i], batch) / own);
            }
            state.SetIterationTime(own / batch);
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
