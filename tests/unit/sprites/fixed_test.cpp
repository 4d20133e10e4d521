// fixed_test.cpp: a fixed sprite stays where it is.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/sprite.h"

#include <gtest/gtest.h>

TEST(fixed, sprites_neither_set_out_nor_go_on) {
    for (const bool sent_before : {true, false}) {
        sprite s = {};
        s.home_x = s.home_y = 200;
        if (sent_before)
            sprite_send_home(&s, 4);
        sprite_fix(&s);
        sprite_send_home(&s, 4);
        for (int frame = 0; frame < 3; ++frame)
            sprite_update(&s);
        EXPECT_EQ(s.x, 0) << sent_before;
        EXPECT_EQ(s.flags, SPRITE_FIXED | SPRITE_INERT) << sent_before;
    }
}
