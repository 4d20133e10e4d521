// splash.cpp: the list of all puzzles, the reveal, and the wipe to black.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/splash.h"

#include "core/base/app_state.h"
#include "core/base/puzzle_info.h"
#include "core/base/screen_id.h"
#include "core/ui/button.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "screens/common.h"
#include "screens/title_pictures.h"
#include "screens/wipes.h"

namespace {

// Places in the set; buttons are followed by their hover and pressed pictures.
enum splash_picture : i32 {
    PICTURE_BOTTOM = 1,
    PICTURE_WEB = 3,
    PICTURE_CONTINUE = 6,
    PICTURE_REVEALED = 9,
    PICTURE_QUIT = 10,
    PICTURE_COUNT = 13
};

constexpr i32 BUTTON_X = 659, WEB_Y = 444, GO_Y = 480;
constexpr i32 REVEALED_X = 234, REVEALED_Y = 145;
constexpr i32 REVEAL_START = 3, REVEAL_STEP = 20, REVEAL_MARGIN = 10; // pixels of width
constexpr i32 AFTER_WIPE_QUIT = -1;

constexpr u32 SPLASH_FIRST_FRAME = 0x1;
constexpr u32 SPLASH_PICTURE_DRAWN = 0x2;
constexpr u32 SPLASH_BUTTONS_SHOWN = 0x4;

image *splash_pictures[PICTURE_COUNT];
ptr_array<button> *buttons = nullptr;
button *hovered = nullptr;
i32 reveal_width = 0; // grows until the picture and the buttons are shown
u32 splash_flags = 0;
i32 after_wipe = SCREEN_TITLE; // or AFTER_WIPE_QUIT

i32 reveal_end() {
    return splash_pictures[PICTURE_REVEALED]->width + REVEAL_MARGIN;
}

void wipe_and_go(button *, std::intptr_t, std::intptr_t) {
    wipe_to_black();
    splash_flags &= ~SPLASH_BUTTONS_SHOWN; // or this frame would draw them on the black window
    if (after_wipe == AFTER_WIPE_QUIT)
        app_request_quit();
    else
        screen_request(static_cast<screen_id>(after_wipe));
}

void set_layout(splash_picture go_picture, i32 target) {
    ptr_array_clear(buttons);
    hovered = nullptr;
    button_add(buttons, splash_pictures + PICTURE_WEB, BUTTON_X, WEB_Y, quit_to_web_page);
    button_add(buttons, splash_pictures + go_picture, BUTTON_X, GO_Y, wipe_and_go);
    reveal_width = REVEAL_START;
    after_wipe = target;
}

void draw_first_frame() {
    draw_image_bg(title_image_background(), 0, 0);
    const image *bottom = splash_pictures[PICTURE_BOTTOM];
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
    set_layout(PICTURE_CONTINUE, SCREEN_TITLE);
}

void splash_layout_closing() {
    set_layout(PICTURE_QUIT, AFTER_WIPE_QUIT);
}

i32 splash_init() {
    if (image_load_sequence(splash_pictures, PICTURE_COUNT, "splash/") < 0)
        return -1;
    buttons = ptr_array_create<button>(button_free);
    if (buttons == nullptr)
        return -1;
    splash_layout_opening();
    return 1;
}

void splash_enter() {
    cursor_select(CURSOR_ARROW);
    cursor_show(true);
    splash_flags = SPLASH_FIRST_FRAME;
    hovered = nullptr;
}

void splash_update() {
    if (reveal_width < reveal_end()) {
        reveal_width += REVEAL_STEP;
    } else {
        reveal_width = reveal_end();
        splash_flags |= SPLASH_BUTTONS_SHOWN;
    }
    if ((splash_flags & SPLASH_BUTTONS_SHOWN) == 0)
        return;
    button_change_hover(&hovered, button_tick_and_find(buttons, mouse_x, mouse_y));
    button_follow_mouse(hovered);
}

void splash_draw() {
    if ((splash_flags & SPLASH_FIRST_FRAME) != 0) {
        draw_first_frame();
        splash_flags &= ~SPLASH_FIRST_FRAME;
    }
    if (reveal_width >= reveal_end() && (splash_flags & SPLASH_PICTURE_DRAWN) == 0) {
        draw_image_bg_show(splash_pictures[PICTURE_REVEALED], REVEALED_X, REVEALED_Y);
        splash_flags |= SPLASH_PICTURE_DRAWN;
    }
    if ((splash_flags & SPLASH_BUTTONS_SHOWN) != 0)
        for (const button *b : each(buttons))
            button_draw(b);
}

void splash_shutdown() {
    image_free_array(splash_pictures, PICTURE_COUNT);
    ptr_array_destroy(buttons);
    buttons = nullptr;
    hovered = nullptr;
}
