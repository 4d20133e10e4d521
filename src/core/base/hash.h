// hash.h: a table of items found by key, chained in insertion order; the number of buckets is fixed.
//
// Used by one thread at a time. The table owns its items when a destructor is set; keys belong to the items.
// A failed allocation is reported and returned as null or -1.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/containers.h"

#include <cstdio>

template <class T, class K> struct hash {
    i32 bucket_count;
    ptr_array<T> *buckets; // owned block
    const K *(*key_of)(const T *item);
    u32 (*hash_key)(const K *key);
    int (*compare)(const K *a, const K *b); // 0 when equal
    void (*free_item)(T *item);             // may be null
};

// A table of at least one bucket, or null (said on standard error).
template <class T, class K>
[[nodiscard]] hash<T, K> *hash_create(i32 bucket_count, const K *(*key_of)(const T *), u32 (*hash_key)(const K *),
                                      int (*compare)(const K *, const K *)) {
    auto *table = static_cast<hash<T, K> *>(std::calloc(1, sizeof(hash<T, K>)));
    void *buckets = std::calloc(static_cast<std::size_t>(bucket_count), sizeof(ptr_array<T>));
    if (table == nullptr || buckets == nullptr) {
        std::fprintf(stderr, "hash_create (): out of memory\n");
        std::free(table);
        std::free(buckets);
        return nullptr;
    }
    *table = {bucket_count, static_cast<ptr_array<T> *>(buckets), key_of, hash_key, compare, nullptr};
    return table;
}

// From now on the table owns its items.
template <class T, class K> void hash_set_free(hash<T, K> *table, void (*free_item)(T *)) {
    table->free_item = free_item;
    for (i32 i = 0; i < table->bucket_count; ++i)
        ptr_array_set_free(&table->buckets[i], free_item);
}

// Empties the table, freeing the items.
template <class T, class K> void hash_clear(hash<T, K> *table) {
    for (i32 i = 0; i < table->bucket_count; ++i)
        ptr_array_clear(&table->buckets[i]);
}

// Frees the items and the table. Accepts null.
template <class T, class K> void hash_destroy(hash<T, K> *table) {
    if (table == nullptr)
        return;
    hash_clear(table);
    std::free(table->buckets);
    std::free(table);
}

template <class T, class K> i32 hash_bucket_of(const hash<T, K> *table, const K *key) {
    return static_cast<i32>(table->hash_key(key) % static_cast<u32>(table->bucket_count));
}

// The bucket used, or -1 (the item stays the caller's). Of items with equal keys the earliest is found.
template <class T, class K> i32 hash_insert(hash<T, K> *table, T *item) {
    const i32 bucket = hash_bucket_of(table, table->key_of(item));
    return ptr_array_append(&table->buckets[bucket], item) < 0 ? -1 : bucket;
}

// The item with this key, borrowed, or null; a null key finds nothing.
template <class T, class K> T *hash_find(const hash<T, K> *table, const K *key) {
    if (key == nullptr)
        return nullptr;
    for (T *item : each(&table->buckets[hash_bucket_of(table, key)]))
        if (table->compare(key, table->key_of(item)) == 0)
            return item;
    return nullptr;
}
