// keypad_test.cpp: the keys, right and wrong answers.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/keypad.h"

#include "puzzles/debug_actions.h"
#include "sound/sound.h"
#include "sprites/number_entry.h"
#include "unit/puzzles/table.h"

#include <SDL_keysym.h>

namespace {

constexpr i32 BACKSPACE = 10, ENTER = 11;

struct keypad_table : puzzle_table {
    keypad_table() : puzzle_table(3) {
        frame();
        press_key(SDLK_SPACE);
        frames_while(BOARD_DECK_MOVING);
        sounds_played.clear();
    }
    void press(i32 value) const {
        button *key = key_with(b->key_symbols[value]);
        button_press(key);
        button_release(key);
    }
    void type(i32 number) const {
        for (const char digit : std::to_string(number))
            press(digit - '0');
    }
};

TEST(keypad, lays_twelve_keys_out) {
    const keypad_table t;
    const i32 ORDER[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, BACKSPACE, 0, ENTER};
    for (i32 i = 0; i < KEY_SYMBOLS; ++i) {
        const button *key = t.b->buttons->items[2 + i];
        EXPECT_EQ(key->label, t.b->key_symbols[ORDER[i]]);
        EXPECT_TRUE(key->x == 333 + i % 3 * 41 && key->y == 393 + i / 3 * 39) << i;
    }
}

TEST(keypad, types_deletes_and_enters) {
    keypad_table t;
    for (const i32 value : {0, ENTER, 4, 2, BACKSPACE, 7})
        t.press(value);
    EXPECT_EQ(number_entry_value(t.b->entry), 47);
    EXPECT_FALSE((t.b->entry->flags & ENTRY_ENTERED) != 0);
    t.b->state |= BOARD_DECK_MOVING; // enter waits for the cards
    t.press(ENTER);
    EXPECT_FALSE((t.b->entry->flags & ENTRY_ENTERED) != 0);
    t.b->state &= ~BOARD_DECK_MOVING;
    t.press(ENTER);
    EXPECT_TRUE((t.b->entry->flags & ENTRY_ENTERED) != 0);
    const sprite *top = t.b->slot[0];
    t.press_key(SDLK_SPACE); // next waits for the answer
    EXPECT_EQ(t.b->slot[0], top);
}

TEST(keypad, next_clears_what_was_typed) {
    keypad_table t;
    t.press(5);
    t.press_key(SDLK_SPACE);
    EXPECT_EQ(number_entry_length(t.b->entry), 0);
    EXPECT_TRUE(board_is(t.b, BOARD_DECK_MOVING));
}

TEST(keypad, right_answer_reveals_the_piece_once_the_digits_are_there) {
    keypad_table t;
    sprite *top = t.b->slot[0], *second = t.b->slot[1];
    t.type(top->answer);
    t.press(ENTER);
    int waited = 0;
    while (!has_any(top, SPRITE_ANSWERED) && waited < 40) {
        EXPECT_FALSE(has_any(top, SPRITE_GROW));
        t.frame();
        ++waited;
    }
    EXPECT_GE(waited, 10);
    EXPECT_TRUE(has(top, SPRITE_GROW | SPRITE_ANSWERED) && !has_any(top, SPRITE_HIDDEN | SPRITE_AVAILABLE));
    EXPECT_TRUE(top->x == t.b->deck_x + 4 && top->y == t.b->deck_y + 4);
    EXPECT_EQ(t.b->remaining, 49);
    EXPECT_EQ(t.b->slot[0], second);
    EXPECT_EQ(number_entry_length(t.b->entry), 0);
    EXPECT_TRUE(was_played(SOUND_PIECE_EMERGE) && !was_played(SOUND_INCORRECT_NUMBER));
    EXPECT_EQ(t.frames_while(BOARD_DECK_LOCK), 14); // the first of the 15 frames has passed
    t.frame(30);
    EXPECT_FALSE(has_any(top, SPRITE_GROW | SPRITE_INERT));
    EXPECT_EQ(t.b->pieces->items[49], top);
}

TEST(keypad, wrong_answer_scatters_and_keeps_the_problem) {
    keypad_table t;
    const sprite *top = t.b->slot[0];
    t.type(top->answer + 1);
    t.press(ENTER);
    t.frame(14);
    EXPECT_TRUE(was_played(SOUND_INCORRECT_NUMBER));
    EXPECT_TRUE((t.b->entry->flags & (ENTRY_SCATTERING | ENTRY_CLOSED)) == (ENTRY_SCATTERING | ENTRY_CLOSED));
    EXPECT_FALSE((t.b->entry->flags & (ENTRY_ENTERED | ENTRY_ARRIVED)) != 0);
    t.press(3);
    t.press(BACKSPACE);
    EXPECT_EQ(number_entry_value(t.b->entry), top->answer + 1);
    t.frame(14);
    EXPECT_TRUE(t.b->slot[0] == top && t.b->remaining == 50 && t.b->entry->flags == 0);
    EXPECT_EQ(std::count(sounds_played.begin(), sounds_played.end(), SOUND_INCORRECT_NUMBER), 1);
    t.press(3);
    EXPECT_EQ(number_entry_value(t.b->entry), 3);
}

TEST(keypad, next_answer_waits_for_the_piece_that_grows) {
    keypad_table t;
    sprite *first = t.b->slot[0], *second = t.b->slot[1];
    board_debug_reveal(t.b);
    EXPECT_EQ(board_revealing_piece(t.b), first);
    board_debug_reveal(t.b);
    EXPECT_EQ(t.b->slot[0], second) << "one at a time";
    first->grow_w = first->grow_h = -40; // a piece that takes long to grow
    t.type(second->answer);
    t.press(ENTER);
    t.frame(30);
    EXPECT_FALSE(has_any(second, SPRITE_ANSWERED));
    for (int i = 0; i < 100 && has_any(first, SPRITE_GROW); ++i)
        t.frame();
    t.frame();
    EXPECT_TRUE(has(second, SPRITE_ANSWERED));
}

} // namespace
