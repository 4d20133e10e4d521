// main.cpp: runs the benchmarks and prints their rows. Started in the folder of the program, for its archive.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "benches.h"

#include "core/base/log.h"
#include "pairs.h"
#include "resources/archive.h"

#include <SDL.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>

int main(int count, char **arguments) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    log_set_mode(LOG_STDERR);
    if (SDL_Init(SDL_INIT_VIDEO) < 0 || data_archive_open() < 0)
        return EXIT_FAILURE;
    add_blit_benches();
    add_xpm_benches();
    add_mix_benches();
    add_growth_benches();
    benchmark::Initialize(&count, arguments);
    // Google Benchmark's own report goes to standard error, the table to standard output.
    benchmark::ConsoleReporter report(benchmark::ConsoleReporter::OO_None);
    report.SetOutputStream(&std::cerr);
    report.SetErrorStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&report);
    pairs_print();
    SDL_Quit();
    return EXIT_SUCCESS;
}
