// puzzles_test.cpp: loading and starting a run, its clock, dropping pieces, the cards and the keypad.
//
// With the real archive's pictures, but no video and no sound device: sounds that are asked for are written down, keys
// are scripted, a frame takes 20 ms.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/settings.h"
#include "core/ui/help.h"
#include "graphics/blit.h"
#include "input/input.h"
#include "puzzles/background.h"
#include "puzzles/board_update.h"
#include "puzzles/cells.h"
#include "puzzles/debug_actions.h"
#include "puzzles/deck.h"
#include "puzzles/deck_draw.h"
#include "puzzles/placement.h"
#include "puzzles/puzzle_layout.h"
#include "puzzles/random_list.h"
#include "resources/archive.h"
#include "resources/pixel.h"
#include "sound/sound.h"
#include "sprites/effect.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"
#include "support/fake_sdl.h"
#include "support/recording.h"
#include "support/temp_folder.h"

#include <SDL_keysym.h>
#include <gtest/gtest.h>

#include <algorithm>

// In place of the sound module's, which this program then does without.
void sound_play(i32 number) {
    sounds_played.push_back(number);
}

namespace {

constexpr i32 KEY_ANSWER = 11; // value of the keypad's key

bool has(const sprite *s, u32 flags) {
    return (s->flags & flags) == flags;
}
bool has_any(const sprite *s, u32 flags) {
    return (s->flags & flags) != 0;
}

// A board that was loaded and started.
struct puzzle_table {
    fake_scope fakes;
    temp_game game;
    app_state state{};
    board *b = board_create();

