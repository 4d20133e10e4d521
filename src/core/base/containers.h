// containers.h: a growable byte buffer and the program's one list type.
//
// All are plain records handled by free functions, used by one thread at a time. Growth is exact: the lists
// hold tens of items. A failed allocation is logged and returned as -1 or null; nothing aborts.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/log.h"
#include "core/base/types.h"

#include <cstdlib>
#include <cstring>
#include <type_traits>

// --- buffer: bytes with a read position ----------------------------------------------------------

struct buffer {
    u8 *data; // owned, null while empty
    i32 pos;  // read position of buffer_peek
    i32 size; // bytes in use
    i32 capacity;
};

buffer *buffer_create();                             // null when out of memory
void buffer_free(buffer *b);                         // accepts null
i32 buffer_add(buffer *b, const void *bytes, i32 n); // the new size, or -1 (the buffer is unchanged)
const u8 *buffer_peek(const buffer *b, i32 *n);      // bytes from pos to size, or null (n untouched); not used yet

// --- ptr_array: an ordered list of pointers ------------------------------------------------------

// A slot may be null after ptr_array_remove; the compact functions take the nulls out, range-for passes over them.
template <class T> struct ptr_array {
    T **items; // owned block, null while empty
    i32 count;
    i32 capacity;
    i32 inserted;           // insertions ever made; never decreases
    void (*free_item)(T *); // called on items by clear and destroy; may be null
};

// An empty list; null when out of memory (logged).
template <class T> [[nodiscard]] ptr_array<T> *ptr_array_create(void (*free_item)(T *) = nullptr) {
    auto *array = static_cast<ptr_array<T> *>(std::calloc(1, sizeof(ptr_array<T>)));
    if (array == nullptr)
        log_out_of_memory();
    else
        array->free_item = free_item;
    return array;
}

// From now on the list owns its items.
template <class T> void ptr_array_set_free(ptr_array<T> *array, void (*free_item)(T *)) {
    array->free_item = free_item;
}

// Forward walk, for callers that stop and go on; nobody does yet:
// for (i32 at = ptr_array_first(a); T *item = ptr_array_next(a, &at);)
template <class T> i32 ptr_array_first(const ptr_array<T> *) {
    return 0;
}

template <class T> T *ptr_array_next(const ptr_array<T> *array, i32 *cursor) {
    return *cursor < array->count ? array->items[(*cursor)++] : nullptr;
}

// Backward walk, likewise.
template <class T> i32 ptr_array_last(const ptr_array<T> *array) {
    return array->count - 1;
}

template <class T> T *ptr_array_prev(const ptr_array<T> *array, i32 *cursor) {
    return *cursor >= 0 ? array->items[(*cursor)--] : nullptr;
}

// Range-for over the items.
template <class T> struct ptr_array_range {
    struct iterator {
        const ptr_array<T> *array;
        i32 at;
        T *operator*() const { return array->items[at]; }
        void operator++() { ++at; }
        bool operator!=(int) { // passes over holes on the way
            while (at < array->count && array->items[at] == nullptr)
                ++at;
            return at < array->count;
        }
    };
    const ptr_array<T> *array;
    iterator begin() const { return {array, 0}; }
    int end() const { return 0; }
};

template <class T> ptr_array_range<T> each(const ptr_array<T> *array) {
    return {array};
}

// Frees the items and the slots.
template <class T> void ptr_array_clear(ptr_array<T> *array) {
    if (array->free_item != nullptr)
        for (T *item : each(array))
            array->free_item(item);
    std::free(array->items);
    array->items = nullptr;
    array->count = array->capacity = 0;
}

// Clears and frees the list. Accepts null.
template <class T> void ptr_array_destroy(ptr_array<T> *array) {
    if (array == nullptr)
        return;
    ptr_array_clear(array);
    std::free(array);
}

// Makes room for one more slot; false (logged) when memory is short.
template <class T> bool ptr_array_reserve_slot(ptr_array<T> *array) {
    if (array->count < array->capacity)
        return true;
    const auto slots = static_cast<std::size_t>(array->count) + 1;
    auto *items = static_cast<T **>(std::realloc(array->items, slots * sizeof(T *)));
    if (items == nullptr) {
        log_error("%s: out of memory\n", ""); // a list has no name to give
        return false;
    }
    array->items = items;
    array->capacity = array->count + 1;
    return true;
}

// Both return the previous number of insertions, or -1.
template <class T> i32 ptr_array_append(ptr_array<T> *array, T *item) {
    if (!ptr_array_reserve_slot(array))
        return -1;
    array->items[array->count++] = item;
    return array->inserted++;
}

template <class T> i32 ptr_array_prepend(ptr_array<T> *array, T *item) {
    if (!ptr_array_reserve_slot(array))
        return -1;
    std::memmove(array->items + 1, array->items, static_cast<std::size_t>(array->count) * sizeof(T *));
    array->items[0] = item;
    ++array->count;
    return array->inserted++;
}

// Empties the first slot that holds this pointer, leaving a null; 1 when there was one, else 0.
template <class T> i32 ptr_array_remove(ptr_array<T> *array, const std::type_identity_t<T> *item) {
    for (i32 i = 0; i < array->count; ++i) {
        if (array->items[i] == item) {
            array->items[i] = nullptr;
            return 1;
        }
    }
    return 0;
}

// Takes the nulls out by moving the last item into each hole: order is not kept.
template <class T> void ptr_array_compact(ptr_array<T> *array) {
    for (i32 i = 0; i < array->count;) {
        if (array->items[i] == nullptr)
            array->items[i] = array->items[--array->count];
        else
            ++i;
    }
}

// Takes the nulls out, keeping the order.
template <class T> void ptr_array_compact_ordered(ptr_array<T> *array) {
    i32 kept = 0;
    for (i32 i = 0; i < array->count; ++i)
        if (array->items[i] != nullptr)
            array->items[kept++] = array->items[i];
    array->count = kept;
}
