// title.cpp: writes the title's pictures. Buttons and parts are drawn elsewhere.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "buttons.h"
#include "night.h"
#include "palette.h"
#include "save.h"
#include "screens/picture_sets.h"
#include "sets.h"
#include "spares.h"
#include "title_boards.h"
#include "title_rows.h"
#include "title_table.h"

namespace art {
namespace {

constexpr button_style HONEY = {.width = 136, .height = 31};
constexpr button_style GREEN = {.width = 136, .height = 31, .green = true};

struct title_button {
    set_part pictures;
    const button_style &style;
    icon pictogram;
    const char *label;
};

constexpr title_button BUTTONS[] = {
    {TITLE_SCORES_BUTTON, HONEY, icon::bars, "Best times"}, {TITLE_NAME_BUTTON, HONEY, icon::pencil, "Name"},
    {TITLE_HELP_BUTTON, HONEY, icon::question, "Help"},     {TITLE_EXIT_BUTTON, HONEY, icon::door, "Exit"},
    {TITLE_CREDITS_BUTTON, HONEY, icon::person, "Credits"}, {TITLE_WEB_BUTTON, HONEY, icon::globe, "Web page"},
    {TITLE_STUDY_BUTTON, GREEN, icon::book, "Study"},
};

std::string entry(int picture) {
    return entry_of(TITLE_SET, picture);
}

} // namespace

void make_title() {
    constexpr finish DITHERED = {.dither = true};
    constexpr double SOFT = 0.08; // coverage from which a pixel on a known ground is kept
    constexpr int SUB_HEADING_X = 200, SUB_HEADING_Y = 107;
    save(night_board(), entry(TITLE_BACKGROUND), DITHERED);
    for (int type = 0; type < PUZZLE_COUNT; ++type) {
        save(draw_list_row(type), entry(TITLE_ROWS[type]), DITHERED);
        save(draw_board_picture(type), entry(TITLE_PUZZLES[type]), DITHERED);
    }
    for (const title_button &button : BUTTONS)
        save_button(button.style, button.pictogram, button.label, TITLE_SET, button.pictures);
    save(draw_heading(), entry(TITLE_HEADING), DITHERED);
    save(draw_craft_table(), entry(TITLE_TABLE), DITHERED);
    save(draw_master_star(), entry(TITLE_MASTER_MARK));
    save_number_line(entry(TITLE_FOOTER));
    save(draw_sub_heading(), entry(TITLE_SUBHEADING),
         {.ground = night_colour(SUB_HEADING_X, SUB_HEADING_Y), .threshold = SOFT});
    for (const set_part &spares : TITLE_SPARES)
        save_spares(TITLE_SET, spares);
}

} // namespace art
