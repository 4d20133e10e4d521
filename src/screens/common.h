// common.h: what several screens do alike: their buttons, the flags of their first frame, the player's name. Main
// thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "core/ui/button.h"
#include "resources/picture_set.h"
#include "screens/column.h"

#include <span>

// --- Making buttons; one for which memory is short is left out (logged) --------------------------

// Callbacks.
void quit_to_web_page(button *, std::intptr_t, std::intptr_t);
void request_screen(button *, std::intptr_t id, std::intptr_t); // arg1: the screen_id

// A button whose looks are a part of the screen's set; null when out of memory.
button *add_button(ptr_array<button> *list, const image *const *set, const set_part &looks, point corner,
                   button_callback callback, std::intptr_t arg = 0);

// The web-page button with the title screen's pictures.
void add_web_button(ptr_array<button> *list, point corner);

// A button of the column at the window's right edge.
struct column_button {
    set_part looks;
    i32 n; // from the bottom up, 1 the lowest
    button_callback callback;
    std::intptr_t arg;
};
// All buttons of a column count as being as large as one of the set's pictures. The last one, or null.
button *add_column(ptr_array<button> *list, const image *const *set, i32 size_picture,
                   std::span<const column_button> rows);

// --- Each frame ----------------------------------------------------------------------------------

// Whether the left mouse button went down and help does not take the click.
bool clicked();

// Moves the hover from *hovered to `hit` (either may be null), presses that when it is clicked, and releases it when
// the mouse button is not held. True when it has been pressed.
bool buttons_follow_mouse(button **hovered, button *hit);

void draw_buttons(const ptr_array<button> *list);
void draw_player_name(rgb colour);

// Whether the player has not been where this bit of player_record::seen stands for; notes the visit.
bool first_visit(u32 seen_bit);

// Whether the flag was set; clears it.
constexpr bool take_flag(u32 *flags, u32 flag) {
    const bool was_set = (*flags & flag) != 0;
    *flags &= ~flag;
    return was_set;
}
