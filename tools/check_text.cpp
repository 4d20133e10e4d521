// check_text.cpp: the font's letters, and texts measured with them by the game's own routines.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "check_text.h"

#include "core/base/puzzle_info.h"
#include "entry_names.h"
#include "graphics/glyph_names.h"
#include "graphics/glyphs.h"
#include "graphics/text.h"
#include "screens/study_text.h"

#include <algorithm>
#include <cstdio>

namespace {

// The table's glyphs need a picture only to exist: measuring never looks at it.
image measured_glyph = {};

// Rows without ink above the ink; 0 where there is none at all.
i32 empty_rows(const raster &p) {
    const auto ink = std::find_if(p.pixels.begin(), p.pixels.end(), [](u32 pixel) { return pixel != 0; });
    return ink == p.pixels.end() ? 0 : static_cast<i32>(ink - p.pixels.begin()) / p.width;
}

void load_glyph(char c, const std::string &name, const raster &p, std::vector<finding> *findings) {
    const i32 below = empty_rows(p), above = p.height - below;
    glyphs[static_cast<u8>(c)] = {.working = &measured_glyph,
                                  .source = nullptr,
                                  .width = p.width,
                                  .height = p.height,
                                  .top = below,
                                  .red = 0,
                                  .green = 0,
                                  .blue = 0};
    if (above > KIT_GLYPH_ABOVE || below > KIT_GLYPH_BELOW)
        findings->push_back({name,
                             "a letter that reaches " + std::to_string(above) + " above and " + std::to_string(below) +
                                 " below its line",
                             "at most " + std::to_string(KIT_GLYPH_ABOVE) + " above and " +
                                 std::to_string(KIT_GLYPH_BELOW) + " below: lines of text stand " +
                                 std::to_string(TEXT_LINE_HEIGHT) + " apart"});
}

std::string character_text(char c) {
    char text[16];
    const auto code = static_cast<u8>(c);
    std::snprintf(text, sizeof text, code > ' ' && code < 0x7F ? "'%c'" : "byte %02X", code);
    return text;
}

// Characters that the font lacks, each once, at its first place. A line feed ends a line.
void check_characters(const kit_entry &entry, const std::string &text, std::vector<finding> *findings) {
    bool reported[GLYPH_SLOTS] = {};
    i32 line = 1, column = 1;
    for (const char c : text) {
        const auto code = static_cast<u8>(c);
        if (c == '\n') {
            ++line;
            column = 0;
        } else if (!glyph_exists(glyphs[code]) && !reported[code]) {
            reported[code] = true;
            findings->push_back({entry.name,
                                 "the character " + character_text(c) + " in line " + std::to_string(line) +
                                     ", column " + std::to_string(column),
                                 "only characters that the font has (A-Z a-z 0-9 and plain punctuation)"});
        }
        ++column;
    }
}

std::string wrapped(const std::string &text) {
    std::string copy = text;
    text_wrap(copy.data(), STUDY_TEXT_WIDTH);
    return copy;
}

} // namespace

void check_font(const archive_file &archive, std::vector<finding> *findings) {
    std::fill(std::begin(glyphs), std::end(glyphs), glyph{});
    bool complete = true;
    each_glyph([&](char c, std::string_view glyph_name) {
        const std::string name = entry_of_glyph(glyph_name);
        const xpm_reading reading = archive_picture(archive, name);
        complete = complete && reading.result;
        if (reading.result)
            load_glyph(c, name, *reading.result, findings);
    });
    for (const puzzle_info &puzzle : PUZZLE_INFOS) {
        const i32 width = text_measure(puzzle.title).width;
        if (complete && width > KIT_TITLE_WIDTH)
            findings->push_back(
                {PICTURE_FOLDER + std::string(GLYPH_FOLDER),
                 "letters that make the title \"" + std::string(puzzle.title) + "\" " + std::to_string(width) + " wide",
                 "at most " + std::to_string(KIT_TITLE_WIDTH) + ": the list of puzzles is no wider"});
    }
}

void check_text(const kit_entry &entry, const archive_file &archive, std::vector<finding> *findings) {
    const std::string &text = archive_find(archive, entry.name)->bytes;
    const std::size_t before = findings->size();
    check_characters(entry, text, findings);
    if (findings->size() > before)
        return; // its lines cannot be measured
    const std::string lines = wrapped(text);
    const text_size size = text_measure(lines.c_str());
    if (size.width > STUDY_TEXT_WIDTH)
        findings->push_back({entry.name, "a word or line " + std::to_string(size.width) + " wide that cannot be broken",
                             "spaces, so that lines are at most " + std::to_string(STUDY_TEXT_WIDTH) + " wide"});
    const xpm_reading board = archive_picture(archive, entry_of_puzzle(entry.puzzle, PICTURE_BOARD));
    const xpm_reading strip = archive_picture(archive, entry_of_puzzle(entry.puzzle, PICTURE_STUDY_HELP));
    if (!board.result || !strip.result)
        return;
    const i32 first_row =
        PUZZLE_LAYOUTS[entry.puzzle].study_top + board.result->height + KIT_STRIP_GAP + strip.result->height;
    if (STUDY_TEXT_Y - size.height < first_row) {
        const i32 room = (STUDY_TEXT_Y - first_row) / TEXT_LINE_HEIGHT;
        findings->push_back(
            {entry.name, std::to_string(std::count(lines.begin(), lines.end(), '\n') + 1) + " lines of text",
             "at most " + std::to_string(room) + ": there is no more room below the board and its strip"});
    }
}
