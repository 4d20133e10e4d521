// sample.h: made-up archives that keep to the rules, different for every seed.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "archive_file.h"
#include "core/base/types.h"

#include <string>

// Every entry that the game reads, with random sizes, numbers of colours, texts and sounds within the rules.
archive_file make_sample(unsigned seed);

struct xpm_shape {
    i32 width, height;
    i32 colors = 3;
    i32 symbol_length = 1;
    i32 empty_rows = 0;            // at the top, transparent
    const char *first = "#EA008A"; // the first colour
};
std::string sample_xpm(const xpm_shape &shape);

std::string &sample_bytes(archive_file &archive, const std::string &name); // of an entry that is there
