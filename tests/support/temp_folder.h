// temp_folder.h: a folder that a test works in: GAME/bin to be started in, GAME/data for the program's files.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <filesystem>
#include <string>
#include <vector>

using file_bytes = std::vector<unsigned char>;

// Makes GAME/bin and GAME/data in a new temporary folder and GAME/bin the working directory; the end of the
// scope brings back the old one, deletes everything and switches the log back to standard error.
struct temp_game {
    std::filesystem::path root; // GAME

    temp_game();
    ~temp_game();
    temp_game(const temp_game &) = delete;
    temp_game &operator=(const temp_game &) = delete;

    std::filesystem::path data(const std::string &name) const { return root / "data" / name; }

    // Sends the log to GAME/bin/errorlog.log from now on; and what it holds, without the process ids.
    void log_to_file() const;
    std::string log_text() const;

private:
    std::filesystem::path before; // the working directory to return to
};

file_bytes read_file(const std::filesystem::path &path); // empty when there is no such file
void write_file(const std::filesystem::path &path, const file_bytes &bytes);
file_bytes to_bytes(const std::string &text);
std::string masked_digits(std::string text); // every digit as 0: the form of a date
