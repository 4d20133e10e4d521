// background.cpp: the one picture behind all boards, loaded when another one is wanted.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/background.h"

#include "puzzles/puzzle_pictures.h"

#include <cstdio>

namespace {

constexpr i32 NO_BACKGROUND = -1;
constexpr std::size_t NAME_SIZE = 32; // bytes

i32 background_wanted = NO_BACKGROUND;
i32 background_loaded = NO_BACKGROUND;
image *picture = nullptr;

} // namespace

i32 board_reset_background() {
    background_wanted = background_loaded = NO_BACKGROUND;
    return 1;
}

void board_set_background(i32 number) {
    background_wanted = number;
}

i32 background_load() {
    if (background_wanted == background_loaded)
        return 1;
    board_free_background();
    if (background_wanted >= 0) {
        char name[NAME_SIZE];
        std::snprintf(name, sizeof name, "%s%.3i.xpm", BACKGROUND_SET.prefix, background_wanted);
        picture = image_load(name);
        if (picture == nullptr)
            return -1;
    }
    background_loaded = background_wanted;
    return 1;
}

const image *background_picture() {
    return picture;
}

void board_free_background() {
    image_free(picture);
    picture = nullptr;
    background_loaded = NO_BACKGROUND;
}
