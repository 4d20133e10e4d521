// dialog.cpp: the answer buttons of the dialogs (yes, no, OK).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "buttons.h"
#include "sets.h"

namespace art {

namespace {

struct answer {
    icon pictogram;
    const char *label;
};

// In the order of the pictures, each in three states.
constexpr answer ANSWERS[] = {
    {icon::tick, "Yes"},
    {icon::cross, "No"},
    {icon::none, "OK"},
};
constexpr button_style STYLE = {.width = 84, .height = 31};

} // namespace

void make_dialog() {
    int number = 0;
    for (const answer &a : ANSWERS) {
        for (const button_state state : BUTTON_STATES)
            save(draw_button(STYLE, state, a.pictogram, a.label), numbered("dialog/", ++number), {.dither = true});
    }
}

} // namespace art
