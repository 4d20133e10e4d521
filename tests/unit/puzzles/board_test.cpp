// board_test.cpp: loading a type, keys, the clock, dropping pieces, and what is drawn into the background.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/puzzle_info.h"
#include "core/settings.h"
#include "puzzles/background.h"
#include "puzzles/board_pictures.h"
#include "puzzles/cells.h"
#include "puzzles/placement.h"
#include "sound/sound.h"
#include "sprites/effect.h"
#include "unit/puzzles/table.h"

#include <SDL_keysym.h>

namespace {

bool is_empty(board *b) {
    int count = b->pieces->count + b->cells->count + b->buttons->count;
    for (const picture_row &row : board_picture_rows()) {
        const picture_slots slots = row.slots(b);
        for (i32 i = 0; slots.first != nullptr && i < slots.count; ++i)
            count += slots.first[i] != nullptr ? 1 : 0;
    }
    return !board_loaded(b) && count == 0;
}

// Types 0, 1 and 6 have between them every kind of picture.
TEST(board, runs_with_all_its_pictures_or_not_at_all) {
    for (const i32 type : {0, 1, 6}) {
        puzzle_table t(type);
        for (const std::string &missing : t.picture_files(type)) {
            t.open(type, missing);
            board_free_background();
            EXPECT_EQ(board_load(t.b, type), -1) << missing;
            EXPECT_TRUE(is_empty(t.b) && board_start(t.b) == -1) << missing;
        }
        t.frame();
        board_draw(t.b);
        board_draw_background(t.b);
        EXPECT_TRUE(take_recording().now.empty() && !board_is(t.b, BOARD_COMPLETE));
        t.open(type);
        EXPECT_TRUE(board_prepare(&t.state) == 1 && board_background() != nullptr) << "the next time loads again";
        const image *before = t.b->board_picture, *background = board_background();
        for (const i32 asked : {type, -1, PUZZLE_COUNT, BOARD_NO_TYPE}) {
            t.state.puzzle = asked;
            EXPECT_EQ(board_prepare(&t.state), asked == type ? 1 : -1);
            EXPECT_TRUE(t.b->board_picture == before && board_background() == background);
        }
    }
}

TEST(board, survives_short_memory) {
    puzzle_table t(1);
    const auto create = [] {
        board *made = board_create();
        board_destroy(made);
        return made != nullptr;
    };
    EXPECT_GT(fake_fail_each_allocation(create), 7);
    for (const i32 type : {1, 0, 9}) {
        t.open(type);
        const auto run = [&] { return board_load(t.b, type) > 0 && board_start(t.b) > 0; };
        fake_fail_allocation(0);
        ASSERT_TRUE(run());
        const int allocations = fake_allocations();
        int failures = 0;
        for (int k = 1; k <= allocations; k += k < 5 || k > allocations - 9 ? 1 : allocations / 25) {
            fake_fail_allocation(k);
            const bool ready = run();
            fake_fail_allocation(0);
            failures += ready ? 0 : 1;
            EXPECT_TRUE(ready ? t.b->pieces->count == t.b->label_count : is_empty(t.b)) << k;
        }
        EXPECT_GT(failures, 15) << type;
    }
}

TEST(board, keys_press_buttons_for_four_frames_and_not_under_help) {
    puzzle_table t(4);
    const button *next = t.b->buttons->items[2];
    button_press(t.b->buttons->items[0]);
    EXPECT_TRUE(settings_help_showing());
    t.press_key(SDLK_SPACE);
    EXPECT_FALSE(board_is(t.b, BOARD_DECK_MOVING));
    settings = 0;
    t.frame();
    t.press_key(SDLK_SPACE);
    EXPECT_TRUE(board_is(t.b, BOARD_DECK_MOVING | BOARD_CLOCK));
    t.frame(3);
    EXPECT_TRUE((next->flags & BUTTON_PRESSED) != 0);
    t.frame();
    EXPECT_TRUE((next->flags & BUTTON_PRESSED) == 0);
}

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
        EXPECT_EQ(t.b->seconds, seconds) << text;
        EXPECT_STREQ(t.b->clock_text, text);
    }
    for (const auto &[seconds, rank] : {std::pair{0, 0}, {150, 0}, {151, 1}, {330, 2}, {360, 3}, {361, -1}}) {
        t.b->seconds = seconds;
        EXPECT_EQ(board_master_rank(t.b), rank) << seconds;
    }
}

TEST(board, exchanges_effects_at_the_end_of_a_frame) {
    puzzle_table t(0);
    effect *made[4];
    for (effect *&e : made)
        board_add_effect(t.b, e = effect_create(EFFECT_FLARE), 5, 6);
    t.frame();
    EXPECT_TRUE(t.b->effects->count == 4 && t.b->new_effects->count == 0);
    EXPECT_EQ(made[0]->timer, 2) << "an effect's first step is in the frame after";
    made[0]->flags |= EFFECT_FINISHED;
    made[2]->flags |= EFFECT_FINISHED;
    t.frame();
    ASSERT_EQ(t.b->effects->count, 2);
    EXPECT_TRUE(t.b->effects->items[0] == made[3] && t.b->effects->items[1] == made[1]);
}

