// robot.h: how the robot says what it does and how it gives up.
//
// One thread. Giving up prints one sentence, saves what the screen shows, stops every program that the robot has
// started and exits with 1.
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

// Runs when the robot gives up, in reverse order of these calls: screenshot, last words of the game, cleaning up.
void robot_on_give_up(std::function<void()> step);
void robot_at_end(std::function<void()> step); // likewise, but at every end
void robot_clean_up();                         // runs the steps of robot_at_end; the ordinary end
