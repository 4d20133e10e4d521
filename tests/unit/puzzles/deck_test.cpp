// deck_test.cpp: dealing, turning, taking and drawing the cards, and the keypad.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/deck.h"

#include "puzzles/debug_actions.h"
#include "puzzles/placement.h"
#include "puzzles/random_list.h"
#include "sound/sound.h"
#include "sprites/effect.h"
#include "sprites/number_entry.h"
#include "unit/puzzles/table.h"

#include <SDL_keysym.h>

#include <set>
#include <algorithm>

namespace {

void press_next(board *b) {
    board_deck_next(nullptr, reinterpret_cast<std::intptr_t>(b), 0);
}

// Types 4, 6 and 7 have plain cards, types 1 and 3 text cards.
struct open_deck : puzzle_table {
    explicit open_deck(i32 type) : puzzle_table(type) {
        frame();
        press_next(b);
        frames_while(BOARD_DECK_MOVING);
        sounds_played.clear();
    }
    // Only these pieces are left, on these cards; '-' is an empty card, a letter the piece with its number.
    void leave_only(const std::string &cards, const std::string &answered) const {
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
    static char name_of(const sprite *piece) {
        return piece == nullptr ? '-' : static_cast<char>('a' + piece->label_index);
    }
    std::string cards() const { return {name_of(b->slot[0]), name_of(b->slot[1]), name_of(b->slot[2])}; }
};

TEST(deck, deals_what_is_available_and_takes_the_top_card_back) {
    for (const i32 type : {4, 3}) {
        const open_deck t(type);
        sprite *before[] = {t.b->slot[0], t.b->slot[1], t.b->slot[2]};
        board_deal(t.b);
        EXPECT_TRUE(t.b->leaving == before[0] && t.b->slot[0] == before[1] && t.b->slot[1] == before[2]);
        EXPECT_TRUE(has(before[0], SPRITE_AVAILABLE) && !has_any(t.b->slot[2], SPRITE_AVAILABLE));
        EXPECT_EQ(has(before[1], SPRITE_AVAILABLE), type == 3) << "text cards come back later";
    }
}

TEST(deck, used_up_cards_take_turns_and_answered_ones_go) {
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
    for (const i32 type : {4, 1}) {
        const open_deck t(type);
        for (const auto &[cards, answered, remaining, then, leaving] : ROWS) {
            t.leave_only(cards, answered);
            t.b->remaining = remaining;
            board_deal(t.b);
            EXPECT_EQ(t.cards(), then) << cards << " answered " << answered;
            EXPECT_EQ(open_deck::name_of(t.b->leaving), leaving) << cards << " answered " << answered;
        }
        t.leave_only("abc", "");
        t.b->remaining = 3;
        for (const char *then : {"bca", "cab", "abc", "bca"}) {
            board_deal(t.b);
            EXPECT_EQ(t.cards(), then) << "no problem lies on two cards";
        }
    }
}

TEST(deck, turns_in_104_frames_and_ends_where_it_began) {
    const struct {
        const char *cards;
        int frames;
        i32 farthest, end; // of the turned card, from the deck
        i32 shown;         // places that must be as before
    } ROWS[] = {{"abc", 104, 50, -2, 3}, {"ab-", 104, 50, -2, 2}, {"a--", 1, 0, 0, 1}};
    for (const auto &[cards, frames, farthest, end, shown] : ROWS) {
        const open_deck t(4);
        t.leave_only(cards, "");
        t.frame();
        press_next(t.b);
        int count = 0;
        i32 far = 0;
        for (; board_is(t.b, BOARD_DECK_MOVING) && count < 200; ++count) {
            t.frame();
            far = std::max(far, t.b->leaving_x - t.b->deck_x);
        }
        EXPECT_TRUE(count == frames && far == farthest) << cards << ": " << count << ", " << far;
        EXPECT_TRUE(t.b->leaving_x == t.b->deck_x + end && t.b->leaving_y == t.b->deck_y - end) << cards;
        for (i32 i = 0; i < shown; ++i)
            EXPECT_TRUE(t.b->slot_x[i] == t.b->deck_x - 2 * i && t.b->slot_y[i] == t.b->deck_y + 2 * i) << cards << i;
    }
}

TEST(deck, gives_its_top_card_only_when_nothing_is_loose) {
    using spoil = void (*)(board * b);
    const spoil nothing = [](board *) {};
    const struct {
        const char *what;
        spoil first;
        i32 dx, dy; // of the click, from the card's corner
        bool taken;
    } ROWS[] = {
        {"first pixel", nothing, 0, 0, true},
        {"last pixel", nothing, 51, 41, true},
        {"beside it", nothing, 52, 20, false},
        {"below it", nothing, 20, 42, false},
        {"left of it", nothing, -1, 20, false},
        {"loose piece", [](board *b) { b->pieces->items[7]->flags &= ~SPRITE_INERT; }, 20, 20, false},
        {"moving", [](board *b) { b->state |= BOARD_DECK_MOVING; }, 20, 20, false},
        {"closed", [](board *b) { b->state |= BOARD_DECK_CLOSED; }, 20, 20, false},
        {"no card", [](board *b) { b->slot[0] = nullptr; }, 20, 20, false},
    };
    const open_deck t(4);
    for (const auto &[what, first, dx, dy, taken] : ROWS) {
        t.leave_only("abc", "");
        sprite *top = t.b->slot[0];
        top->flags = SPRITE_INERT;
        t.b->state = 0;
        first(t.b);
        board_take_top_card(t.b, t.b->deck_x + dx, t.b->deck_y + dy);
        EXPECT_EQ(has(top, SPRITE_ANSWERED | SPRITE_UNFOLD | SPRITE_FOLLOW | SPRITE_RAISE), taken) << what;
        EXPECT_EQ(take_sounds(), taken ? sounds{SOUND_PIECE_EMERGE} : sounds{}) << what;
    }
}

TEST(deck, takes_an_unplaced_piece_back_when_turned) {
    const open_deck t(4);
    sprite *top = t.b->slot[0];
    board_take_top_card(t.b, t.b->deck_x + 20, t.b->deck_y + 20);
    t.frame(20);
    top->x = 100;
    press_next(t.b);
    EXPECT_TRUE(!has_any(top, SPRITE_ANSWERED) && was_played(SOUND_PIECE_RETURN));
    ASSERT_EQ(t.b->new_effects->count, 1);
    EXPECT_TRUE(t.b->new_effects->items[0]->kind == EFFECT_FLARE && t.b->new_effects->items[0]->x == 100 + 22 - 6);
    t.frame(10);
    EXPECT_TRUE(has(top, SPRITE_HIDDEN | SPRITE_INERT | SPRITE_AVAILABLE) && top->x == t.b->deck_x + 4);
    t.frames_while(BOARD_DECK_MOVING);
    t.leave_only("abc", "a");
    t.frame();
    press_next(t.b);
    EXPECT_EQ(t.cards(), "bca") << "three again: they take turns";
}

TEST(deck, deals_and_burns_when_its_piece_is_placed) {
    const open_deck t(6);
    sprite *top = t.b->slot[0];
    const sprite *second = t.b->slot[1];
    t.put_on_cell(top);
    board_drop_piece(t.b, top);
    EXPECT_EQ(t.b->slot[0], second);
    ASSERT_EQ(t.b->new_effects->count, 1);
    const effect *burn = t.b->new_effects->items[0];
    EXPECT_TRUE(burn->kind == EFFECT_BURN && burn->w == 10) << "the large pictures";
    EXPECT_TRUE(burn->x == 350 + 37 - 5 && burn->y == 495 + 34 - 5) << burn->x << ", " << burn->y;
}

TEST(deck, draws_cards_in_the_order_in_which_they_lie) {
    const open_deck t(7); // card 63 x 58 at (370, 395), labels 20 x 10, moved by (3, 2)
    const lines stack = {"image card 366 399",   "image face c 390 425", "image card 368 397",
                         "image face b 392 423", "image card 370 395",   "image face a 394 421"};
    const lines backs = {stack[0], stack[2], stack[4]}, turned = {"image card 400 395", "image face a 424 421"};
    const auto together = [](lines first, const lines &second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    };
    const struct {
        u32 state;
        i32 remaining, phase;
        u32 top_flags;
        lines expected;
    } ROWS[] = {
        {0, 9, 0, SPRITE_INERT, stack},
        {0, 1, 0, SPRITE_INERT, lines(stack.begin() + 2, stack.end())},
        {0, 9, 0, 0, together(stack, {"ex card 370 395 104 ff9696"})}, // its piece lies on the board
        {BOARD_DECK_CLOSED, 9, 0, SPRITE_INERT, backs},
        {BOARD_DECK_LOCK, 9, 0, SPRITE_INERT, backs},
        {BOARD_DECK_MOVING, 0, 0, 0, {"image empty 370 395"}},
        {BOARD_DECK_MOVING, 9, 1, SPRITE_INERT, together(stack, turned)},
        {BOARD_DECK_MOVING, 9, 2, SPRITE_INERT, together(turned, stack)},
        {BOARD_DECK_MOVING | BOARD_DECK_OPENING, 9, 1, SPRITE_INERT, together(stack, {turned[0]})},
    };
    t.leave_only("abc", "");
    t.b->leaving = t.b->slot[0];
    t.b->leaving_x = 400;
    t.b->leaving_y = 395;
    const picture_names names = {{t.b->card_picture, "card"},
                                 {t.b->empty_deck_picture, "empty"},
                                 {t.b->labels[0], "face a"},
                                 {t.b->labels[1], "face b"},
                                 {t.b->labels[2], "face c"}};
    for (const auto &[state, remaining, phase, top_flags, expected] : ROWS) {
        t.b->state = state;
        t.b->remaining = remaining;
        t.b->deck_phase = phase;
        t.b->slot[0]->flags = top_flags;
        board_draw_deck(t.b);
        EXPECT_EQ(take_recording(names).now, expected) << "state " << state << ", phase " << phase;
    }
}

TEST(deck, draws_problem_texts_on_one_line) {
    const puzzle_table t(1); // card 52 x 42
    picture_names names;
    for (std::size_t i = 0; i < 11; ++i)
        names[t.b->card_symbols[i]] = "0123456789x"[i];
    t.b->card_symbols[10]->height = 6; // the sign is lower than the digits, and stands on their line
    board_draw_card_text(t.b, 100, 200, "5x?10");
    const recording drawn = take_recording(names);
    EXPECT_EQ(drawn.now, (lines{"image 5 112 216", "image x 119 220", "image 1 126 216", "image 0 133 216"}));
    EXPECT_TRUE(drawn.next.empty());
}

TEST(deck, is_left_with_three_cards_by_the_debug_mode) {
    for (const i32 type : {8, 1}) {
        puzzle_table t(type);
        t.frame();
        board_debug_place_most(t.b);
        EXPECT_EQ(t.b->placed, t.b->label_count - 3);
        std::set<const sprite *> cards;
        for (const sprite *piece : t.b->slot)
            if (piece != nullptr && !has_any(piece, SPRITE_FIXED | SPRITE_ANSWERED))
                cards.insert(piece);
        EXPECT_EQ(cards.size(), 3u) << type;
    }
}

TEST(random_list, hands_out_every_item_once_a_cycle_in_a_new_order) {
    const fake_scope fakes;
    sprite items[4] = {};
    random_list *list = random_list_create();
    const auto pick = [&](int count) {
        std::string names;
        while (count-- > 0)
            names += static_cast<char>('a' + (random_list_pick(list) - items));
        return names;
    };
    EXPECT_EQ(random_list_pick(list), nullptr);
    fake_dice({0, 0, 5, 2, 0, 1, 2, 3});
    for (sprite &item : items) // places 0, 0, 2, 2: a, then ba, then bac, then badc
        EXPECT_GT(random_list_add(list, &item), 0);
    EXPECT_EQ(pick(8), "badcabcd");
    EXPECT_EQ(fake_dice_drawn(), 8);
    random_list_free(list);
}

// --- The keypad ----------------------------------------------------------------------------------

std::vector<i32> digits_of(i32 number) {
    std::vector<i32> digits;
    for (const char digit : std::to_string(number))
        digits.push_back(digit - '0');
    return digits;
}

TEST(keypad, enter_waits_for_the_cards_and_next_for_the_answer) {
    const open_deck t(3);
    const number_entry *entry = t.b->entry;
    t.type_keys({0, KEY_ANSWER, 4, 2, KEY_DELETE, 7});
    EXPECT_EQ(number_entry_value(entry), 47);
    for (const u32 moving : {BOARD_DECK_MOVING, 0u}) {
        t.b->state = moving;
        t.type_keys({KEY_ANSWER});
        EXPECT_EQ((entry->flags & ENTRY_ENTERED) != 0, moving == 0);
    }
    t.press_key(SDLK_SPACE);
    EXPECT_FALSE(board_is(t.b, BOARD_DECK_MOVING));
    t.frame(40);
    t.type_keys({5});
    t.press_key(SDLK_SPACE);
    EXPECT_TRUE(board_is(t.b, BOARD_DECK_MOVING) && number_entry_length(entry) == 0);
    t.type_keys({5});
    EXPECT_TRUE(board_start(t.b) == 1 && number_entry_length(entry) == 0) << "a new run is asked afresh";
}

TEST(keypad, right_answer_reveals_the_piece_and_a_wrong_one_scatters) {
    const open_deck t(3);
    sprite *top = t.b->slot[0], *second = t.b->slot[1];
    t.type_keys(digits_of(top->answer + 1));
    t.type_keys({KEY_ANSWER});
    t.frame(14);
    EXPECT_EQ(t.b->entry->flags, ENTRY_SCATTERING | ENTRY_CLOSED);
    t.type_keys({3, KEY_DELETE});
    EXPECT_EQ(number_entry_value(t.b->entry), top->answer + 1);
    t.frame(14);
    EXPECT_TRUE(t.b->slot[0] == top && t.b->remaining == 50 && t.b->entry->flags == 0);
    EXPECT_EQ(std::count(sounds_played.begin(), sounds_played.end(), SOUND_INCORRECT_NUMBER), 1);

    sounds_played.clear();
    t.type_keys(digits_of(top->answer));
    t.type_keys({KEY_ANSWER});
    int waited = 0;
    for (; !has_any(top, SPRITE_ANSWERED) && waited < 40; ++waited)
        t.frame();
    EXPECT_TRUE(waited >= 10 && waited <= 12) << waited;
    EXPECT_TRUE(has(top, SPRITE_GROW | SPRITE_INERT) && !has_any(top, SPRITE_HIDDEN | SPRITE_AVAILABLE));
    EXPECT_TRUE(t.b->remaining == 49 && t.b->slot[0] == second && number_entry_length(t.b->entry) == 0);
    EXPECT_EQ(std::count(sounds_played.begin(), sounds_played.end(), SOUND_PIECE_EMERGE), 1);
    EXPECT_EQ(t.frames_while(BOARD_DECK_LOCK), 14) << "the first of the 15 frames has passed";
    t.frame(30);
    EXPECT_TRUE(!has_any(top, SPRITE_GROW | SPRITE_INERT) && t.b->pieces->items[49] == top);
}

TEST(keypad, next_answer_waits_for_the_piece_that_grows) {
    const open_deck t(3);
    sprite *first = t.b->slot[0], *second = t.b->slot[1];
    for (int i = 0; i < 2; ++i)
        board_debug_reveal(t.b);
    EXPECT_TRUE(t.b->slot[0] == second) << "one at a time";
    first->grow_w = first->grow_h = -40; // it takes long to grow
    t.type_keys(digits_of(second->answer));
    t.type_keys({KEY_ANSWER});
    t.frame(30);
    EXPECT_FALSE(has_any(second, SPRITE_ANSWERED));
    t.frame(20);
    EXPECT_TRUE(has(second, SPRITE_ANSWERED));
}

} // namespace
