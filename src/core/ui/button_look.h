// button_look.h: how a button can look; its pictures lie in this order. Constants only.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

enum button_look : i32 { BUTTON_LOOK_NORMAL, BUTTON_LOOK_HOVER, BUTTON_LOOK_PRESSED, BUTTON_LOOK_COUNT };
