// xpm_reading.h: reading XPM with the game's own decoder, so that what it refuses is refused here.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

#include <optional>
#include <string_view>

// Why an XPM could not be read; empty when it could.
struct xpm_reading {
    std::optional<raster> result; // alpha 0 or 255
    i32 colour_count;
    std::string fault;
};
xpm_reading picture_from_xpm(std::string_view bytes);
