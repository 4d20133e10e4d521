// files.h: whole files in and out. A file is written beside its final name and renamed, so that none is ever seen
// half-written. Failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

std::string file_read(const std::filesystem::path &path);

// Writes the pieces one after the other.
void file_write(const std::filesystem::path &path, std::span<const std::string_view> pieces);

// The names of the files below a folder, relative to it and with '/', sorted.
std::vector<std::string> folder_files(const std::filesystem::path &folder);

bool path_lies_in(const std::filesystem::path &path, const std::filesystem::path &folder); // links followed
