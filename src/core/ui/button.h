// button.h: picture buttons.
//
// Main thread. Pictures are borrowed from the screen that loaded them and must all be there; lists own their
// buttons through button_free. Only making a button can fail.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/containers.h"
#include "core/base/types.h"
#include "core/ui/button_look.h"
#include "resources/image.h"

#include <cstdint>

inline constexpr u32 BUTTON_PRESSED = 0x1;         // has been pressed and not yet released
inline constexpr u32 BUTTON_HOVER = 0x2;           // under the mouse
inline constexpr u32 BUTTON_RELEASE_PENDING = 0x4; // release_timer runs

struct button;
using button_callback = void (*)(button *pressed, std::intptr_t arg1, std::intptr_t arg2);

struct button {
    u32 flags;
    i32 state;                                // a button_look: the picture drawn
    const image *pictures[BUTTON_LOOK_COUNT]; // borrowed
    const image *label;                       // borrowed, may be null; centred on the picture
    button_callback callback;                 // may be null
    std::intptr_t arg1, arg2;
    i32 x, y;          // window pixels
    i32 width, height; // of the picture drawn
    i32 release_timer; // frames until a pending release
    i32 keys[2];       // SDL key codes that press it, 0 for none
};

[[nodiscard]] button *button_create(); // null when out of memory (logged)
void button_free(button *b);           // accepts null
// One picture a look, and a label or null; the button then looks normal.
void button_set_pictures(button *b, const image *normal, const image *hover, const image *pressed, const image *label);
void button_set_state(button *b, i32 state); // a button_look; the size becomes that of its picture
void button_set_callback(button *b, button_callback callback, std::intptr_t arg1,
                         std::intptr_t arg2); // runs on a press
void button_draw(const button *b);            // erased in the next frame; a pixel lower and further right while pressed
void button_draw_background(const button *b); // normal picture and label into the background
void button_press(button *b);                 // click, pressed look, callback; ignored while pressed
void button_release(button *b);               // back to the hover or the normal look; ignored unless pressed
void button_hover(button *b);                 // hover look, also while pressed
void button_unhover(button *b);               // normal look; ignored unless hovered
void button_release_later(button *b);         // in 4 frames, for presses by key
void button_tick(button *b);                  // once a frame: counts down to that release
bool button_hit(const button *b, i32 px, i32 py); // edges included
bool button_key_pressed(const button *b);         // whether a key of it went down in this frame

// Gives it a key, or two; nothing for a null button, one that memory was short for.
void button_set_keys(button *b, i32 key, i32 other = 0);

// Makes a button with pictures, place and callback and appends it to the list, which owns it; null when out of
// memory (logged).
button *button_add(ptr_array<button> *list, const image *const pictures[BUTTON_LOOK_COUNT], i32 x, i32 y,
                   button_callback callback, std::intptr_t arg1 = 0, std::intptr_t arg2 = 0);

// Ticks every button and returns the last one in list order at the point, or null: the one on top.
button *button_tick_and_find(ptr_array<button> *list, i32 px, i32 py);
