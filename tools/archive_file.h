// archive_file.h: an archive as a list of named entries in memory, read from a file and written to one. Failures are
// exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

struct archive_entry {
    std::string name; // with '/'
    std::string bytes;
};

// A place where the directory or an entry is damaged: an entry's name, or the archive's own path.
struct archive_damage {
    std::string where, what;
};

struct archive_file {
    std::vector<archive_entry> entries; // in the order of the directory; without the damaged ones
    std::vector<archive_damage> damage;
};

// Fails when there is no file, or when it is not an archive at all. Damage within is noted in the result.
archive_file archive_read(const std::filesystem::path &path);

// Likewise, but fails with the first damage.
archive_file archive_read_sound(const std::filesystem::path &path);

void archive_write(const std::filesystem::path &path, const std::vector<archive_entry> &entries);

// The entry of this name, the first where there are several; null for none.
const archive_entry *archive_find(const archive_file &archive, std::string_view name);
