// splash.cpp: writes the pictures of the first and last screen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "buttons.h"
#include "night.h"
#include "save.h"
#include "screens/picture_sets.h"
#include "sets.h"
#include "spares.h"
#include "splash_scene.h"

namespace art {
namespace {

struct splash_button {
    set_part pictures;
    bool green;
    icon pictogram;
    const char *label;
};

constexpr splash_button BUTTONS[] = {
    {SPLASH_WEB_BUTTON, false, icon::globe, "Web page"},
    {SPLASH_GO_BUTTON, true, icon::play, "Continue"},
    {SPLASH_QUIT_BUTTON, false, icon::door, "Quit"},
};

} // namespace

void make_splash() {
    constexpr int BUTTON_W = 136, BUTTON_H = 31;
    save_number_line(entry_of(SPLASH_SET, SPLASH_FOOTER));
    save(draw_splash_scene(), entry_of(SPLASH_SET, SPLASH_SCENE), {.dither = true});
    for (const splash_button &button : BUTTONS)
        save_button({.width = BUTTON_W, .height = BUTTON_H, .green = button.green}, button.pictogram, button.label,
                    SPLASH_SET, button.pictures);
    for (const set_part &spares : SPLASH_SPARES)
        save_spares(SPLASH_SET, spares);
}

} // namespace art
