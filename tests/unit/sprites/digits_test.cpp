// digits_test.cpp: digits that fly, and typing them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/number_entry.h"

#include <gtest/gtest.h>

#include <array>

namespace {

TEST(glyph_mover, arrives_in_the_frames_laid_down) {
    const struct {
        const char *what;
        i32 dx, dy, frames;
        int landing, arrival; // in which frame it stands on its target, and in which that is noticed
    } ROWS[] = {
        {"even steps land exactly and are noticed a frame later", 100, -50, 10, 10, 11},
        {"uneven steps are clamped, on both axes, backward", -109, -101, 10, 11, 11},
        {"a short way is made at once", 9, -10, 10, 1, 2},
        {"no way at all", 0, 0, 0, 1, 1},
    };
    const image picture = {};
    for (const auto &r : ROWS) {
        glyph_mover m = {};
        glyph_mover_start(&m, &picture, {300, 200}, {300 + r.dx, 200 + r.dy}, r.frames);
        int landing = 0, arrival = 0;
        for (int frame = 1; frame <= 20; ++frame) {
            glyph_mover_step(&m);
            if (landing == 0 && m.x == 300 + r.dx && m.y == 200 + r.dy)
                landing = frame;
            if (arrival == 0 && glyph_mover_arrived(&m))
                arrival = frame;
        }
        EXPECT_EQ(landing, r.landing) << r.what;
        EXPECT_EQ(arrival, r.arrival) << r.what;
    }
}

using places = std::vector<std::pair<i32, i32>>;

struct entry_test : testing::Test {
    std::array<image, ENTRY_DIGIT_COUNT> pictures = {};
    std::array<image *, ENTRY_DIGIT_COUNT> digits = {};
    number_entry *e = number_entry_create(4);

    entry_test() {
        for (std::size_t i = 0; i < digits.size(); ++i) {
            pictures[i].width = 10 + static_cast<i32>(i);
            pictures[i].height = 20;
            digits[i] = &pictures[i];
        }
        e->digits = digits.data();
        e->x = 600;
        e->y = 50;
        e->dest_x = 100;
        e->dest_y = 300;
    }
    ~entry_test() override { number_entry_free(e); }

    void type(const char *text) {
        for (const char *c = text; *c != '\0'; ++c)
            *c == '<' ? number_entry_backspace(e) : number_entry_add_digit(e, {500, 400, 41, 30}, *c - '0');
    }
    void update(int frames) {
        for (int i = 0; i < frames; ++i)
            number_entry_update(e);
    }
    // Where the digits stand, empty slots left out.
    places shown() const {
        places all;
        for (i32 i = 0; i < e->capacity; ++i)
            if (e->movers[i].glyph != nullptr)
                all.emplace_back(e->movers[i].x, e->movers[i].y);
        return all;
    }
};

TEST_F(entry_test, typed_digits_fly_into_a_row_and_on_when_entered) {
    for (const auto &[typed, text] : {std::pair{"00120", "120"}, {"12345", "1234"}, {"12<<<", ""}, {":", ""}}) {
        number_entry_clear(e);
        type(typed);
        EXPECT_STREQ(e->text, text);
    }
    type("705");
    EXPECT_EQ(shown(), (places{{512, 405}, {515, 405}, {513, 405}}));
    update(11);
    EXPECT_EQ(shown(), (places{{600, 50}, {619, 50}, {631, 50}}));
    type("<<<42");
    update(3);
    number_entry_submit(e, 42);
    EXPECT_EQ(shown(), (places{{600, 50}, {616, 50}})) << "they start from their places";
    type("7");
    number_entry_submit(e, 4);
    EXPECT_STREQ(e->text, "42");
    update(10);
    EXPECT_EQ(shown(), (places{{100, 300}, {116, 300}}));
    EXPECT_EQ(e->flags, ENTRY_ENTERED | ENTRY_CORRECT);
    update(1);
    EXPECT_EQ(e->flags, ENTRY_ENTERED | ENTRY_CORRECT | ENTRY_ARRIVED);
    e->flags = ENTRY_CLOSED;
    type("<");
    EXPECT_STREQ(e->text, "42") << "the shown solution stays";
}

TEST_F(entry_test, a_digit_deleted_in_flight_is_not_waited_for) {
    type("42");
    number_entry_submit(e, 1);
    update(3);
    type("<");
    EXPECT_EQ(shown().size(), 1u);
    update(8);
    EXPECT_EQ(e->flags, ENTRY_ENTERED | ENTRY_ARRIVED);
}

} // namespace
