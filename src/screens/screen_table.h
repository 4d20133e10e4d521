// screen_table.h: the seven screens' operations, for the screen manager.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/ui/screen.h"

extern const screen_operations screen_table;
