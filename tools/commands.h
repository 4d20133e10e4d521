// commands.h: what all commands of the tool take and return.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <filesystem>
#include <string>
#include <vector>

inline constexpr int EXIT_FOUND = 1; // of check and diff: there is something to report; of all: it failed
inline constexpr int EXIT_USAGE = 2;

struct command_options {
    bool quiet = false;           // only what was asked for, and failures
    bool raw = false;             // extract: XPM as it is, not as PNG
    std::filesystem::path output; // replace: the archive to write; empty for the one that is read
};

// Those after the command's name.
using command_arguments = std::vector<std::string>;
