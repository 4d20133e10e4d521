// random_list.cpp: shuffles while adding, and again at the end of each cycle.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/random_list.h"

namespace {

// Entry `last` of the order takes a random earlier place (or keeps its own), and what stood there moves to the end.
void place_at_random(random_list *list, i32 last) {
    const i32 j = std::rand() % (last + 1);
    list->order[last] = list->order[j];
    list->order[j] = last;
}

} // namespace

random_list *random_list_create() {
    auto *list = static_cast<random_list *>(std::calloc(1, sizeof(random_list)));
    if (list == nullptr) {
        log_out_of_memory();
        return nullptr;
    }
    list->items = ptr_array_create<sprite>();
    if (list->items == nullptr) {
        std::free(list);
        return nullptr;
    }
    return list;
}

void random_list_free(random_list *list) {
    if (list == nullptr)
        return;
    ptr_array_destroy(list->items);
    std::free(list->order);
    std::free(list);
}

i32 random_list_add(random_list *list, sprite *item) {
    // The order grows first: once the item is in, its place must exist.
    const i32 count = list->items->count + 1;
    auto *order = static_cast<i32 *>(std::realloc(list->order, static_cast<std::size_t>(count) * sizeof(i32)));
    if (order == nullptr) {
        log_out_of_memory();
        return -1;
    }
    list->order = order;
    if (ptr_array_append(list->items, item) < 0)
        return -1;
    place_at_random(list, count - 1);
    return count;
}

sprite *random_list_pick(random_list *list) {
    const i32 count = list->items->count;
    if (count == 0)
        return nullptr;
    if (list->cursor >= count) {
        for (i32 i = 0; i < count; ++i)
            place_at_random(list, i);
        list->cursor = 0;
    }
    return list->items->items[list->order[list->cursor++]];
}

void random_list_clear(random_list *list) {
    ptr_array_clear(list->items);
}
