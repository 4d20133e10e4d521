// puzzle_board.h: a puzzle's board: board/base, board/symbols, board/pieces.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

namespace art {

void make_board(int type);

} // namespace art
