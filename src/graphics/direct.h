// direct.h: drawing straight onto the screen, between render_pause and render_resume. Main thread.
//
// What is drawn so is shown by dirty_add and dirty_flush (graphics/dirty.h). What cannot be shown is left out.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"

void screen_show_background(i32 x, i32 y, i32 w, i32 h); // background to screen, cut to the window
void direct_store_background(const rect &area);          // screen to background
void direct_fill(const rect &area, rgb colour);
void direct_image(const image *picture, i32 x, i32 y);