    explicit puzzle_table(i32 type) {
        game.log_to_file();
        std::filesystem::create_symlink(TAVIMO_DATA_FILE, game.data("data.dar"));
        fake_keys_up();
        fake_time_start(1000);
        video_format = {pixel32::BITS, sizeof(pixel32::value), pixel32::SHIFT};
        board_reset_background();
        app = &state;
        state.board = b;
        state.puzzle = type;
        EXPECT_EQ(data_archive_open(), 1);
        EXPECT_EQ(blit_init(), 1);
        EXPECT_EQ(input_init(), 1);
        EXPECT_EQ(help_init(), 1);
        EXPECT_EQ(effects_init(), 1);
        EXPECT_EQ(board_prepare(&state), 1);
        EXPECT_EQ(board_start(b, nullptr), 1);
        sounds_played.clear();
    }
    ~puzzle_table() {
        board_destroy(b);
        board_free_background();
        effects_shutdown();
        input_shutdown();
        draw_queue_free();
        data_archive_close();
        app = nullptr;
        settings = 0;
        video_format = {};
    }
    void frame(int count = 1) const {
        for (; count > 0; --count) {
            fake_time_advance(20);
            input_poll();
            board_update(b);
        }
    }
    int frames_while(u32 state_flag) const {
        int count = 0;
        for (; board_is(b, state_flag) && count < 1000; ++count)
            frame();
        return count;
    }
    void press_key(i32 key) const {
        fake_key(key, true);
        frame();
        fake_key(key, false);
    }
    // On the keypad.
    void type_keys(const std::vector<i32> &values) const {
        for (const i32 value : values)
            for (button *key : each(b->buttons))
                if (key->label == b->pictures.key_symbols[value]) {
                    button_press(key);
                    button_release(key);
                }
    }
    sprite *piece(i32 label) const {
        for (sprite *candidate : each(b->pieces))
            if (candidate->label_index == label)
                return candidate;
        return nullptr;
    }
    // So far from the place in which it is fixed.
    void put_on_cell(sprite *s, i32 dx = 0, i32 dy = 0) const {
        const puzzle_layout &l = PUZZLE_LAYOUTS[b->type];
        s->x = b->x + l.grid_x + s->target_col * (l.cell_w + 1) + 1 + dx;
        s->y = b->y + l.grid_y + s->target_row * (l.cell_h + l.row_gap) + 1 + dy;
    }
};

TEST(board, clock_waits_for_the_first_piece_and_stops_at_the_limit) {
    puzzle_table t(0);
    t.frame(200);
    t.piece(0)->flags |= SPRITE_HELD;
    t.frame(); // now is 0:00
    const struct {
        u32 advance; // ms beyond the frame's 20
        i32 seconds;
        const char *text;
    } ROWS[] = {{959, 0, "0:00"},     {0, 0, "0:00"},          {0, 1, "0:01"},
                {64'000, 65, "1:05"}, {535'000, 600, "10:00"}, {5'398'921, 5999, "99:59"},
                {1, 5999, "99:59"}};
    for (const auto &[advance, seconds, text] : ROWS) {
        fake_time_advance(advance);
        t.frame();
        EXPECT_EQ(t.b->clock.seconds, seconds) << text;
        EXPECT_STREQ(t.b->clock.text, text);
    }
    for (const auto &[seconds, rank] : {std::pair{0, 0}, {150, 0}, {151, 1}, {330, 2}, {360, 3}, {361, -1}}) {
        t.b->clock.seconds = seconds;
        EXPECT_EQ(board_master_rank(t.b), rank) << seconds;
    }
}

TEST(board, keeps_effects_until_they_have_finished) {
    const puzzle_table t(0);
    effect *made[2];
    for (effect *&e : made)
        board_add_effect(t.b, e = effect_create(EFFECT_FLARE), 5, 6);
    t.frame();
    EXPECT_EQ(made[0]->timer, 2) << "an effect's first step is in the frame after";
    made[0]->flags |= EFFECT_FINISHED;
    t.frame();
    ASSERT_EQ(t.b->effects->count, 1);
    EXPECT_EQ(t.b->effects->items[0], made[1]);
}

TEST(effects, flare_grows_waits_and_shrinks_and_burn_rises) {
    const puzzle_table t(0);
    for (const auto &[kind, count, rise, pictures] : {std::tuple{EFFECT_FLARE, 5, 0, "aabbccddeeeeedcba"},
                                                      {EFFECT_BURN, 18, 34, "aabbccddeeffgghhiijjkkllmmnnooppqqrr"}}) {
        effect *e = effect_create(kind);
        effect_centre_on(e, {100, 100, 31, 21});
        const i32 x = e->x + (e->w >> 1), y = e->y + (e->h >> 1);
        std::string shown;
        for (; (e->flags & EFFECT_FINISHED) == 0 && shown.size() < 100; effect_update(e)) {
            shown += static_cast<char>('a' + (std::find(e->frames, e->frames + count, e->picture) - e->frames));
            EXPECT_EQ(e->x + (e->w >> 1), x);
        }
        EXPECT_EQ(shown, pictures);
        EXPECT_EQ(y - (e->y + (e->h >> 1)), rise);
        effect_free(e);
    }
}

TEST(effects, confetti_falls_and_sways_about_its_way) {
    const puzzle_table t(0);
    const struct {
        std::initializer_list<int> dice; // colour, vx + 50, vy - 100, x - 50
        int frames;
        i32 dx, dy;
    } ROWS[] = {{{17, 50, 50, 0}, 200, 0, 300}, {{2, 0, 200, 100}, 50, -12, 150}, {{2, 100, 0, 100}, 50, 13, 50}};
    for (const auto &r : ROWS) {
        fake_dice(r.dice);
        effect *e = effect_create(EFFECT_CONFETTI);
        const i32 x = e->x + (e->w >> 1), y = e->y + (e->h >> 1);
        for (int i = 0; i < r.frames; ++i)
            effect_update(e);
        EXPECT_EQ(e->x + (e->w >> 1) - x, r.dx);
        EXPECT_EQ(e->y + (e->h >> 1) - y, r.dy) << r.dx;
        effect_free(e);
    }
}

TEST(cells, share_their_edge_places_with_neighbours_and_pieces) {
    const puzzle_table t(6);
    for (const sprite *cell : each(t.b->cells)) {
        const sprite *right = board_find_cell(t.b, cell->col + 1, cell->row);
        const sprite *below = board_find_cell(t.b, cell->col, cell->row + 1);
        if (right != nullptr) {
            EXPECT_EQ(right->tab_left, cell->sock_right);
        }
        if (below != nullptr) {
            EXPECT_EQ(below->tab_top, cell->sock_bottom);
        }
        EXPECT_GE(cell->tab_left, 10);
        EXPECT_LE(cell->tab_left, 20);
        EXPECT_GE(cell->tab_top, 10);
        EXPECT_LE(cell->tab_top, 30);
        const sprite *piece = t.piece(cell->row * t.b->layout->cols + cell->col);
        EXPECT_EQ(piece->tab_top, cell->tab_top);
        EXPECT_EQ(piece->tab_left, cell->tab_left);
        EXPECT_EQ(piece->sock_right, cell->sock_right);
        EXPECT_EQ(piece->sock_bottom, cell->sock_bottom);
    }
}

TEST(pieces, a_placed_one_hides_no_loose_one) {
    const puzzle_table t(0);
    sprite *const first = t.b->pieces->items[20], *const second = t.b->pieces->items[30];
    sprite *const strayed = t.b->pieces->items[10], *const below = t.b->pieces->items[9];
    for (sprite *piece : {first, second}) {
        sprite_raise(piece);
        t.put_on_cell(piece);
        board_drop_piece(t.b, piece);
        t.frame();
    }
    EXPECT_EQ(t.b->pieces->items[0], first);
    EXPECT_EQ(t.b->pieces->items[1], second);
    EXPECT_EQ(t.b->pieces->items[11], below) << "the others keep their order";
    EXPECT_EQ(t.b->pieces->items[12], strayed);
}

TEST(pieces, only_those_in_a_box_carry_the_place_where_they_lay) {
    for (const i32 type : {0, 9}) {
        const puzzle_table t(type);
        i32 far = 0; // from the first column and row
        for (const sprite *piece : each(t.b->pieces))
            far = std::max(far, piece->col + piece->row);
        EXPECT_EQ(far, type == 0 ? 9 + 4 : 0);
    }
}

TEST(placement, snaps_within_five_pixels_of_the_centre) {
    const struct {
        i32 dx, dy;
        bool placed;
    } ROWS[] = {{0, 0, true},  {3, 4, true},   {-4, -3, true},  {5, 0, true},  {0, -5, true},
                {4, 4, false}, {-6, 0, false}, {-3, -5, false}, {61, 0, false}};
    const puzzle_table t(4); // cells 46 x 36, pieces 44 x 34
    i32 label = 0;
    for (const auto &[dx, dy, placed] : ROWS) {
        sprite *piece = t.piece(label++);
        t.put_on_cell(piece);
        const i32 x = piece->x, y = piece->y, placed_before = t.b->placed;
        t.put_on_cell(piece, dx, dy);
        sounds_played.clear();
        fake_dice({label});
        board_drop_piece(t.b, piece);
        fake_dice({});
        EXPECT_EQ(has(piece, SPRITE_FIXED | SPRITE_INERT | SPRITE_BLINK_OUT), placed) << dx << ", " << dy;
        EXPECT_EQ(t.b->placed - placed_before, placed ? 1 : 0);
        EXPECT_EQ(piece->img_left,
                  placed ? t.b->pictures.piece_tab_in[EDGE_LEFT] : t.b->pictures.piece_tab_out[EDGE_LEFT]);
        EXPECT_EQ(piece->x, placed ? x : x + dx);
        EXPECT_EQ(piece->y, placed ? y : y + dy);
        EXPECT_EQ(sounds_played, placed ? sounds{SOUND_PIECE_PLACE_1 + label % 6} : sounds{});
    }
}

// --- The deck ------------------------------------------------------------------------------------

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
            b->deck.slot[i] = cards[i] == '-' ? nullptr : piece(cards[i] - 'a');
            if (b->deck.slot[i] != nullptr && answered.find(cards[i]) == answered.npos)
                b->deck.slot[i]->flags &= ~SPRITE_ANSWERED;
        }
    }
    static char name_of(const sprite *piece) {
        return piece == nullptr ? '-' : static_cast<char>('a' + piece->label_index);
    }
    std::string cards() const { return {name_of(b->deck.slot[0]), name_of(b->deck.slot[1]), name_of(b->deck.slot[2])}; }
};

