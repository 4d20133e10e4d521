// whole_puzzle_test.cpp: the keypad, and every puzzle played to its end.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/debug_actions.h"
#include "puzzles/deck.h"
#include "puzzles/keypad.h"
#include "puzzles/placement.h"
#include "puzzles/puzzle_info.h"
#include "sound/sound.h"
#include "sprites/number_entry.h"
#include "unit/puzzles/table.h"

#include <SDL_keysym.h>

#include <random>

namespace {

std::vector<i32> digits_of(i32 number) {
    std::vector<i32> digits;
    for (const char digit : std::to_string(number))
        digits.push_back(digit - '0');
    return digits;
}

struct keypad_table : puzzle_table {
    keypad_table() : puzzle_table(3) {
        frame();
        press_key(SDLK_SPACE);
        frames_while(BOARD_DECK_MOVING);
        sounds_played.clear();
    }
    bool entry_has(u32 flags) const { return (b->entry->flags & flags) == flags; }
};

TEST(keypad, types_deletes_and_enters) {
    const keypad_table t;
    const i32 ORDER[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, KEY_DELETE, 0, KEY_ANSWER};
    for (i32 i = 0; i < KEY_SYMBOLS; ++i) {
        const button *key = t.b->buttons->items[2 + i];
        EXPECT_EQ(key->label, t.b->key_symbols[ORDER[i]]);
        EXPECT_TRUE(key->x == 333 + i % 3 * 41 && key->y == 393 + i / 3 * 39) << i;
    }
    t.type_keys({0, KEY_ANSWER, 4, 2, KEY_DELETE, 7});
    EXPECT_TRUE(number_entry_value(t.b->entry) == 47 && !t.entry_has(ENTRY_ENTERED));
    t.b->state |= BOARD_DECK_MOVING;
    t.type_keys({KEY_ANSWER});
    EXPECT_FALSE(t.entry_has(ENTRY_ENTERED)) << "enter waits for the cards";
    t.b->state &= ~BOARD_DECK_MOVING;
    t.type_keys({KEY_ANSWER});
    EXPECT_TRUE(t.entry_has(ENTRY_ENTERED));
    t.press_key(SDLK_SPACE);
    EXPECT_FALSE(board_is(t.b, BOARD_DECK_MOVING)) << "next waits for the answer";
    t.frame(40);
    t.type_keys({5});
    t.press_key(SDLK_SPACE);
    EXPECT_TRUE(board_is(t.b, BOARD_DECK_MOVING) && number_entry_length(t.b->entry) == 0);
}

TEST(keypad, right_answer_reveals_the_piece_once_the_digits_are_there) {
    const keypad_table t;
    sprite *top = t.b->slot[0], *second = t.b->slot[1];
    t.type_keys(digits_of(top->answer));
    t.type_keys({KEY_ANSWER});
    int waited = 0;
    for (; !has_any(top, SPRITE_ANSWERED) && waited < 40; ++waited)
        t.frame();
    EXPECT_TRUE(waited >= 10 && waited <= 12) << waited;
    EXPECT_TRUE(has(top, SPRITE_GROW | SPRITE_INERT) && !has_any(top, SPRITE_HIDDEN | SPRITE_AVAILABLE));
    EXPECT_TRUE(top->x == t.b->deck_x + 4 && top->y == t.b->deck_y + 4);
    EXPECT_TRUE(t.b->remaining == 49 && t.b->slot[0] == second && number_entry_length(t.b->entry) == 0);
    EXPECT_TRUE(was_played(SOUND_PIECE_EMERGE) && !was_played(SOUND_INCORRECT_NUMBER));
    EXPECT_EQ(t.frames_while(BOARD_DECK_LOCK), 14) << "the first of the 15 frames has passed";
    t.frame(30);
    EXPECT_TRUE(!has_any(top, SPRITE_GROW | SPRITE_INERT) && t.b->pieces->items[49] == top);
}

TEST(keypad, wrong_answer_scatters_and_keeps_the_problem) {
    const keypad_table t;
    const sprite *top = t.b->slot[0];
    t.type_keys(digits_of(top->answer + 1));
    t.type_keys({KEY_ANSWER});
    t.frame(14);
    EXPECT_EQ(t.b->entry->flags, ENTRY_SCATTERING | ENTRY_CLOSED);
    t.type_keys({3, KEY_DELETE});
    EXPECT_EQ(number_entry_value(t.b->entry), top->answer + 1);
    t.frame(14);
    EXPECT_TRUE(t.b->slot[0] == top && t.b->remaining == 50 && t.b->entry->flags == 0);
    EXPECT_EQ(std::count(sounds_played.begin(), sounds_played.end(), SOUND_INCORRECT_NUMBER), 1);
}

TEST(keypad, next_answer_waits_for_the_piece_that_grows) {
    const keypad_table t;
    sprite *first = t.b->slot[0], *second = t.b->slot[1];
    board_debug_reveal(t.b);
    board_debug_reveal(t.b);
    EXPECT_TRUE(board_revealing_piece(t.b) == first && t.b->slot[0] == second) << "one at a time";
    first->grow_w = first->grow_h = -40; // it takes long to grow
    t.type_keys(digits_of(second->answer));
    t.type_keys({KEY_ANSWER});
    t.frame(30);
    EXPECT_FALSE(has_any(second, SPRITE_ANSWERED));
    t.frame(20);
    EXPECT_TRUE(has(second, SPRITE_ANSWERED));
}

// --- Whole puzzles, with wrong answers, wrong drops and cards turned away ---------------------------------

struct player : puzzle_table {
    std::mt19937 dice;

