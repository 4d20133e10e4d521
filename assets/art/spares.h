// spares.h: pictures that screens load with the others but never draw.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "resources/picture_set.h"

namespace art {

// Writes a small, valid picture for each.
void save_spares(const picture_set &set, const set_part &pictures);

} // namespace art
