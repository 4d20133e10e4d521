// title_pictures.cpp: the set of pictures, loaded once.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/title_pictures.h"

namespace {

image *pictures[TITLE_SET.count];

} // namespace

i32 title_pictures_load() {
    return image_load_sequence(pictures, TITLE_SET);
}

void title_pictures_free() {
    image_free_array(pictures, TITLE_SET.count);
}

const image *const *title_pictures() {
    return pictures;
}
