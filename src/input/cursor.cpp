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

} // namespace

i32 cursor_init() {
    for (i32 i = 0; i < CURSOR_SHAPE_COUNT; ++i)
        if (image_load_sequence(&pictures[i], CURSOR_SHAPES[i].pictures) < 0)
            return -1;
    cursor_select(CURSOR_ARROW);
    SDL_ShowCursor(SDL_DISABLE);
    return 1;
}

void cursor_shutdown() {
    image_free_array(pictures, CURSOR_SHAPE_COUNT);
    SDL_ShowCursor(SDL_ENABLE);
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
