// blit.h: start-up of the picture routines and the drawing primitives for the screen's depth.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// Each: 1, or -1 (logged) at a depth other than 16 or 32 bits.
[[nodiscard]] i32 prim_init();
[[nodiscard]] i32 blit_init(); // also sets the colour key; before any picture is loaded
