// pictures.h: the program's own pictures as both sides draw them, and screens of both depths.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "graphics/frame_buffers.h"
#include "resources/image.h"

#include <SDL.h>

#include <string>
#include <vector>

inline constexpr i32 DEPTHS[] = {16, 32};

// Turns this program's drawing to a depth, onto a surface of SDL's; pictures loaded before are of no use any more.
void use_depth(i32 depth);

// What is allocated from now on lies elsewhere within a page than it would have.
void move_on_the_heap();

// A picture of the archive at the current depth. Owned by the caller.
image *picture_of(const std::string &name);

SDL_Surface *sdl_screen();                                 // where the others draw
SDL_Surface *sdl_picture(const image *picture, u32 flags); // with the colour key; SDL_RLEACCEL or 0

i32 visible_bytes(const image *picture, i32 x, i32 y); // opaque bytes that show at a place

// The XPM texts of the archive whose names begin so.
std::vector<std::string> texts_of(const std::string &prefix, i32 count);
std::string text_of(const std::string &name); // empty when there is none
