// dialog.cpp: the answer buttons of the dialogs (yes, no, OK).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "buttons.h"
#include "screens/picture_sets.h"
#include "sets.h"

namespace art {

namespace {

struct answer {
    set_part pictures;
    icon pictogram;
    const char *label;
};

constexpr answer ANSWERS[] = {
    {DIALOG_YES_BUTTON, icon::tick, "Yes"},
    {DIALOG_NO_BUTTON, icon::cross, "No"},
    {DIALOG_OK_BUTTON, icon::none, "OK"},
};
constexpr button_style STYLE = {.width = 84, .height = 31};

} // namespace

void make_dialog() {
    for (const answer &a : ANSWERS)
        save_button(STYLE, a.pictogram, a.label, DIALOG_SET, a.pictures);
}

} // namespace art
