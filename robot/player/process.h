// process.h: the programs that the robot starts.
//
// One thread. Nothing that was started outlives the robot, not even one that is killed.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

// Starts a program with these words, in `folder`; standard output and error go to the file `output`. Its process id.
pid_t process_start(const std::vector<std::string> &words, const std::string &output = "/dev/null",
                    const std::string &folder = ".");
void process_stop(pid_t id); // asks it to end, then makes it
