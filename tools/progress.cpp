// progress.cpp: drawing the bar, ten times a second at most.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "progress.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr std::size_t CELLS = 40, PERCENT = 100;
constexpr auto QUIET_FOR = 2s;
constexpr auto REDRAW_EVERY = 100ms;

} // namespace

progress::progress(const char *the_verb, std::size_t total_steps)
    : verb(the_verb), total(std::max<std::size_t>(total_steps, 1)),
      terminal(progress_wanted && isatty(STDERR_FILENO) != 0), start(std::chrono::steady_clock::now()), last(start) {}

progress::~progress() {
    if (shown)
        std::fputc('\n', stderr);
}

void progress_step(progress *bar) {
    ++bar->done;
    const auto now = std::chrono::steady_clock::now();
    if (!bar->terminal || now - bar->start < QUIET_FOR || (now - bar->last < REDRAW_EVERY && bar->done < bar->total))
        return;
    std::string cells(CELLS, ' ');
    std::fill_n(cells.begin(), std::min(bar->done * CELLS / bar->total, CELLS), '#');
    std::fprintf(stderr, "\r%s [%s] %3zu%%", bar->verb, cells.c_str(), bar->done * PERCENT / bar->total);
    bar->shown = true;
    bar->last = now;
}
