// stored_files.h: the bytes of the program's two small files, written and read without the program's own code.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "support/archive_builder.h"

#include <optional>
#include <set>

file_bytes stored_prefs(const std::string &name);
file_bytes stored_scores(const std::string &name, int runs); // so many of each puzzle; everything is this name's

// The names in the logs of all puzzles and among the players; nothing when the file is not whole.
std::optional<std::set<std::string>> names_in_scores(const file_bytes &bytes);
std::optional<std::string> name_in_prefs(const file_bytes &bytes);
