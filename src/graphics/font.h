// font.h: loading the glyphs of the bitmap font (graphics/glyphs.h). Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

[[nodiscard]] i32 font_init(); // 1, or -1 when a glyph cannot be loaded (logged)
void font_shutdown();          // frees the glyphs, also after a failed font_init
