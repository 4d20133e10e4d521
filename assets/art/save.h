// save.h: writing a canvas as a picture that the game reads.
//
// Each pixel becomes either fully opaque or the colour key, opaque colours are reduced to 5-6-5 (dithered where asked).
// A picture in which an opaque pixel would fall on the key's 5-6-5 value is refused. One thread; failures are
// exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"
#include "entry_names.h"
#include "picture.h"

#include <filesystem>
#include <optional>

namespace art {

struct finish {
    bool dither = false;            // diffuse the 5-6-5 rounding error (gradients); otherwise round
    std::optional<rgb> ground = {}; // blend half-covered edge pixels onto this colour (a known background)
    double threshold = 0.5;         // pixels covered less than this become the colour key
};

// The canvas as the game will show it.
raster finished(const canvas &picture, const finish &how = {});

void set_output(const std::filesystem::path &folder);         // where the pictures of this run go; set once by main
std::filesystem::path written_path(const std::string &entry); // of an entry's file there

// Writes the canvas as the file of an entry, with the folders that it needs.
void save(const canvas &picture, const std::string &entry, const finish &how = {});

} // namespace art
