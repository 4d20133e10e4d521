// puzzle_tray.h: the box of pieces: box/base.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

namespace art {

void make_tray(int type);

} // namespace art
