// study.cpp: the buttons of the study screen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "buttons.h"
#include "sets.h"

namespace art {

namespace {

struct study_button {
    icon pictogram;
    const char *label;
    bool green = false;
};

// In the order of the pictures, each in three states.
constexpr study_button BUTTONS[] = {
    {icon::back, "Back"}, {icon::question, "Help"},   {icon::spaces, "Clear"},
    {icon::grid, "Fill"}, {icon::play, "Play", true},
};
constexpr int WIDTH = 107, HEIGHT = 31; // pixels; wider ones would cover the widest boards

} // namespace

void make_study() {
    int number = 0;
    for (const study_button &b : BUTTONS) {
        const button_style style = {.width = WIDTH, .height = HEIGHT, .green = b.green};
        for (const button_state state : BUTTON_STATES)
            save(draw_button(style, state, b.pictogram, b.label), numbered("study/", ++number), {.dither = true});
    }
}

} // namespace art
