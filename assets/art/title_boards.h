// title_boards.h: the picture of each puzzle that the title and the score log show.
//
// One thread; failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

namespace art {

// The widest picture that leaves the score log's columns free, pixels.
inline constexpr int BOARD_PICTURE_WIDTH = 355;

// A small board of puzzle `type` in play: some pieces placed, one on its way, and what belongs to it.
canvas draw_board_picture(int type);

} // namespace art
