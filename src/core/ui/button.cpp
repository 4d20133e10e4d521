// button.cpp: picture buttons: looks, presses, and drawing them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/ui/button.h"

#include "core/base/log.h"
#include "graphics/draw_list.h"
#include "input/input.h"
#include "sound/sound.h"

#include <algorithm>

namespace {

constexpr i32 RELEASE_DELAY = 4; // frames that a press by key shows

// Where the label goes on a picture whose corner is at (x, y).
point label_place(const image *picture, const image *label, i32 x, i32 y) {
    return {centre_in(x, picture->width, label->width), centre_in(y, picture->height, label->height)};
}

} // namespace

button *button_create() {
    auto *b = static_cast<button *>(std::calloc(1, sizeof(button)));
    if (b == nullptr)
        log_out_of_memory();
    return b;
}

void button_free(button *b) {
    std::free(b);
}

void button_set_pictures(button *b, const image *normal, const image *hover, const image *pressed, const image *label) {
    b->pictures[BUTTON_LOOK_NORMAL] = normal;
    b->pictures[BUTTON_LOOK_HOVER] = hover;
    b->pictures[BUTTON_LOOK_PRESSED] = pressed;
    b->label = label;
    button_set_state(b, BUTTON_LOOK_NORMAL);
}

void button_set_state(button *b, i32 state) {
    b->state = state;
    b->width = b->pictures[state]->width;
    b->height = b->pictures[state]->height;
}

void button_set_callback(button *b, button_callback callback, std::intptr_t arg1, std::intptr_t arg2) {
    b->callback = callback;
    b->arg1 = arg1;
    b->arg2 = arg2;
}

void button_draw(const button *b) {
    const i32 sunk = (b->flags & BUTTON_PRESSED) != 0 ? 1 : 0;
    const image *picture = b->pictures[b->state];
    draw_image(picture, b->x + sunk, b->y + sunk, true);
    if (b->label != nullptr) {
        const point place = label_place(picture, b->label, b->x + sunk, b->y + sunk);
        draw_image(b->label, place.x, place.y, false);
    }
}

void button_draw_background(const button *b) {
    const image *picture = b->pictures[BUTTON_LOOK_NORMAL];
    draw_image_bg(picture, b->x, b->y);
    if (b->label != nullptr) {
        const point place = label_place(picture, b->label, b->x, b->y);
        draw_image_bg(b->label, place.x, place.y);
    }
}

void button_press(button *b) {
    if ((b->flags & BUTTON_PRESSED) != 0)
        return;
    sound_play(SOUND_CLICK);
    button_set_state(b, BUTTON_LOOK_PRESSED);
    b->flags |= BUTTON_PRESSED;
    if (b->callback != nullptr)
        b->callback(b, b->arg1, b->arg2);
}

void button_release(button *b) {
    if ((b->flags & BUTTON_PRESSED) == 0)
        return;
    b->flags &= ~BUTTON_PRESSED;
    button_set_state(b, (b->flags & BUTTON_HOVER) != 0 ? BUTTON_LOOK_HOVER : BUTTON_LOOK_NORMAL);
}

void button_hover(button *b) {
    button_set_state(b, BUTTON_LOOK_HOVER);
    b->flags |= BUTTON_HOVER;
}

void button_unhover(button *b) {
    if ((b->flags & BUTTON_HOVER) == 0)
        return;
    b->flags &= ~BUTTON_HOVER;
    button_set_state(b, BUTTON_LOOK_NORMAL);
}

void button_release_later(button *b) {
    b->release_timer = RELEASE_DELAY;
    b->flags |= BUTTON_RELEASE_PENDING;
}

void button_tick(button *b) {
    if ((b->flags & BUTTON_RELEASE_PENDING) == 0)
        return;
    if (--b->release_timer < 1) {
        button_release(b);
        b->flags &= ~BUTTON_RELEASE_PENDING;
    }
}

bool button_hit(const button *b, i32 px, i32 py) {
    return b->x <= px && px <= b->x + b->width && b->y <= py && py <= b->y + b->height;
}

bool button_key_pressed(const button *b) {
    return std::ranges::any_of(b->keys, [](i32 key) { return key != 0 && key_pressed(key); });
}

void button_set_keys(button *b, i32 key, i32 other) {
    if (b == nullptr)
        return;
    b->keys[0] = key;
    b->keys[1] = other;
}

button *button_add(ptr_array<button> *list, const image *const pictures[BUTTON_LOOK_COUNT], i32 x, i32 y,
                   button_callback callback, std::intptr_t arg1, std::intptr_t arg2) {
    button *b = button_create();
    if (b == nullptr)
        return nullptr;
    button_set_pictures(b, pictures[BUTTON_LOOK_NORMAL], pictures[BUTTON_LOOK_HOVER], pictures[BUTTON_LOOK_PRESSED],
                        nullptr);
    button_set_callback(b, callback, arg1, arg2);
    b->x = x;
    b->y = y;
    if (ptr_array_append(list, b) < 0) {
        button_free(b);
        return nullptr;
    }
    return b;
}

button *button_tick_and_find(ptr_array<button> *list, i32 px, i32 py) {
    button *hit = nullptr;
    for (button *b : each(list)) {
        button_tick(b);
        if (button_hit(b, px, py))
            hit = b;
    }
    return hit;
}
