// random_list.h: a list that hands its items out in shuffled order, each once a cycle. Main thread.
//
// The items are borrowed.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/containers.h"
#include "core/base/types.h"

struct sprite;

struct random_list {
    ptr_array<sprite> *items; // owned; the sprites are not
    i32 *order;               // owned: a permutation of the items' indices
    i32 cursor;               // next pick in order
};

[[nodiscard]] random_list *random_list_create();                    // null when out of memory (logged)
void random_list_free(random_list *list);                           // accepts null
[[nodiscard]] i32 random_list_add(random_list *list, sprite *item); // the new count, or -1 when out of memory (logged)
sprite *random_list_pick(random_list *list);                        // null when the list is empty
void random_list_clear(random_list *list);                          // the cursor stays: the next picks go on from it
