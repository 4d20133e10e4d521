// random_list_test.cpp: cycles, the shuffling itself, clearing, short memory.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/random_list.h"

#include "sprites/sprite.h"
#include "support/fake_sdl.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

struct shuffled {
    fake_scope fakes;
    sprite items[8] = {};
    random_list *list = random_list_create();

    ~shuffled() { random_list_free(list); }
    void add(i32 from, i32 count) {
        for (i32 i = from; i < from + count; ++i)
            EXPECT_EQ(random_list_add(list, &items[i]), list->items->count);
    }
    std::string pick(i32 count) {
        std::string names;
        while (count-- > 0)
            names += static_cast<char>('a' + (random_list_pick(list) - items));
        return names;
    }
};

TEST(random_list, hands_out_every_item_once_a_cycle) {
    shuffled s;
    EXPECT_EQ(random_list_pick(s.list), nullptr);
    s.add(0, 7);
    for (int cycle = 0; cycle < 5; ++cycle) {
        const std::string names = s.pick(7);
        EXPECT_EQ(std::set<char>(names.begin(), names.end()).size(), 7u) << names;
    }
    fake_fail_allocation(1);
    log_set_mode(0);
    EXPECT_EQ(random_list_add(s.list, &s.items[7]), -1);
    log_set_mode(LOG_STDERR);
    fake_fail_allocation(0);
    EXPECT_EQ(s.pick(7).find('h'), std::string::npos);
}

TEST(random_list, draws_once_an_item_and_keeps_its_place_when_cleared) {
    shuffled s;
    fake_dice({0, 0, 5, 2});
    s.add(0, 4); // places 0, 0, 2, 2: a, then ba, then bac, then badc
    EXPECT_EQ(fake_dice_drawn(), 4);
    EXPECT_EQ(s.pick(4), "badc");
    EXPECT_EQ(s.pick(1), "b"); // a new cycle is drawn by the same rule
    EXPECT_EQ(fake_dice_drawn(), 8);
    random_list_clear(s.list);
    EXPECT_EQ(random_list_pick(s.list), nullptr);
    fake_dice({0, 1, 2, 3});
    s.add(4, 4);
    EXPECT_EQ(s.pick(2), "fg"); // the cursor stood at 1
}

} // namespace
