// taken_back_test.cpp: the deck and pieces that are out of it at an awkward moment.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/debug_actions.h"
#include "puzzles/deck.h"
#include "puzzles/placement.h"
#include "unit/puzzles/table.h"

#include <SDL_keysym.h>

namespace {

struct open_deck : puzzle_table {
    open_deck() : puzzle_table(4) {
        frame();
        press_key(SDLK_SPACE);
        frames_while(BOARD_DECK_MOVING);
    }
    sprite *take_top() const {
        sprite *top = b->slot[0];
        board_take_top_card(b, b->slot_x[0] + 5, b->slot_y[0] + 5);
        frame();
        return top;
    }
};

TEST(deck, piece_that_it_takes_back_is_not_placed) {
    const open_deck t;
    sprite *taken = t.take_top();
    t.press_key(SDLK_SPACE);
    EXPECT_TRUE(has(taken, SPRITE_VANISH));
    t.put_on_cell(taken);
    board_drop_piece(t.b, taken);
    board_debug_place_one(t.b);
    t.frame(12);
    EXPECT_TRUE(t.b->placed == 0 && !has_any(taken, SPRITE_FIXED) && has(taken, SPRITE_AVAILABLE | SPRITE_HIDDEN));
}

TEST(deck, placing_most_pieces_loses_none_of_the_others) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const open_deck t;
        std::srand(seed);
        t.take_top();
        board_debug_place_most(t.b);
        for (sprite *piece : each(t.b->pieces)) {
            const bool on_card = std::find(t.b->slot, t.b->slot + DECK_CARDS, piece) != t.b->slot + DECK_CARDS;
            EXPECT_TRUE(on_card || !has_any(piece, SPRITE_HIDDEN) || has_any(piece, SPRITE_FIXED | SPRITE_AVAILABLE))
                << "seed " << seed << ", piece " << piece->label_index;
        }
    }
}

} // namespace
