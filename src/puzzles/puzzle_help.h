// puzzle_help.h: the help bubbles of the puzzle types. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/ui/help.h"

std::span<const help_row> puzzle_help(i32 type); // for help_show
