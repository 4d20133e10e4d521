// deck_test.cpp: dealing, turning, taking and drawing the cards.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/deck.h"

#include "puzzles/placement.h"
#include "puzzles/random_list.h"
#include "sound/sound.h"
#include "sprites/effect.h"
#include "sprites/number_entry.h"
#include "unit/puzzles/table.h"

namespace {

void press_next(board *b) {
    board_deck_next(nullptr, reinterpret_cast<std::intptr_t>(b), 0);
}

struct open_deck : puzzle_table {
    explicit open_deck(i32 type) : puzzle_table(type) {
        frame();
        press_next(b);
        frames_while(BOARD_DECK_MOVING);
        sounds_played.clear();
    }
    // Only these pieces are left, on these cards; '-' is an empty card, a letter the piece with its number.
    void leave_only(const std::string &cards, const std::string &answered) {
        for (sprite *piece : each(b->pieces)) {
            piece->flags |= SPRITE_ANSWERED | SPRITE_INERT;
            piece->flags &= ~SPRITE_AVAILABLE;
        }
        for (std::size_t i = 0; i < DECK_CARDS; ++i) {
            b->slot[i] = cards[i] == '-' ? nullptr : piece(cards[i] - 'a');
            if (b->slot[i] != nullptr && answered.find(cards[i]) == answered.npos)
                b->slot[i]->flags &= ~SPRITE_ANSWERED;
        }
    }
    std::string cards() const {
        std::string names;
        for (const sprite *piece : b->slot)
            names += name_of(piece);
        return names;
    }
    static char name_of(const sprite *piece) {
        return piece == nullptr ? '-' : static_cast<char>('a' + piece->label_index);
    }
    // A click on the middle of the top card.
    void click_card() const { board_take_top_card(b, b->deck_x + 20, b->deck_y + 20); }
};

TEST(deck, opens_with_the_first_turn) {
    puzzle_table t(4);
    EXPECT_TRUE(board_is(t.b, BOARD_DECK_CLOSED));
    const button *next = t.b->buttons->items[2];
    EXPECT_EQ(next->pictures[0], t.b->key_pictures[3]);
    EXPECT_TRUE(next->x == 320 && next->y == 415 + 4 + 21 - 18);
    t.frame();
    press_next(t.b);
    EXPECT_TRUE(board_is(t.b, BOARD_DECK_OPENING) && board_is(t.b, BOARD_DECK_MOVING));
    EXPECT_FALSE(board_is(t.b, BOARD_DECK_CLOSED | BOARD_CLOCK));
    t.frame();
    EXPECT_TRUE(board_is(t.b, BOARD_CLOCK));
    for (const sprite *piece : t.b->slot)
        ASSERT_TRUE(piece != nullptr && !has_any(piece, SPRITE_AVAILABLE));
    const sprite *top = t.b->slot[0];
    press_next(t.b); // the cards are moving
    EXPECT_EQ(t.b->slot[0], top);
    t.frames_while(BOARD_DECK_MOVING);
    EXPECT_FALSE(board_is(t.b, BOARD_DECK_OPENING));
}

TEST(deck, deals_a_card_and_takes_the_top_one_back) {
    for (const i32 type : {4, 3}) {
        open_deck t(type);
        sprite *before[] = {t.b->slot[0], t.b->slot[1], t.b->slot[2]};
        board_deal(t.b);
        EXPECT_EQ(t.b->leaving, before[0]);
        EXPECT_TRUE(t.b->slot[0] == before[1] && t.b->slot[1] == before[2] && t.b->slot[2] != before[0]);
        EXPECT_TRUE(has(before[0], SPRITE_AVAILABLE));
        EXPECT_FALSE(has_any(t.b->slot[2], SPRITE_AVAILABLE));
        // With text cards the second card's problem may come back, too.
        EXPECT_EQ(has(before[1], SPRITE_AVAILABLE), type == 3);
    }
}

TEST(deck, finds_the_last_available_piece_wherever_it_lies) {
    open_deck t(6);
    for (int round = 0; round < 40; ++round) {
        t.leave_only("abc", "");
        sprite *last = t.piece(20);
        last->flags |= SPRITE_AVAILABLE;
        last->flags &= ~SPRITE_ANSWERED;
        board_deal(t.b);
        ASSERT_EQ(t.b->slot[2], last);
        random_list_pick(t.b->deck_pool); // so that the next round's cycle stands elsewhere
    }
}

TEST(deck, used_up_cards_take_turns_and_answered_ones_go) {
    open_deck t(4);
    const struct {
        const char *cards, *answered;
        i32 remaining;
        const char *then;
        char leaving;
    } ROWS[] = {
        {"abc", "", 3, "bca", 'a'},  {"ab-", "", 2, "ba-", 'a'},   {"abc", "a", 2, "bc-", 'a'},
        {"abc", "b", 2, "ac-", 'a'}, {"abc", "ac", 1, "b--", '-'}, {"ab-", "a", 1, "b--", '-'},
        {"a--", "", 1, "a--", '-'},  {"a--", "a", 0, "---", 'a'},  {"---", "", 5, "---", '-'},
    };
    for (const auto &[cards, answered, remaining, then, leaving] : ROWS) {
        t.leave_only(cards, answered);
        t.b->remaining = remaining;
        board_deal(t.b);
        EXPECT_EQ(t.cards(), then) << cards << " answered " << answered;
        EXPECT_EQ(open_deck::name_of(t.b->leaving), leaving) << cards << " answered " << answered;
    }
}

TEST(deck, turns_in_104_frames_and_ends_where_it_began) {
    const struct {
        const char *cards;
        int frames;
        i32 farthest, end_dx; // of the turned card, from the deck
    } ROWS[] = {{"abc", 104, 50, -2}, {"ab-", 104, 50, -2}, {"a--", 1, 0, 0}};
    for (const auto &[cards, frames, farthest, end_dx] : ROWS) {
        open_deck t(4);
        t.leave_only(cards, "");
        t.frame();
        press_next(t.b);
        int count = 0;
        i32 far = 0;
        for (; board_is(t.b, BOARD_DECK_MOVING) && count < 200; ++count) {
            t.frame();
            far = std::max(far, t.b->leaving_x - t.b->deck_x);
        }
        EXPECT_EQ(count, frames) << cards;
        EXPECT_EQ(far, farthest) << cards;
        EXPECT_EQ(t.b->leaving_x - t.b->deck_x, end_dx) << cards;
        EXPECT_EQ(t.b->leaving_y - t.b->deck_y, -end_dx) << cards;
        const int shown = static_cast<int>(std::string(cards).find('-')) < 0 ? 3 : 1;
        for (i32 i = 0; i < shown; ++i)
            EXPECT_TRUE(t.b->slot_x[i] == t.b->deck_x - 2 * i && t.b->slot_y[i] == t.b->deck_y + 2 * i) << cards << i;
    }
}

TEST(deck, gives_its_top_card_only_when_nothing_is_loose) {
    const struct {
        const char *what;
        void (*spoil)(open_deck &t);
        i32 dx, dy; // of the click, from the card's corner
        bool taken;
    } ROWS[] = {
        {"first pixel", [](open_deck &) {}, 0, 0, true},
        {"last pixel", [](open_deck &) {}, 51, 41, true},
        {"beside it", [](open_deck &) {}, 52, 20, false},
        {"below it", [](open_deck &) {}, 20, 42, false},
        {"left of it", [](open_deck &) {}, -1, 20, false},
        {"loose piece", [](open_deck &t) { t.b->pieces->items[7]->flags &= ~SPRITE_INERT; }, 20, 20, false},
        {"moving", [](open_deck &t) { t.b->state |= BOARD_DECK_MOVING; }, 20, 20, false},
        {"closed", [](open_deck &t) { t.b->state |= BOARD_DECK_CLOSED; }, 20, 20, false},
        {"text cards", [](open_deck &t) { t.b->features |= BOARD_CARD_TEXT; }, 20, 20, false},
        {"no card", [](open_deck &t) { t.b->slot[0] = nullptr; }, 20, 20, false},
    };
    for (const auto &[what, spoil, dx, dy, taken] : ROWS) {
        open_deck t(4);
        sprite *top = t.b->slot[0];
        spoil(t);
        board_take_top_card(t.b, t.b->deck_x + dx, t.b->deck_y + dy);
        EXPECT_EQ(has_any(top, SPRITE_ANSWERED), taken) << what;
        EXPECT_EQ(has(top, SPRITE_UNFOLD | SPRITE_FOLLOW | SPRITE_RAISE), taken) << what;
        EXPECT_EQ(was_played(SOUND_PIECE_EMERGE), taken) << what;
        EXPECT_EQ(top->x == t.b->deck_x + 4 && top->y == t.b->deck_y + 4 && top->anchor_x == top->x, taken) << what;
    }
}

TEST(deck, takes_an_unplaced_piece_back_when_turned) {
    open_deck t(4);
    sprite *top = t.b->slot[0];
    t.click_card();
    t.frame(20);
    EXPECT_EQ(t.b->remaining, 49);
    top->x = 100;
    top->y = 90;
    press_next(t.b);
    EXPECT_FALSE(has_any(top, SPRITE_ANSWERED));
    EXPECT_TRUE(was_played(SOUND_PIECE_RETURN));
    ASSERT_EQ(t.b->new_effects->count, 1);
    EXPECT_TRUE(t.b->new_effects->items[0]->kind == EFFECT_FLARE && t.b->new_effects->items[0]->x == 100 + 22 - 4);
    t.frame(9);
    EXPECT_FALSE(has_any(top, SPRITE_HIDDEN));
    t.frame();
    EXPECT_EQ(t.b->remaining, 50);
    EXPECT_TRUE(has(top, SPRITE_HIDDEN | SPRITE_INERT | SPRITE_AVAILABLE) && top->x == t.b->deck_x + 4);
    // The last card is not turned while its piece lies on the board.
    t.frames_while(BOARD_DECK_MOVING);
    t.leave_only("a--", "a");
    t.frame();
    press_next(t.b);
    EXPECT_FALSE(board_is(t.b, BOARD_DECK_MOVING));
}

TEST(deck, deals_and_burns_when_its_piece_is_placed) {
    open_deck t(6);
    sprite *top = t.b->slot[0];
    const sprite *second = t.b->slot[1];
    t.click_card();
    t.put_on_cell(top);
    board_drop_piece(t.b, top);
    EXPECT_EQ(t.b->slot[0], second);
    ASSERT_EQ(t.b->new_effects->count, 1);
    const effect *burn = t.b->new_effects->items[0];
    EXPECT_TRUE(burn->kind == EFFECT_BURN && burn->w == 10) << "the large pictures";
    EXPECT_TRUE(burn->x == 350 + 37 - 5 && burn->y == 495 + 34 - 5) << burn->x << ", " << burn->y;
}

// --- Drawing -------------------------------------------------------------------------------------

std::vector<std::string> drawn_deck(const open_deck &t) {
    picture_names names = {{t.b->card_picture, "card"}, {t.b->empty_deck_picture, "empty"}};
    for (i32 i = 0; i < DECK_CARDS; ++i)
        names[t.b->labels[i]] = std::string("face ") + static_cast<char>('a' + i);
    board_draw_deck(t.b);
    return take_recording(names).now;
}

TEST(deck, draws_cards_in_the_order_in_which_they_lie) {
    open_deck t(7); // card 63 x 58 at (370, 395), labels 20 x 10, moved by (3, 2)
    using lines = std::vector<std::string>;
    const lines stack = {"image card 366 399",   "image face c 390 425", "image card 368 397",
                         "image face b 392 423", "image card 370 395",   "image face a 394 421"};
    const lines backs = {"image card 366 399", "image card 368 397", "image card 370 395"};
    const lines turned = {"image card 400 395", "image face a 424 421"};
    const auto together = [](lines first, const lines &second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    };
    const struct {
        const char *what;
        u32 state;
        i32 remaining, phase;
        lines expected;
    } ROWS[] = {
        {"resting", 0, 9, 0, stack},
        {"two left", 0, 1, 0, lines(stack.begin() + 2, stack.end())},
        {"closed", BOARD_DECK_CLOSED, 9, 0, backs},
        {"locked", BOARD_DECK_LOCK, 9, 0, backs},
        {"empty", BOARD_DECK_MOVING, 0, 0, {"image empty 370 395"}},
        {"sliding out", BOARD_DECK_MOVING, 9, 1, together(stack, turned)},
        {"sliding in", BOARD_DECK_MOVING, 9, 2, together(turned, stack)},
        {"opening", BOARD_DECK_MOVING | BOARD_DECK_OPENING, 9, 1, together(stack, {turned[0]})},
    };
    t.leave_only("abc", "");
    t.b->leaving = t.b->slot[0];
    t.b->leaving_x = 400;
    t.b->leaving_y = 395;
    for (const auto &[what, state, remaining, phase, expected] : ROWS) {
        t.b->state = state;
        t.b->remaining = remaining;
        t.b->deck_phase = phase;
        EXPECT_EQ(drawn_deck(t), expected) << what;
    }
    t.b->state = 0;
    t.b->remaining = 9;
    t.b->slot[0]->flags &= ~SPRITE_INERT;
    EXPECT_EQ(drawn_deck(t), together(stack, {"ex card 370 395 104 ff9696"}));
}

TEST(deck, draws_problem_texts_on_one_line) {
    const open_deck t(1); // card 52 x 42
    picture_names names;
    for (i32 i = 0; i < 11; ++i)
        names[t.b->card_symbols[i]] = "0123456789x"[i];
    t.b->card_symbols[10]->height = 6; // the sign is lower than the digits, and stands on their line
    board_draw_card_text(t.b, 100, 200, "5x?10");
    const recording drawn = take_recording(names);
    EXPECT_EQ(drawn.now,
              (std::vector<std::string>{"image 5 112 216", "image x 119 220", "image 1 126 216", "image 0 133 216"}));
    EXPECT_TRUE(drawn.next.empty());
    for (const char *nothing : {"", "?", static_cast<const char *>(nullptr)})
        board_draw_card_text(t.b, 0, 0, nothing);
    EXPECT_TRUE(take_recording(names).now.empty());
}

} // namespace
