// credits.h: who made the program: the heading rises and uncovers the rows. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/types.h"

i32 credits_init();
void credits_shutdown();
void credits_enter();
void credits_update();
void credits_draw();
