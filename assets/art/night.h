// night.h: the blackboard that lies behind the title, splash, score log and credits screens, with its
// chalk drawings, and cut-outs of it for pictures whose place on it is fixed.
//
// The board is drawn once per process and kept; one thread. Failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"
#include "core/base/types.h"

#include <string>

namespace art {

// The whole blackboard, SCREEN_WIDTH x SCREEN_HEIGHT. Owned by this module.
const canvas &night_board();

// A new canvas that shows the blackboard's rectangle (x, y, width, height): a picture drawn on it is
// fully opaque and can have soft edges and shadows, but only fits at that place.
canvas night_window(int x, int y, int width, int height);

// The blackboard's colour at (x, y) without chalk: the ground onto which a small picture with a fixed
// place blends its edges.
rgb night_colour(int x, int y);

// The line of numbers that the screens show at the bottom, 300 x 24, for a place centred on the board
// with its lower edge at 595.
void save_number_line(const std::string &entry);

} // namespace art
