// sprite_draw.h: recording sprites. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "sprites/sprite.h"

void sprite_draw(const sprite *s); // records its drawing commands unless hidden; uses both save slots
void sprite_list_draw(const ptr_array<sprite> *list); // the last one on top
