// spares.cpp: a dot.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "spares.h"

#include "palette.h"
#include "save.h"

namespace art {

void save_spares(const picture_set &set, const set_part &pictures) {
    constexpr int SIZE = 8;
    canvas spare(SIZE, SIZE);
    circle(spare, SIZE / 2.0, SIZE / 2.0, SIZE / 2.0 - 1);
    fill(spare, FOOTER_LINE);
    for (int k = 0; k < pictures.count; ++k)
        save(spare, entry_of(set, pictures[k]));
}

} // namespace art
