// puzzle_labels.h: what is printed on pieces: piece/symbols.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

namespace art {

void make_labels(int type);

} // namespace art
