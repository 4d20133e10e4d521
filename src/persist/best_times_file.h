// best_times_file.h: the file that keeps the best times. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

i32 best_times_load(); // 1, or -1 when there is no file (the defaults are then in place)
i32 best_times_save(); // 1, or -1 (logged)
