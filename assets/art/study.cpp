// study.cpp: the buttons of the study screen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "buttons.h"
#include "screens/picture_sets.h"
#include "sets.h"

namespace art {

namespace {

struct study_button {
    set_part pictures;
    icon pictogram;
    const char *label;
    bool green = false;
};

constexpr study_button BUTTONS[] = {
    {STUDY_BACK_BUTTON, icon::back, "Back"},       {STUDY_HELP_BUTTON, icon::question, "Help"},
    {STUDY_CLEAR_BUTTON, icon::spaces, "Clear"},   {STUDY_FILL_BUTTON, icon::grid, "Fill"},
    {STUDY_PLAY_BUTTON, icon::play, "Play", true},
};
constexpr int WIDTH = 107, HEIGHT = 31; // pixels; wider ones would cover the widest boards

} // namespace

void make_study() {
    for (const study_button &b : BUTTONS)
        save_button({.width = WIDTH, .height = HEIGHT, .green = b.green}, b.pictogram, b.label, STUDY_SET, b.pictures);
}

} // namespace art
