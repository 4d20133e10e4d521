// app.h: the life of the process: start-up, the main loop of 20 ms frames, shutdown. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/app_state.h"

[[nodiscard]] app_state *app_state_create(); // with its board; null when out of memory (logged)
void app_state_destroy(app_state *state);    // accepts null

// Runs the program from start to end; ends the process with exit and never returns.
[[noreturn]] void app_run();
