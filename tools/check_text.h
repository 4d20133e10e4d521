// check_text.h: whether the font and the texts set in it fit. Main thread; it uses the game's own table of glyphs.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "check.h"
#include "entries.h"

// Loads the archive's font for measuring, checks how its letters stand on the line and that the puzzles' titles fit.
void check_font(const archive_file &archive, std::vector<finding> *findings);

// With the font of check_font: whether it has the text's characters, and whether the text fits under its board.
void check_text(const kit_entry &entry, const archive_file &archive, std::vector<finding> *findings);
