// image.h: pictures in the screen's pixel format, with the runs of opaque pixels that drawing walks.
//
// Pictures are decoded once from the archive's XPM entries (main thread). Whoever loads or creates one frees
// it. A picture that a recorded drawing command refers to must stay alive until the command has been played.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/picture_set.h"

// An unbroken row of opaque pixels.
struct image_run {
    u16 x, y;  // its first pixel
    i32 count; // pixels
};

struct image {
    u8 *pixels;      // owned; width x height pixels, rows without padding
    i32 size;        // bytes
    i32 width;       // pixels
    i32 height;      // pixels
    image_run *runs; // owned; all that is opaque, row by row from left to right; null for a blank image until built
    i32 run_count;
};

// Decodes the archive entry "xpm/NAME"; null on failure (logged).
[[nodiscard]] image *image_load(const char *name);

// A picture with undefined pixels and no runs; null when out of memory (logged).
[[nodiscard]] image *image_create(i32 width, i32 height);

void image_free(image *picture); // accepts null

// (Re)builds the table of opaque runs from the pixels; what has the key colour is in none. False when out of memory.
bool image_build_runs(image *picture);

// A number that grows whenever a picture is freed or gets new runs. While it stands still, what a pointer to
// a picture meant it still means. Any thread.
u32 image_changes();

// Loads "PREFIX001.xpm" .. into array[0 .. count - 1]; 1, or -1 at the first failure (earlier ones stay).
[[nodiscard]] i32 image_load_sequence(image **array, i32 count, const char *prefix);
[[nodiscard]] inline i32 image_load_sequence(image **array, const picture_set &set) {
    return image_load_sequence(array, set.count, set.prefix);
}

void image_free_array(image **array, i32 count); // frees and empties every slot
