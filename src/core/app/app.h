// app.h: the life of the process: start-up, the main loop of 20 ms frames, shutdown. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

// Runs the program from start to end; ends the process with exit and never returns.
[[noreturn]] void app_run();
