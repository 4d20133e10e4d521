// prefs.h: the preferences file: the player's name and the completion flag. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

i32 prefs_load(); // 1, or -1 when the file cannot be opened, which is no error: it is missing at first
i32 prefs_save(); // 1, or -1 (logged)
