// robot.cpp: progress, giving up, cleaning up.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "robot.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

static const auto start = std::chrono::steady_clock::now();
static std::vector<std::function<void(bool)>> end_steps;

void robot_say(const std::string &what) {
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    std::printf("%6.1f  %s\n", passed.count(), what.c_str());
    std::fflush(stdout);
}

static void end(bool failed) {
    while (!end_steps.empty()) {
        const auto step = std::move(end_steps.back());
        end_steps.pop_back();
        step(failed);
    }
}

void robot_give_up(const std::string &expected) {
    robot_say("FAILED: expected that " + expected);
    end(true);
    std::fflush(stdout);
    std::_Exit(EXIT_FAILURE);
}

void robot_expect(bool holds, const std::string &expected) {
    if (!holds)
        robot_give_up(expected);
}

void robot_at_end(std::function<void(bool)> step) {
    end_steps.push_back(std::move(step));
}

void robot_finish() {
    end(false);
}