TEST(deck, deals_what_is_available_and_takes_the_top_card_back) {
    for (const i32 type : {4, 3}) {
        const open_deck t(type);
        sprite *before[] = {t.b->deck.slot[0], t.b->deck.slot[1], t.b->deck.slot[2]};
        board_deal(t.b);
        EXPECT_EQ(t.b->deck.leaving, before[0]);
        EXPECT_EQ(t.b->deck.slot[0], before[1]);
        EXPECT_EQ(t.b->deck.slot[1], before[2]);
        EXPECT_TRUE(has(before[0], SPRITE_AVAILABLE));
        EXPECT_FALSE(has_any(t.b->deck.slot[2], SPRITE_AVAILABLE));
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
            EXPECT_EQ(open_deck::name_of(t.b->deck.leaving), leaving) << cards << " answered " << answered;
        }
        t.leave_only("abc", "");
        t.b->remaining = 3;
        for (const char *then : {"bca", "cab", "abc", "bca"}) {
            board_deal(t.b);
            EXPECT_EQ(t.cards(), then) << "no problem lies on two cards";
        }
    }
}

TEST(deck, gives_its_top_card_only_when_nothing_is_loose) {
    const open_deck t(4);
    const i32 w = t.b->pictures.card->width, h = t.b->pictures.card->height;
    using spoil = void (*)(board * b);
    const spoil nothing = [](board *) {};
    const struct {
        const char *what;
        spoil first;
        i32 dx, dy; // of the click, from the card's corner
        bool taken;
    } ROWS[] = {
        {"first pixel", nothing, 0, 0, true},
        {"last pixel", nothing, w - 1, h - 1, true},
        {"beside it", nothing, w, 20, false},
        {"below it", nothing, 20, h, false},
        {"loose piece", [](board *b) { b->pieces->items[7]->flags &= ~SPRITE_INERT; }, 20, 20, false},
        {"moving", [](board *b) { b->state |= BOARD_DECK_MOVING; }, 20, 20, false},
        {"closed", [](board *b) { b->state |= BOARD_DECK_CLOSED; }, 20, 20, false},
        {"no card", [](board *b) { b->deck.slot[0] = nullptr; }, 20, 20, false},
    };
    for (const auto &[what, first, dx, dy, taken] : ROWS) {
        t.leave_only("abc", "");
        sprite *top = t.b->deck.slot[0];
        top->flags = SPRITE_INERT;
        t.b->state = 0;
        first(t.b);
        board_take_top_card(t.b, t.b->places->deck.x + dx, t.b->places->deck.y + dy);
        EXPECT_EQ(has(top, SPRITE_ANSWERED | SPRITE_UNFOLD | SPRITE_FOLLOW | SPRITE_RAISE), taken) << what;
        EXPECT_EQ(take_sounds(), taken ? sounds{SOUND_PIECE_EMERGE} : sounds{}) << what;
    }
}

