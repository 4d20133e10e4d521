// fail.h: how the programs that are not the game give up: an exception with a sentence for the user, caught at the top.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

[[noreturn]] inline void fail(const std::string &message) {
    throw std::runtime_error(message);
}

// What run() returns; after a failure EXIT_FAILURE, with the sentence on standard error.
template <class Run> int exit_code_of(const char *program, Run run) {
    try {
        return run();
    } catch (const std::exception &failure) {
        std::fprintf(stderr, "%s: %s\n", program, failure.what());
        return EXIT_FAILURE;
    }
}
