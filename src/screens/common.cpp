// common.cpp: what several screens do alike.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/common.h"

#include "core/base/app_state.h"
#include "core/base/settings.h"
#include "core/ui/screen.h"
#include "graphics/text.h"
#include "input/input.h"
#include "persist/best_times.h"
#include "screens/title_pictures.h"

namespace {

constexpr i32 NAME_X = 15, NAME_Y = 582; // reference line

void change_hover(button **hovered, button *hit) {
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

} // namespace

void quit_to_web_page(button *, std::intptr_t, std::intptr_t) {
    app_quit_to_web_page();
}

void request_screen(button *, std::intptr_t id, std::intptr_t) {
    screen_request(static_cast<screen_id>(id));
}

button *add_button(ptr_array<button> *list, const image *const *set, const set_part &looks, point corner,
                   button_callback callback, std::intptr_t arg) {
    const image *const pictures[] = {set[looks[BUTTON_LOOK_NORMAL]], set[looks[BUTTON_LOOK_HOVER]],
                                     set[looks[BUTTON_LOOK_PRESSED]]};
    return button_add(list, pictures, corner.x, corner.y, callback, arg);
}

void add_web_button(ptr_array<button> *list, point corner) {
    add_button(list, title_pictures(), TITLE_WEB_BUTTON, corner, quit_to_web_page);
}

button *add_column(ptr_array<button> *list, const image *const *set, i32 size_picture,
                   std::span<const column_button> rows) {
    const i32 w = set[size_picture]->width, h = set[size_picture]->height;
    button *last = nullptr;
    for (const column_button &row : rows)
        last = add_button(list, set, row.looks, {COLUMN_RIGHT - w, column_top(row.n, h)}, row.callback, row.arg);
    return last;
}

bool clicked() {
    return mouse_pressed(MOUSE_LEFT) && !settings_help_showing();
}

bool buttons_follow_mouse(button **hovered, button *hit) {
    change_hover(hovered, hit);
    if (hit == nullptr)
        return false;
    const bool pressed = clicked();
    if (pressed)
        button_press(hit);
    else if (!mouse_held(MOUSE_LEFT))
        button_release(hit);
    return pressed;
}

void draw_buttons(const ptr_array<button> *list) {
    for (const button *b : each(list))
        button_draw(b);
}

void draw_player_name(rgb colour) {
    text_draw(app->player_name, NAME_X, NAME_Y, colour, TEXT_TRANSIENT);
}

bool first_visit(u32 seen_bit) {
    player_record *player = player_find(app->player_name, true);
    if (player == nullptr)
        return true;
    const bool first = (player->seen & seen_bit) == 0;
    player->seen |= seen_bit;
    return first;
}
