// ears.h: listening to the sound that the game has recorded.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

void ears_check(); // clicks, placements and the fanfare are there, and nothing clips
