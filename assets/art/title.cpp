// title.cpp: writes the title's 58 pictures. Buttons and parts are drawn elsewhere; here stands which number
// each of them has.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "title.h"

#include "buttons.h"
#include "night.h"
#include "palette.h"
#include "sets.h"
#include "title_boards.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace art {
namespace {

constexpr int PICTURES = 58;
// Files are numbered from 1.
constexpr int BACKGROUND = 1, FIRST_ROW = 2, FIRST_BOARD = 13, HEADING = 42, CRAFT_TABLE = 43, STAR = 47,
              NUMBER_LINE = 51, SUB_HEADING = 55;

constexpr button_style HONEY = {.width = 136, .height = 31};
constexpr button_style GREEN = {.width = 136, .height = 31, .green = true};

struct title_button {
    std::array<int, 3> files; // normal, hovered, pressed
    const button_style &style;
    icon pictogram;
    const char *label;
};

constexpr title_button BUTTONS[] = {
    {{26, 32, 38}, HONEY, icon::bars, "Best times"}, {{27, 33, 39}, HONEY, icon::pencil, "Name"},
    {{28, 34, 40}, HONEY, icon::question, "Help"},   {{29, 35, 41}, HONEY, icon::door, "Exit"},
    {{44, 45, 46}, HONEY, icon::person, "Credits"},  {{48, 49, 50}, HONEY, icon::globe, "Web page"},
    {{56, 57, 58}, GREEN, icon::book, "Study"},
};

// Files that the screens load with the others but never draw.
constexpr int SPARES[] = {24, 25, 30, 31, 36, 37, 52, 53, 54};

// Every file has exactly one owner.
constexpr bool every_file_once() {
    std::array<int, PICTURES + 1> uses = {};
    for (const int file : {BACKGROUND, HEADING, CRAFT_TABLE, STAR, NUMBER_LINE, SUB_HEADING})
        ++uses[static_cast<std::size_t>(file)];
    for (std::size_t type = 0; type < PUZZLE_LOOKS.size(); ++type) {
        ++uses[FIRST_ROW + type];
        ++uses[FIRST_BOARD + type];
    }
    for (const title_button &button : BUTTONS)
        for (const int file : button.files)
            ++uses[static_cast<std::size_t>(file)];
    for (const int file : SPARES)
        ++uses[static_cast<std::size_t>(file)];
    return std::all_of(uses.begin() + 1, uses.end(), [](int count) { return count == 1; });
}
static_assert(every_file_once());

std::string title_file(int file) {
    return numbered("title/", file);
}

} // namespace

void make_title() {
    constexpr finish DITHERED = {.dither = true};
    constexpr double SOFT = 0.08; // coverage from which a pixel on a known ground is kept
    constexpr int SUB_HEADING_X = 200, SUB_HEADING_Y = 107;
    save(night_board(), title_file(BACKGROUND), DITHERED);
    for (int type = 0; type < static_cast<int>(PUZZLE_LOOKS.size()); ++type) {
        save(draw_list_row(type), title_file(FIRST_ROW + type), DITHERED);
        save(draw_board_picture(type), title_file(FIRST_BOARD + type), DITHERED);
    }
    for (const title_button &button : BUTTONS)
        for (std::size_t state = 0; state < BUTTON_STATES.size(); ++state)
            save(draw_button(button.style, BUTTON_STATES[state], button.pictogram, button.label),
                 title_file(button.files[state]), DITHERED);
    save(draw_heading(), title_file(HEADING), DITHERED);
    save(draw_craft_table(), title_file(CRAFT_TABLE), DITHERED);
    save(draw_master_star(), title_file(STAR));
    save_number_line(title_file(NUMBER_LINE));
    save(draw_sub_heading(), title_file(SUB_HEADING),
         {.ground = night_colour(SUB_HEADING_X, SUB_HEADING_Y), .threshold = SOFT});
    for (const int file : SPARES)
        save(draw_spare(), title_file(file));
}

} // namespace art
