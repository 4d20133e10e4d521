// splash.cpp: writes the thirteen pictures of the first and last screen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "buttons.h"
#include "night.h"
#include "sets.h"
#include "splash_scene.h"
#include "title.h"

#include <cstddef>

namespace art {
namespace {

struct splash_button {
    int first_file; // of three: normal, hovered, pressed
    bool green;
    icon pictogram;
    const char *label;
};

constexpr splash_button BUTTONS[] = {
    {4, false, icon::globe, "Web page"},
    {7, true, icon::play, "Continue"},
    {11, false, icon::door, "Quit"},
};
constexpr int NUMBER_LINE = 2, SCENE = 10;
constexpr int SPARES[] = {1, 3}; // loaded with the others, never drawn

} // namespace

void make_splash() {
    constexpr finish DITHERED = {.dither = true};
    constexpr int BUTTON_W = 136, BUTTON_H = 31;
    save_number_line(numbered("splash/", NUMBER_LINE));
    save(draw_splash_scene(), numbered("splash/", SCENE), DITHERED);
    for (const splash_button &button : BUTTONS)
        for (std::size_t state = 0; state < BUTTON_STATES.size(); ++state)
            save(draw_button({.width = BUTTON_W, .height = BUTTON_H, .green = button.green}, BUTTON_STATES[state],
                             button.pictogram, button.label),
                 numbered("splash/", button.first_file + static_cast<int>(state)), DITHERED);
    for (const int file : SPARES)
        save(draw_spare(), numbered("splash/", file));
}

} // namespace art
