// written.cpp: from the decoder's pixels to a canvas.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "written.h"

#include "fail.h"
#include "files.h"
#include "xpm_reading.h"

#include <algorithm>

namespace art {

canvas load(const std::string &entry) {
    const xpm_reading reading = picture_from_xpm(file_read(written_path(entry)));
    if (!reading.result)
        fail(entry + ": " + reading.fault);
    canvas picture(reading.result->width, reading.result->height);
    for (int y = 0; y < picture.height; ++y)
        std::copy_n(reading.result->pixels.begin() + y * picture.width, picture.width, row_of(picture, y));
    cairo_surface_mark_dirty(picture.surface.get());
    return picture;
}

} // namespace art
