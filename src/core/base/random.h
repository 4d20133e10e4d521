// random.h: random integers from the C library's generator, which start-up seeds once.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <cstdlib>

// An integer in low..high, both included; low when the range is empty or a single value (no draw then).
inline i32 random_range(i32 low, i32 high) {
    const i32 span = high - low + 1;
    return span <= 1 ? low : low + std::rand() % span;
}
