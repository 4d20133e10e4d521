// cursor.cpp: the drawn mouse pointer, in three shapes.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "input/cursor.h"

#include "graphics/draw_list.h"
#include "input/input.h"
#include "resources/image.h"

#include <SDL.h>

#include <iterator>

namespace {

struct cursor_shape {
    const char *pictures; // prefix of its picture sequence, which has one picture
    i32 hot_x, hot_y;     // the picture's pixel that lies on the mouse position
};
constexpr cursor_shape SHAPES[] = {
    {"control/mouse/001/", 0, 0}, // arrow
    {"control/mouse/002/", 4, 2}, // open hand
    {"control/mouse/003/", 4, 1}, // closed hand
};
constexpr i32 SHAPE_COUNT = std::size(SHAPES);
static_assert(CURSOR_CLOSED_HAND == SHAPE_COUNT - 1);

image *pictures[SHAPE_COUNT]; // owned
i32 selected;
bool visible; // hidden until a screen shows it

} // namespace

i32 cursor_init() {
    for (i32 i = 0; i < SHAPE_COUNT; ++i)
        if (image_load_sequence(&pictures[i], 1, SHAPES[i].pictures) < 0)
            return -1;
    cursor_select(CURSOR_ARROW);
    SDL_ShowCursor(SDL_DISABLE);
    return 1;
}

void cursor_shutdown() {
    image_free_array(pictures, SHAPE_COUNT);
    SDL_ShowCursor(SDL_ENABLE);
}

void cursor_select(i32 shape) {
    if (shape >= 0 && shape < SHAPE_COUNT)
        selected = shape;
}

void cursor_show(bool on) {
    visible = on;
}

void cursor_draw() {
    const image *picture = pictures[selected];
    if (visible && picture != nullptr)
        draw_image(picture, mouse_x - SHAPES[selected].hot_x, mouse_y - SHAPES[selected].hot_y, true);
}