    player(i32 type, unsigned seed) : puzzle_table(type), dice(seed) { frame(); }

    bool once_in(unsigned n) { return dice() % n == 0; }

    void turn() const {
        press_key(SDLK_SPACE);
        frames_while(BOARD_DECK_MOVING);
        frame(12);
    }
    void place(sprite *piece) {
        piece->flags |= SPRITE_HELD;
        const bool missed = once_in(4);
        put_on_cell(piece, missed ? 20 : 2, missed ? 9 : -3);
        board_drop_piece(b, piece);
    }
    void answer() {
        type_keys(digits_of(b->slot[0]->answer + (once_in(4) ? 1 : 0)));
        type_keys({KEY_ANSWER});
        frame(60);
    }
    void move() {
        if (board_has(b, BOARD_HAS_DECK) && (board_is(b, BOARD_DECK_CLOSED) || once_in(3)))
            turn();
        const auto *pieces = b->pieces;
        const auto loose = std::find_if(pieces->items, pieces->items + pieces->count,
                                        [](const sprite *piece) { return !has_any(piece, SPRITE_INERT); });
        if (loose != pieces->items + pieces->count)
            place(*loose);
        else if (board_has(b, BOARD_HAS_KEYPAD) && b->slot[0] != nullptr)
            answer();
        else
            board_take_top_card(b, b->slot_x[0] + 5, b->slot_y[0] + 5);
        frame();
    }
};

TEST(whole_puzzle, can_always_be_finished) {
    constexpr int MOVE_LIMIT = 3000;
    for (i32 type = 0; type < PUZZLE_COUNT; ++type)
        for (unsigned seed = 1; seed <= 3; ++seed) {
            player p(type, seed);
            std::srand(seed);
            for (int moves = 0; !board_is(p.b, BOARD_COMPLETE) && moves < MOVE_LIMIT; ++moves)
                p.move();
            EXPECT_TRUE(board_is(p.b, BOARD_COMPLETE)) << type << ", " << seed << ": " << p.b->remaining << " left";
            EXPECT_EQ(p.b->placed, p.b->pieces->count) << type << ", " << seed;
            for (const sprite *piece : each(p.b->pieces))
                EXPECT_TRUE(has(piece, SPRITE_FIXED) && !has_any(piece, SPRITE_HIDDEN)) << type << ", " << seed;
        }
}

} // namespace
