// settings.h: the settings word, one 32-bit word of program-wide switches. Main thread only.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline constexpr u32 SETTINGS_HELP = 0x2;      // help bubbles are showing
inline constexpr u32 SETTINGS_COMPLETED = 0x8; // a completion dialog has been confirmed; kept in the preferences

inline u32 settings = 0;

// Whether bubbles show; the screen below then leaves the mouse to them.
inline bool settings_help_showing() {
    return (settings & SETTINGS_HELP) != 0;
}
