// moments.cpp: those who listen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "moments.h"

#include <utility>

static moment_listener heard_by = [](moment, const puzzle_kind *) {};
static const puzzle_kind *about;

void moments_listen(moment_listener listener) {
    heard_by = std::move(listener);
}

void moments_about(const puzzle_kind *puzzle) {
    about = puzzle;
}

void moments_tell(moment what) {
    heard_by(what, about);
}
