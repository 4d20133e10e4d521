// puzzle_help.h: the help bubbles of the puzzle types. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// Adds the type's bubbles, after help_clear and before help_start; a bubble for which memory is short is left out.
void puzzle_add_help(i32 type);
