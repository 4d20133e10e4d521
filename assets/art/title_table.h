// title_table.h: the picture on the way from the title to study.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

namespace art {

// The craft table being set, SCREEN_WIDTH x SCREEN_HEIGHT.
canvas draw_craft_table();

} // namespace art