TEST(cells, share_their_edge_places_with_neighbours_and_pieces) {
    const puzzle_table t(6);
    for (const sprite *cell : each(t.b->cells)) {
        const sprite *right = board_find_cell(t.b, cell->col + 1, cell->row);
        const sprite *below = board_find_cell(t.b, cell->col, cell->row + 1);
        EXPECT_TRUE(right == nullptr || right->tab_left == cell->sock_right);
        EXPECT_TRUE(below == nullptr || below->tab_top == cell->sock_bottom);
        EXPECT_TRUE(cell->tab_left >= 10 && cell->tab_left <= 20 && cell->tab_top >= 10 && cell->tab_top <= 30);
        const sprite *piece = t.piece(cell->row * t.b->cols + cell->col);
        EXPECT_TRUE(piece->tab_top == cell->tab_top && piece->tab_left == cell->tab_left &&
                    piece->sock_right == cell->sock_right && piece->sock_bottom == cell->sock_bottom);
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
        EXPECT_EQ(piece->img_left, placed ? t.b->piece_tab_in[EDGE_LEFT] : t.b->piece_tab_out[EDGE_LEFT]);
        EXPECT_TRUE(piece->x == (placed ? x : x + dx) && piece->y == (placed ? y : y + dy));
        EXPECT_EQ(sounds_played, placed ? sounds{SOUND_PIECE_PLACE_1 + label % 6} : sounds{});
    }
}

// The board picture stands at x 250; symbols are 12 x 14, dents 8 x 5, bumps 10 x 4.
TEST(background, draws_headings_cells_edges_and_what_the_mode_needs) {
    const struct {
        i32 type;
        bool study;
        std::vector<const char *> expected; // in this order, among others
    } ROWS[] = {
        {1,
         false,
         {"board 250 50", "symbol 9 731 102", "symbol 10 282 138", "keypad 330 390", "restore 330 390 128 160"}},
        {2, true, {"symbol 14 284 331", "cell 4 720 317", "study help 380 302"}},
        {6, false, {"symbol 5 693 64", "symbol 0 286 131", "symbol 5 286 436", "symbol 2 767 131", "symbol 3 767 436"}},
        {9, false, {"symbol 0 348 56", "symbol 0 348 422", "symbol 5 286 369", "symbol 5 686 369"}},
        {10, false, {"cell 9 334 113", "cell 47 742 369"}},
    };
    for (const auto &[type, study, expected] : ROWS) {
        puzzle_table t(type);
        t.b->x = 250;
        if (study) {
            t.b->state |= BOARD_STUDY;
            t.b->y = t.b->study_top;
        }
        const board *b = t.b;
        picture_names names = {{b->board_picture, "board"},          {b->study_help_picture, "study help"},
                               {b->keypad_picture, "keypad"},        {b->board_tab_in[EDGE_TOP], "dent"},
                               {b->board_tab_in[EDGE_LEFT], "dent"}, {b->board_tab_out[EDGE_LEFT], "bump"},
                               {b->board_tab_out[EDGE_TOP], "bump"}};
        for (i32 i = 0; i < b->symbol_count; ++i)
            names[b->symbols[i]] = "symbol " + std::to_string(i);
        for (i32 i = 0; i < b->cell_picture_count; ++i)
            names[b->cell_pictures[i]] = "cell " + std::to_string(i);
        board_draw_background(b);
        const lines drawn = take_recording(names).now;
        const auto drawn_line = [&](const std::string &line, auto from) {
            return std::find_if(from, drawn.end(), [&](const auto &l) { return l == line || l == "bg " + line; });
        };
        auto at = drawn.begin();
        for (const char *line : expected) {
            at = drawn_line(line, at);
            ASSERT_NE(at, drawn.end()) << type << ": " << line;
        }
        const auto count = [&](const char *word) {
            return std::count_if(drawn.begin(), drawn.end(), [&](const auto &l) { return l.find(word) != l.npos; });
        };
        EXPECT_TRUE(count("bump") == b->rows + b->cols && count("dent") == 2 * b->cells->count);
        const sprite *corner = board_find_cell(b, b->cols - 1, b->rows - 1);
        const i32 x = b->x + corner->x, y = b->y + corner->y;
        for (const auto &[what, left, top] : {std::tuple{"dent ", x + corner->tab_top, y - 5 + 1},
                                              {"bump ", x + corner->w - 10, y + corner->sock_right},
                                              {"bump ", x + corner->sock_bottom, y + corner->h - 4}})
            EXPECT_NE(drawn_line(what + std::to_string(left) + " " + std::to_string(top), drawn.begin()), drawn.end());
    }
}

} // namespace
