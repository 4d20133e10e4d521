// play.h: the play screen, where a puzzle is played. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// The screen's operations, for the screen table.
i32 play_init(); // 1
void play_enter();
void play_update();
void play_draw();

void play_request_new_run(); // the next time the screen is entered, a new run starts; else the run goes on