TEST(deck, used_up_deals_no_problem_a_second_time) {
    const open_deck t(3);
    t.leave_only("abc", "");
    t.b->deck.slot[0]->flags |= SPRITE_AVAILABLE; // as dealing leaves the card that comes to the top
    board_count_remaining(t.b);
    for (const char *cards : {"bca", "cab", "abc"}) {
        board_deal(t.b);
        EXPECT_EQ(t.cards(), cards);
    }
}

TEST(deck, a_piece_that_it_takes_back_is_not_placed) {
    const open_deck t(4);
    sprite *taken = t.b->deck.slot[0];
    board_take_top_card(t.b, t.b->places->deck.x + 20, t.b->places->deck.y + 20);
    t.frame();
    t.press_key(SDLK_SPACE);
    EXPECT_TRUE(has(taken, SPRITE_VANISH));
    EXPECT_FALSE(has_any(taken, SPRITE_ANSWERED));
    t.put_on_cell(taken);
    board_drop_piece(t.b, taken);
    board_debug_place_one(t.b);
    t.frame(12);
    EXPECT_EQ(t.b->placed, 0);
    EXPECT_FALSE(has_any(taken, SPRITE_FIXED));
    EXPECT_TRUE(has(taken, SPRITE_AVAILABLE | SPRITE_HIDDEN));
}

