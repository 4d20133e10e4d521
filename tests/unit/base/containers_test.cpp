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

TEST(Buffer, GrowsExactlyAndRefusedGrowthChangesNothing) {
    fake_scope fakes;
    buffer *b = buffer_create();
    i32 n = 77;
    EXPECT_EQ(buffer_peek(b, &n), nullptr);
    EXPECT_EQ(buffer_add(b, "abc", 3), 3);
    fake_fail_allocation(1);
    EXPECT_EQ(buffer_add(b, "xy", 2), -1);
    fake_fail_allocation(0);
    EXPECT_EQ(buffer_add(b, "xy", std::numeric_limits<i32>::max()), -1) << "more than can be counted";
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

TEST(Hash, FindsTheEarliestOfEqualKeysAndFreesEachOnce) {
    fake_scope fakes;
    freed.clear();
    hash<const char, char> *table = nullptr;
    const auto create = [&table] {
        table = hash_create<const char, char>(
            4, [](const char *item) { return item; }, [](const char *key) { return static_cast<u32>(key[0]); },
            [](const char *x, const char *y) { return static_cast<int>(x[0]) - static_cast<int>(y[0]); });
        return table != nullptr;
    };
    EXPECT_EQ(fake_fail_each_allocation(create), 2);
    hash_set_free(table, note_freed);
    const std::vector<const char *> words = {"d1", "a1", "e1", "a2", "b1"}; // a and e share a bucket; a second a
    for (const char *item : words)
        EXPECT_EQ(hash_insert(table, item), item[0] % 4);
    fake_fail_allocation(1);
    EXPECT_EQ(hash_insert(table, "c1"), -1);
    fake_fail_allocation(0);
    EXPECT_STREQ(hash_find(table, "a"), "a1");
    EXPECT_STREQ(hash_find(table, "e"), "e1");
    EXPECT_EQ(hash_find(table, "c"), nullptr);
    const char *none = nullptr;
    EXPECT_EQ(hash_find(table, none), nullptr);
    hash_destroy(table);
    EXPECT_EQ(freed, words) << "bucket by bucket, in order";
}
