// matching.h: entry names against the patterns of a command line.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <algorithm>
#include <fnmatch.h>
#include <string>
#include <vector>

struct name_patterns {
    std::vector<std::string> patterns;

    // The arguments from `first` on; none at all match every name.
    name_patterns(const std::vector<std::string> &arguments, std::size_t first)
        : patterns(arguments.begin() + static_cast<std::ptrdiff_t>(first), arguments.end()) {}

    [[nodiscard]] bool given() const { return !patterns.empty(); }
    [[nodiscard]] bool match(const std::string &name) const {
        return !given() || std::any_of(patterns.begin(), patterns.end(), [&](const std::string &pattern) {
            return fnmatch(pattern.c_str(), name.c_str(), 0) == 0;
        });
    }
};
