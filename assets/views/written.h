// written.h: the pictures that were written before, read back with the game's decoder.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "save.h"

namespace art {

// The picture of an entry; its key colour becomes transparent. Failures are exceptions (fail.h).
canvas load(const std::string &entry);

} // namespace art
