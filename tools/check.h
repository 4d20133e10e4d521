// check.h: what is wrong with an archive, measured against the table of entries: all of it in one go. Main thread; it
// uses the game's own table of glyphs to measure texts.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "archive_file.h"
#include "entries.h"

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

// The faults of one entry by itself.
void check_picture(const kit_entry &entry, const archive_file &archive, std::vector<finding> *findings);
void check_sound(const kit_entry &entry, const std::string &bytes, std::vector<finding> *findings);

// Loads the archive's font for measuring, checks how its letters stand on the line and that the puzzles' titles fit.
void check_font(const archive_file &archive, std::vector<finding> *findings);

// With the font of check_font: whether it has the text's characters, and whether the text fits under its board.
void check_text(const kit_entry &entry, const archive_file &archive, std::vector<finding> *findings);

// A picture of the archive; without a result when there is none or it cannot be read.
struct raster;
struct xpm_reading;
xpm_reading archive_picture(const archive_file &archive, const std::string &name);

// Rate, channels and seconds of a sound; without seconds when it cannot be decoded.
struct sound_facts {
    i32 rate, channels;
    double seconds;
    std::string fault; // empty for none
};
sound_facts sound_measure(const std::string &bytes);
