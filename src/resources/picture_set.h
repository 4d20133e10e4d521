// picture_set.h: numbered series of pictures in the archive, and proofs that all of one is spoken for. Constants only.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <initializer_list>

// The pictures PREFIX001.xpm to PREFIXcount.xpm; in code they count from 0.
struct picture_set {
    const char *prefix;
    i32 count;
};

// Pictures of a set that belong together, such as the looks of a button.
struct set_part {
    i32 first;
    i32 count = 1;
    i32 pitch = 1; // from one to the next

    constexpr i32 operator[](i32 k) const { return first + k * pitch; }
};

// Whether each picture of the set is in one part, and in one only.
constexpr bool set_is_complete(const picture_set &set, std::initializer_list<set_part> parts) {
    i32 total = 0;
    for (const set_part &part : parts)
        total += part.count;
    for (i32 picture = 0; picture < set.count; ++picture) {
        i32 owners = 0;
        for (const set_part &part : parts)
            for (i32 k = 0; k < part.count; ++k)
                owners += part[k] == picture;
        if (owners != 1)
            return false;
    }
    return total == set.count;
}
