// cursor.cpp: the drawn mouse pointer, in three shapes.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "input/cursor.h"

#include "graphics/draw_list.h"
#include "input/input.h"
#include "resources/image.h"

#include <SDL.h>

namespace {

image *pictures[CURSOR_SHAPE_COUNT]; // owned
i32 selected;
bool visible; // hidden until a screen shows it

SDL_Cursor *system_pointer; // SDL's own
SDL_Cursor *empty_pointer;  // owned

// By an empty shape: a hidden pointer in full screen makes SDL hear of the mouse's movements only, not of its place,
// and what points absolutely (touch screens, tablets, remote desktops) would point somewhere else.
void hide_system_pointer() {
    constexpr i32 WIDTH = 8, HEIGHT = 1; // SDL's narrowest
    u8 nothing[WIDTH * HEIGHT / 8] = {};
    system_pointer = SDL_GetCursor();
    empty_pointer = SDL_CreateCursor(nothing, nothing, WIDTH, HEIGHT, 0, 0);
    if (empty_pointer != nullptr)
        SDL_SetCursor(empty_pointer);
}

void show_system_pointer() {
    if (empty_pointer == nullptr)
        return;
    SDL_SetCursor(system_pointer);
    SDL_FreeCursor(empty_pointer);
    empty_pointer = nullptr;
}

} // namespace

i32 cursor_init() {
    for (i32 i = 0; i < CURSOR_SHAPE_COUNT; ++i)
        if (image_load_sequence(&pictures[i], CURSOR_SHAPES[i].pictures) < 0)
            return -1;
    cursor_select(CURSOR_ARROW);
    hide_system_pointer();
    return 1;
}

void cursor_shutdown() {
    image_free_array(pictures, CURSOR_SHAPE_COUNT);
    show_system_pointer();
}

void cursor_select(i32 shape) {
    if (shape >= 0 && shape < CURSOR_SHAPE_COUNT)
        selected = shape;
}

void cursor_show(bool on) {
    visible = on;
}

void cursor_draw() {
    const image *picture = pictures[selected];
    if (visible && picture != nullptr)
        draw_image(picture, mouse_x - CURSOR_SHAPES[selected].hot.x, mouse_y - CURSOR_SHAPES[selected].hot.y, true);
}
