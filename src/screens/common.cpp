// common.cpp: what several screens do alike.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/common.h"

#include "core/base/app_state.h"
#include "core/base/screen_id.h"
#include "input/input.h"
#include "screens/title_pictures.h"

void quit_to_web_page(button *, std::intptr_t, std::intptr_t) {
    app_quit_to_web_page();
}

void request_screen(button *, std::intptr_t id, std::intptr_t) {
    screen_request(static_cast<screen_id>(id));
}

void add_web_button(ptr_array<button> *list, i32 x, i32 y) {
    const image *const looks[] = {title_image_web(BUTTON_LOOK_NORMAL), title_image_web(BUTTON_LOOK_HOVER),
                                  title_image_web(BUTTON_LOOK_PRESSED)};
    button_add(list, looks, x, y, quit_to_web_page);
}

void button_change_hover(button **hovered, button *hit) {
    if (hit == *hovered)
        return;
    if (hit != nullptr)
        button_hover(hit);
    if (*hovered != nullptr) {
        button_release(*hovered);
        button_unhover(*hovered);
    }
    *hovered = hit;
}

void button_follow_mouse(button *hovered) {
    if (hovered == nullptr)
        return;
    if (mouse_pressed(MOUSE_LEFT))
        button_press(hovered);
    else if (!mouse_held(MOUSE_LEFT))
        button_release(hovered);
}