TEST(deck, draws_cards_in_the_order_in_which_they_lie) {
    const open_deck t(7);
    const struct {
        u32 state;
        i32 remaining, phase;
        u32 top_flags;
        const char *expected; // C: a card, E: the empty deck, a to c: faces; from below
    } ROWS[] = {
        {0, 9, 0, SPRITE_INERT, "CcCbCa"},
        {0, 1, 0, SPRITE_INERT, "CbCa"},
        {0, 9, 0, 0, "CcCbCaC"}, // its piece lies on the board
        {BOARD_DECK_CLOSED, 9, 0, SPRITE_INERT, "CCC"},
        {BOARD_DECK_LOCK, 9, 0, SPRITE_INERT, "CCC"},
        {BOARD_DECK_MOVING, 0, 0, 0, "E"},
        {BOARD_DECK_MOVING, 9, 1, SPRITE_INERT, "CcCbCaCa"},
        {BOARD_DECK_MOVING, 9, 2, SPRITE_INERT, "CaCcCbCa"},
        {BOARD_DECK_MOVING | BOARD_DECK_OPENING, 9, 1, SPRITE_INERT, "CcCbCaC"},
    };
    t.leave_only("abc", "");
    t.b->deck.leaving = t.b->deck.slot[0];
    const picture_names names = {{t.b->pictures.card, "C"},
                                 {t.b->pictures.empty_deck, "E"},
                                 {t.b->pictures.labels[0], "a"},
                                 {t.b->pictures.labels[1], "b"},
                                 {t.b->pictures.labels[2], "c"}};
    for (const auto &[state, remaining, phase, top_flags, expected] : ROWS) {
        t.b->state = state;
        t.b->remaining = remaining;
        t.b->deck.phase = phase;
        t.b->deck.slot[0]->flags = top_flags;
        deck_draw(t.b);
        std::string drawn;
        for (const std::string &line : take_recording(names).now)
            drawn += line[line.find(' ') + 1];
        EXPECT_EQ(drawn, expected) << "state " << state << ", phase " << phase;
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
    fake_dice({0, 0, 5, 2, 0, 1, 2, 3}); // places 0, 0, 2, 2: a, then ba, then bac, then badc; and four for a new order
    for (sprite &item : items)
        EXPECT_GT(random_list_add(list, &item), 0);
    EXPECT_EQ(pick(8), "badcabcd");
    random_list_free(list);
}

// --- The keypad ----------------------------------------------------------------------------------

TEST(keypad, next_answer_waits_for_the_piece_that_grows) {
    const open_deck t(3);
    sprite *first = t.b->deck.slot[0], *second = t.b->deck.slot[1];
    for (int i = 0; i < 2; ++i)
        board_debug_reveal(t.b);
    EXPECT_TRUE(t.b->deck.slot[0] == second) << "one at a time";
    EXPECT_FALSE(has_any(first, SPRITE_AVAILABLE)) << "it is on the table";
    first->grow_w = first->grow_h = -40; // it takes long to grow
    for (const char digit : std::to_string(second->answer))
        t.type_keys({digit - '0'});
    t.b->state |= BOARD_DECK_MOVING;
    t.type_keys({KEY_ANSWER});
    EXPECT_EQ(t.b->entry->flags & ENTRY_ENTERED, 0u) << "while the cards move";
    t.b->state &= ~BOARD_DECK_MOVING;
    t.type_keys({KEY_ANSWER});
    t.frame(30);
    EXPECT_FALSE(has_any(second, SPRITE_ANSWERED));
    t.frame(20);
    EXPECT_TRUE(has(second, SPRITE_ANSWERED));
}

} // namespace
