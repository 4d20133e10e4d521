// sprite_edge.h: the sides of a piece, in the order of every list of them, pictures included. Constants only.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// Tabs above and left, sockets right and below.
enum sprite_edge : i32 { EDGE_TOP, EDGE_RIGHT, EDGE_BOTTOM, EDGE_LEFT, EDGE_COUNT };
