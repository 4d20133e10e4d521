// whole_puzzle_test.cpp: plays every puzzle to its end, with wrong answers, wrong drops and cards turned away.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/deck.h"
#include "puzzles/keypad.h"
#include "puzzles/placement.h"
#include "puzzles/puzzle_info.h"
#include "sprites/number_entry.h"
#include "unit/puzzles/table.h"

#include <SDL_keysym.h>

#include <random>

namespace {

constexpr int MOVE_LIMIT = 3000;

struct player : puzzle_table {
    std::mt19937 dice;

    player(i32 type, unsigned seed) : puzzle_table(type), dice(seed) { frame(); }

    bool now_and_then(unsigned one_in) { return dice() % one_in == 0; }

    void turn() {
        press_key(SDLK_SPACE);
        frames_while(BOARD_DECK_MOVING);
        frame(12);
    }
    void place(sprite *piece) {
        piece->flags |= SPRITE_HELD;
        if (now_and_then(4)) {
            put_on_cell(piece, 20, 9);
            board_drop_piece(b, piece);
            frame(3);
            if (board_has(b, BOARD_HAS_DECK) && now_and_then(2))
                return; // it lies there, or the next turn takes it back
        }
        put_on_cell(piece, 2, -3);
        board_drop_piece(b, piece);
        frame();
    }
    void press(i32 value) const {
        button *key = key_with(b->key_symbols[value]);
        button_press(key);
        button_release(key);
    }
    void answer() {
        for (const char digit : std::to_string(b->slot[0]->answer + (now_and_then(4) ? 1 : 0)))
            press(digit - '0');
        press(11);
        frame(60);
    }
    sprite *loose_piece() const {
        for (sprite *piece : each(b->pieces))
            if (!has_any(piece, SPRITE_INERT))
                return piece;
        return nullptr;
    }
    void move() {
        const bool deck = board_has(b, BOARD_HAS_DECK);
        if (deck && (board_is(b, BOARD_DECK_CLOSED) || now_and_then(3)))
            turn();
        if (sprite *piece = loose_piece())
            place(piece);
        else if (board_has(b, BOARD_HAS_KEYPAD) && b->slot[0] != nullptr)
            answer();
        else if (deck)
            board_take_top_card(b, b->slot_x[0] + 5, b->slot_y[0] + 5);
        frame();
    }
};

TEST(whole_puzzle, can_always_be_finished) {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type)
        for (unsigned seed = 1; seed <= 3; ++seed) {
            player p(type, seed);
            std::srand(seed);
            int moves = 0;
            while (!board_is(p.b, BOARD_COMPLETE) && moves++ < MOVE_LIMIT)
                p.move();
            EXPECT_TRUE(board_is(p.b, BOARD_COMPLETE)) << type << ", " << seed << ": " << p.b->remaining << " left";
            EXPECT_EQ(p.b->placed, p.b->pieces->count) << type << ", " << seed;
            EXPECT_GT(p.b->seconds, 0);
            for (const sprite *piece : each(p.b->pieces))
                EXPECT_TRUE(has(piece, SPRITE_FIXED) && !has_any(piece, SPRITE_HIDDEN)) << type << ", " << seed;
        }
}

} // namespace
