// robot.h: how the robot says what it does, and how it ends.
//
// One thread. Giving up prints one sentence, runs the steps of robot_at_end and exits with 1.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <functional>
#include <string>

void robot_say(const std::string &what); // a line of progress, with the seconds since the start

// `expected` completes the sentence "expected that ...".
[[noreturn]] void robot_give_up(const std::string &expected);

// Gives up unless it holds.
void robot_expect(bool holds, const std::string &expected);

// Runs at every end, in reverse order of these calls: last words, stopping programs, removing files.
void robot_at_end(std::function<void(bool failed)> step);
void robot_finish(); // the ordinary end
