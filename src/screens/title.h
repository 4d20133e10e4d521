// title.h: the hub: the list of puzzles, the picture of the one selected, and the roads from here. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/types.h"

i32 title_init();
void title_shutdown();
void title_enter();
void title_leave();
void title_update();
void title_draw();
