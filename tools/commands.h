// commands.h: what the tool does: one function a command. Failures are exceptions (fail.h).
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

// Each takes the arguments after its name and returns the exit code.
using command_arguments = std::vector<std::string>;
int command_pack(const command_arguments &arguments, const command_options &options);
int command_list(const command_arguments &arguments, const command_options &options);
int command_extract(const command_arguments &arguments, const command_options &options);
int command_replace(const command_arguments &arguments, const command_options &options);
int command_check(const command_arguments &arguments, const command_options &options);
int command_diff(const command_arguments &arguments, const command_options &options);
int command_rules(const command_arguments &arguments, const command_options &options);
