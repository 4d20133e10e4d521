// splash.cpp: the list of all puzzles, the reveal, and the way on.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/splash.h"

#include "core/base/app_state.h"
#include "core/base/puzzle_info.h"
#include "core/ui/screen.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "screens/common.h"
#include "screens/title_pictures.h"
#include "screens/wipes.h"

namespace {

constexpr i32 BUTTON_X = 659, WEB_Y = 444, GO_Y = 480;
constexpr i32 REVEALED_X = 234, REVEALED_Y = 145;
constexpr i32 REVEAL_START = 3, REVEAL_STEP = 20, REVEAL_MARGIN = 10; // pixels of width
constexpr i32 AFTER_WIPE_QUIT = -1;

constexpr u32 SPLASH_REDRAW = 0x1; // draw the background again
constexpr u32 SPLASH_PICTURE_DRAWN = 0x2;
constexpr u32 SPLASH_BUTTONS_SHOWN = 0x4;

struct splash_state {
    image *splash_pictures[SPLASH_SET.count]; // owned
    ptr_array<button> *buttons;               // owned
    button *hovered;
    i32 reveal_width; // grows until the picture and the buttons are shown
    u32 splash_flags;
    i32 after_wipe; // a screen_id or AFTER_WIPE_QUIT
};
splash_state splash;

i32 reveal_end() {
    return splash.splash_pictures[SPLASH_SCENE]->width + REVEAL_MARGIN;
}

void wipe_and_go(button *, std::intptr_t, std::intptr_t) {
    wipe_to_black();
    splash.splash_flags &= ~SPLASH_BUTTONS_SHOWN; // or this frame would draw them on the black window
    if (splash.after_wipe == AFTER_WIPE_QUIT)
        app_request_quit();
    else
        screen_request(static_cast<screen_id>(splash.after_wipe));
}

void set_layout(const set_part &go_button, i32 target) {
    ptr_array_clear(splash.buttons);
    splash.hovered = nullptr;
    add_button(splash.buttons, splash.splash_pictures, SPLASH_WEB_BUTTON, {BUTTON_X, WEB_Y}, quit_to_web_page);
    add_button(splash.buttons, splash.splash_pictures, go_button, {BUTTON_X, GO_Y}, wipe_and_go);
    splash.reveal_width = REVEAL_START;
    splash.after_wipe = target;
}

void draw_background() {
    draw_image_bg(title_image_background(), 0, 0);
    const image *bottom = splash.splash_pictures[SPLASH_FOOTER];
    draw_image_bg(bottom, center_x(bottom->width), FOOTER_BOTTOM - bottom->height);
    for (i32 row = 0; row < PUZZLE_COUNT; ++row) {
        const i32 type = PUZZLE_LIST_ORDER[row];
        draw_image_bg(title_image_plate(type), LIST_X, LIST_Y + LIST_PITCH * row);
        text_draw(puzzle_title(type), LIST_TEXT_X, LIST_TEXT_Y + LIST_PITCH * row, LIGHT_GREY, TEXT_TO_BG);
    }
    draw_image_bg(title_image_heading(), HEADING_X, HEADING_Y);
    draw_restore(WHOLE_SCREEN);
}

} // namespace

void splash_layout_opening() {
    set_layout(SPLASH_GO_BUTTON, SCREEN_TITLE);
}

void splash_layout_closing() {
    set_layout(SPLASH_QUIT_BUTTON, AFTER_WIPE_QUIT);
}

i32 splash_init() {
    if (image_load_sequence(splash.splash_pictures, SPLASH_SET.count, SPLASH_SET.prefix) < 0)
        return -1;
    splash.buttons = ptr_array_create<button>(button_free);
    if (splash.buttons == nullptr)
        return -1;
    splash_layout_opening();
    return 1;
}

void splash_enter() {
    cursor_select(CURSOR_ARROW);
    cursor_show(true);
    splash.splash_flags = SPLASH_REDRAW;
    splash.hovered = nullptr;
}

void splash_update() {
    if (splash.reveal_width < reveal_end()) {
        splash.reveal_width += REVEAL_STEP;
    } else {
        splash.reveal_width = reveal_end();
        splash.splash_flags |= SPLASH_BUTTONS_SHOWN;
    }
    if ((splash.splash_flags & SPLASH_BUTTONS_SHOWN) == 0)
        return;
    buttons_follow_mouse(&splash.hovered, button_tick_and_find(splash.buttons, mouse_x, mouse_y));
}

void splash_draw() {
    if (take_flag(&splash.splash_flags, SPLASH_REDRAW))
        draw_background();
    if (splash.reveal_width >= reveal_end() && (splash.splash_flags & SPLASH_PICTURE_DRAWN) == 0) {
        draw_image_bg_show(splash.splash_pictures[SPLASH_SCENE], REVEALED_X, REVEALED_Y);
        splash.splash_flags |= SPLASH_PICTURE_DRAWN;
    }
    if ((splash.splash_flags & SPLASH_BUTTONS_SHOWN) != 0)
        draw_buttons(splash.buttons);
}

void splash_shutdown() {
    image_free_array(splash.splash_pictures, SPLASH_SET.count);
    ptr_array_destroy(splash.buttons);
    splash = {};
}
