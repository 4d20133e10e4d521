// puzzle_market.h: the market stall, and the goods of a cell of the types 6 and 9.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle.h"

namespace art {

void draw_market_scene(cairo_t *cr, double width, double height, const puzzle_colours &colours);
const char *market_goods(int cell); // an emoji
const char *money_goods(int cell);  // an emoji

} // namespace art
