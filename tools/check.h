// check.h: what is wrong with an archive, measured against the table of entries: all of it in one go. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "archive_file.h"
#include "xpm_reading.h"

#include <string>
#include <vector>

struct finding {
    std::string name;   // of the entry
    std::string found;  // what is there
    std::string needed; // what the game needs there
};

std::string finding_text(const finding &f); // one line, without a line feed

// In the order of the table, then what is superfluous. Empty: the game starts with this archive and shows all of it.
std::vector<finding> check_archive(const archive_file &archive);

// A picture of the archive; without a result when there is none or it cannot be read.
xpm_reading archive_picture(const archive_file &archive, const std::string &name);
