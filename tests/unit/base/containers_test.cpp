// containers_test.cpp: the byte buffer, the list with its holes, the table with its collisions.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/hash.h"
#include "support/fake_sdl.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using text_list = ptr_array<const char>;

static std::vector<const char *> freed;

static void note_freed(const char *item) {
    freed.push_back(item);
}

static std::string joined(const text_list *list) {
    std::string all;
    for (const char *item : each(list))
        all += item;
    return all;
}

static text_list *list_of(const std::vector<const char *> &items) {
    text_list *list = ptr_array_create<const char>();
    for (const char *item : items)
        ptr_array_append(list, item);
    return list;
}

TEST(Buffer, GrowsExactlyAndPeeksFromThePosition) {
    buffer *b = buffer_create();
    i32 n = 77;
    EXPECT_EQ(buffer_peek(b, &n), nullptr);
    EXPECT_EQ(buffer_add(b, "abc", 3), 3);
    EXPECT_EQ(buffer_add(b, "de", 2), 5);
    EXPECT_EQ(b->capacity, 5);
    b->pos = 2;
    EXPECT_EQ(std::string(reinterpret_cast<const char *>(buffer_peek(b, &n)), 3), "cde");
    EXPECT_EQ(n, 3);
    b->pos = 5;
    EXPECT_EQ(buffer_peek(b, &n), nullptr);
    EXPECT_EQ(n, 3) << "the length is left alone";
    buffer_free(b);
}

TEST(Buffer, RefusedGrowthLeavesItAsItWas) {
    fake_scope fakes;
    buffer *b = buffer_create();
    buffer_add(b, "abc", 3);
    fake_fail_allocation(1);
    EXPECT_EQ(buffer_add(b, "de", 2), -1);
    fake_fail_allocation(0);
    EXPECT_EQ(buffer_add(b, "de", std::numeric_limits<i32>::max()), -1) << "more than can be counted";
    EXPECT_EQ(b->size, 3);
    EXPECT_EQ(buffer_add(b, "de", 2), 5);
    EXPECT_EQ(std::string(reinterpret_cast<const char *>(b->data), 5), "abcde");
    buffer_free(b);
}

TEST(PtrArray, InsertsAtBothEndsAndCountsInsertions) {
    text_list *list = ptr_array_create<const char>();
    EXPECT_EQ(ptr_array_prepend(list, "b"), 0);
    EXPECT_EQ(ptr_array_append(list, "c"), 1);
    EXPECT_EQ(ptr_array_prepend(list, "a"), 2);
    EXPECT_EQ(joined(list), "abc");
    std::string backwards;
    i32 at = ptr_array_last(list);
    while (const char *item = ptr_array_prev(list, &at))
        backwards += item;
    EXPECT_EQ(backwards, "cba");
    ptr_array_clear(list);
    EXPECT_EQ(list->capacity, 0);
    EXPECT_EQ(ptr_array_append(list, "d"), 3) << "clearing does not start the numbers again";
    ptr_array_destroy(list);
}

TEST(PtrArray, HolesEndTheWalkUntilCompacted) {
    const char *const a = "a", *const b = "b", *const c = "c", *const d = "d", *const e = "e";
    text_list *list = list_of({a, b, c, d, e, c});
    EXPECT_EQ(ptr_array_remove(list, c), 1) << "the first one only";
    EXPECT_EQ(joined(list), "ab");
    ptr_array_compact(list);
    EXPECT_EQ(joined(list), "abcde") << "the last one fills the hole";
    ptr_array_remove(list, a);
    ptr_array_remove(list, e);
    EXPECT_EQ(ptr_array_remove(list, "z"), 0);
    ptr_array_compact_ordered(list);
    EXPECT_EQ(joined(list), "bcd");
    for (const char *item : {d, c, b})
        ptr_array_remove(list, item);
    ptr_array_compact(list);
    EXPECT_EQ(list->count, 0) << "trailing holes go too";
    ptr_array_destroy(list);
}

struct word {
    const char *key;
    int value;
};

static hash<const word, char> *make_table(int *hashed) {
    static int *count;
    count = hashed;
    return hash_create<const word, char>(
        4, [](const word *w) { return w->key; },
        [](const char *key) {
            ++*count;
            return static_cast<u32>(key[0]);
        },
        [](const char *a, const char *b) { return std::strcmp(a, b); });
}

TEST(Hash, FindsTheEarliestOfEqualKeysAmongCollisions) {
    static constexpr word WORDS[] = {{"a", 1}, {"e", 2}, {"a", 3}, {"b", 4}, {"ax", 5}}; // a and e share a bucket
    int hashed = 0;
    hash<const word, char> *table = make_table(&hashed);
    for (const word &w : WORDS)
        EXPECT_EQ(hash_insert(table, &w), w.key[0] % 4);
    EXPECT_EQ(hash_find(table, "a")->value, 1);
    EXPECT_EQ(hash_find(table, "e")->value, 2);
    EXPECT_EQ(hash_find(table, "ax")->value, 5);
    EXPECT_EQ(hash_find(table, "q"), nullptr);
    const int before = hashed;
    const char *none = nullptr;
    EXPECT_EQ(hash_find(table, none), nullptr);
    EXPECT_EQ(hashed, before) << "a null key is not hashed";
    hash_clear(table);
    EXPECT_EQ(hash_find(table, "a"), nullptr);
    hash_destroy(table);
}

TEST(Hash, FreesEveryItemOnceAndSurvivesShortMemory) {
    fake_scope fakes;
    freed.clear();
    hash<const char, char> *table = hash_create<const char, char>(
        2, [](const char *item) { return item; }, [](const char *key) { return static_cast<u32>(*key); },
        [](const char *a, const char *b) { return std::strcmp(a, b); });
    hash_set_free(table, note_freed);
    const std::vector<const char *> words = {"b", "d", "a", "c"};
    for (const char *item : words)
        hash_insert(table, item);
    fake_fail_allocation(1);
    EXPECT_EQ(hash_insert(table, "e"), -1);
    fake_fail_allocation(0);
    hash_destroy(table);
    EXPECT_EQ(freed, words) << "bucket by bucket, in order";
    int hashed = 0;
    EXPECT_EQ(fake_fail_each_allocation([&] {
                  hash<const word, char> *made = make_table(&hashed);
                  hash_destroy(made);
                  return made != nullptr;
              }),
              2);
}
