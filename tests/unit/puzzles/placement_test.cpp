// placement_test.cpp: the grid of cells, dropping pieces, study mode, the debug actions, the background.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/placement.h"

#include "puzzles/cells.h"
#include "puzzles/debug_actions.h"
#include "puzzles/puzzle_info.h"
#include "puzzles/study.h"
#include "sound/sound.h"
#include "sprites/effect.h"
#include "unit/puzzles/table.h"

namespace {

TEST(cells, share_their_edge_places_with_neighbours_and_pieces) {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        SCOPED_TRACE(type);
        const puzzle_table t(type);
        ASSERT_EQ(t.b->cells->count, t.b->cols * t.b->rows);
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
}

TEST(cells, draw_left_right_top_and_bottom_places_in_this_order) {
    puzzle_table t(9);
    ptr_array_clear(t.b->cells);
    fake_dice({1, 2, 3, 4});
    ASSERT_EQ(board_build_cells(t.b), 1);
    // Right and bottom always, left and top only along the board's edges.
    EXPECT_EQ(fake_dice_drawn(), 36 * 2 + 6 + 6);
    const sprite *corner = board_find_cell(t.b, 0, 0), *next = board_find_cell(t.b, 1, 0);
    EXPECT_TRUE(corner->tab_left == 11 && corner->sock_right == 12 && corner->tab_top == 13 &&
                corner->sock_bottom == 14);
    EXPECT_TRUE(next->tab_left == 12 && next->sock_right == 11 && next->tab_top == 12 && next->sock_bottom == 13);
    for (const auto &[col, row] : {std::pair{-1, 0}, {0, -1}, {6, 0}, {0, 6}})
        EXPECT_EQ(board_find_cell(t.b, col, row), nullptr);
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
        EXPECT_EQ(piece->ext_left, placed ? 6 : 7);
        EXPECT_TRUE(piece->x == (placed ? x : x + dx) && piece->y == (placed ? y : y + dy));
        EXPECT_EQ(sounds_played, placed ? std::vector<i32>{SOUND_PIECE_PLACE_1 + label % 6} : std::vector<i32>{});
    }
}

TEST(placement, leaves_a_piece_without_a_cell_alone) {
    puzzle_table t(0);
    t.game.log_to_file();
    sprite *lost = t.piece(0);
    lost->target_col = 10;
    board_drop_piece(t.b, lost);
    EXPECT_EQ(t.game.log_text(), "Error: Piece has no target!\n");
    EXPECT_EQ(t.b->placed, 0);
    board_study_begin(t.b);
    EXPECT_TRUE(has(lost, SPRITE_HIDDEN));
    EXPECT_FALSE(has_any(t.piece(1), SPRITE_HIDDEN));
    board_debug_place_most(t.b);
    EXPECT_EQ(t.b->placed, 47); // the lost one does not count among them
    EXPECT_FALSE(has_any(lost, SPRITE_FIXED));
}

// --- Debug actions -------------------------------------------------------------------------------

TEST(debug_actions, place_one_most_and_all) {
    puzzle_table t(0);
    board_debug_place_one(t.b);
    EXPECT_EQ(t.b->placed, 1);
    EXPECT_TRUE(has(t.b->pieces->items[0], SPRITE_FIXED | SPRITE_ANSWERED));
    for (i32 i = 1; i < 40; ++i)
        board_debug_place_one(t.b);
    board_debug_place_most(t.b);
    EXPECT_EQ(t.b->placed, 47);
    board_debug_place_most(t.b);
    EXPECT_EQ(t.b->placed, 47);
    board_debug_finish(t.b);
    EXPECT_TRUE(board_is(t.b, BOARD_COMPLETE));
}

TEST(debug_actions, leave_three_cards_that_can_be_played) {
    puzzle_table t(8);
    t.frame();
    board_debug_place_most(t.b);
    EXPECT_EQ(t.b->placed, 97);
    for (const sprite *piece : t.b->slot)
        EXPECT_TRUE(piece != nullptr && !has_any(piece, SPRITE_FIXED | SPRITE_ANSWERED));
    EXPECT_TRUE(t.b->slot[0] != t.b->slot[1] && t.b->slot[1] != t.b->slot[2] && t.b->slot[0] != t.b->slot[2]);
}

// --- Study mode ----------------------------------------------------------------------------------

TEST(study, shows_hides_and_brings_back_pieces) {
    puzzle_table t(6);
    board_study_toggle(t.b, t.b->x + 80, t.b->y + 105); // not in study mode
    EXPECT_TRUE(has(t.piece(0), SPRITE_HIDDEN));
    board_study_begin(t.b);
    for (const sprite *piece : each(t.b->pieces)) {
        EXPECT_TRUE(has(piece, SPRITE_INERT) && !has_any(piece, SPRITE_HIDDEN | SPRITE_HIDE_ON_ARRIVAL));
        EXPECT_EQ(piece->img_top, t.b->piece_tab_in[EDGE_TOP]);
    }
    sprite *piece = t.piece(7); // cell (1, 1)
    const i32 x = piece->x, y = piece->y;
    EXPECT_TRUE(x == t.b->x + 76 + 68 + 1 && y == t.b->y + 101 + 61 + 1);
    board_study_toggle(t.b, x + 20, y + 20);
    EXPECT_TRUE(has(piece, SPRITE_HIDDEN) && was_played(SOUND_SCORE_SHOW));
    ASSERT_EQ(t.b->new_effects->count, 1);
    EXPECT_EQ(t.b->new_effects->items[0]->x, x + 33 - 5);

    fake_dice({0, 123, 1}); // above the screen
    board_study_toggle(t.b, x + 20, y + 20);
    EXPECT_TRUE(piece->x == 123 && piece->y == 1 - piece->h);
    EXPECT_TRUE(has(piece, SPRITE_TRAVEL | SPRITE_RAISE) && !has_any(piece, SPRITE_HIDDEN));
    fake_dice({});
    t.frame();
    board_study_toggle(t.b, x + 20, y + 20); // it is still flying
    EXPECT_FALSE(has_any(piece, SPRITE_HIDDEN));
    t.frame(60);
    EXPECT_TRUE(piece->x == x && piece->y == y && !has_any(piece, SPRITE_HIDDEN | SPRITE_TRAVEL));
    EXPECT_FALSE(board_is(t.b, BOARD_COMPLETE));

    board_study_clear(t.b);
    for (const sprite *hidden : each(t.b->pieces))
        EXPECT_TRUE(has(hidden, SPRITE_HIDDEN | SPRITE_INERT));
    board_study_toggle(t.b, t.b->x + 1, t.b->y + 1); // no cell there
    board_study_fill(t.b);
    EXPECT_FALSE(has_any(piece, SPRITE_HIDDEN));
}

TEST(study, pieces_fly_in_from_all_four_sides) {
    const struct {
        std::initializer_list<int> dice;
        i32 x, y;
    } ROWS[] = {{{2, 799, 0}, 799, 601}, {{0, 5, 1}, 5, 1 - 63}, {{1, 2, 599}, 801, 599}, {{1, 1, 40}, 1 - 67, 40}};
    for (const auto &[dice, x, y] : ROWS) {
        puzzle_table t(10);
        board_study_begin(t.b);
        board_study_clear(t.b);
        fake_dice(dice);
        board_study_toggle(t.b, t.b->x + 20, t.b->y + 50);
        EXPECT_TRUE(t.piece(0)->x == x && t.piece(0)->y == y) << t.piece(0)->x << ", " << t.piece(0)->y;
        EXPECT_EQ(fake_dice_drawn(), 3);
    }
}

// --- The still parts -----------------------------------------------------------------------------

std::vector<std::string> drawn_background(const board *b) {
    picture_names names = {{b->board_picture, "board"},
                           {b->study_help_picture, "study help"},
                           {b->keypad_picture, "keypad"},
                           {b->box_picture, "box"},
                           {b->board_tab_in[EDGE_TOP], "top dent"},
                           {b->board_tab_out[EDGE_LEFT], "right bump"}};
    for (i32 i = 0; i < b->symbol_count; ++i)
        names[b->symbols[i]] = "symbol " + std::to_string(i);
    for (i32 i = 0; i < b->cell_picture_count; ++i)
        names[b->cell_pictures[i]] = "cell " + std::to_string(i);
    board_draw_background(b);
    return take_recording(names).now;
}

// The board picture stands at x 250; symbols are 12 x 14, dents 8 x 5, bumps 10 x 4.
TEST(background, draws_headings_cells_edges_and_what_the_mode_needs) {
    const struct {
        i32 type;
        bool study;
        std::vector<const char *> expected; // in this order, among others
    } ROWS[] = {
        {0,
         false,
         {"board 250 5", "symbol 0 324 55", "symbol 9 729 55", "symbol 10 279 93", "symbol 14 279 233", "cell 0 308 81",
          "cell 4 713 221", "restore 250 5 300 200", "box 94 295", "restore 94 295 40 30"}},
        {1, false, {"symbol 9 731 102", "symbol 10 282 138", "keypad 330 390", "restore 330 390 128 160"}},
        {2, true, {"board 250 100", "symbol 14 284 331", "cell 4 720 317", "study help 380 302"}},
        {6,
         false,
         {"symbol 5 693 64", "symbol 0 286 131", "symbol 5 286 436", "symbol 2 767 131", "symbol 3 767 436",
          "cell 35 666 411"}},
        {8, false, {"symbol 9 732 57", "symbol 0 280 92", "symbol 9 280 407", "cell 9 716 395"}},
        {9, false, {"symbol 0 348 56", "symbol 0 348 422", "symbol 5 286 369", "symbol 5 686 369"}},
        {10, false, {"board 250 5", "cell 47 742 369"}},
    };
    for (const auto &[type, study, expected] : ROWS) {
        puzzle_table t(type);
        t.b->x = 250;
        if (study)
            board_study_begin(t.b);
        const std::vector<std::string> drawn = drawn_background(t.b);
        auto at = drawn.begin();
        for (const std::string line : expected) {
            at = std::find_if(at, drawn.end(), [&](const std::string &l) { return l == line || l == "bg " + line; });
            ASSERT_NE(at, drawn.end()) << type << ": " << line;
        }
    }
}

TEST(background, cuts_dents_and_adds_bumps) {
    puzzle_table t(0);
    const sprite *first = board_find_cell(t.b, 0, 0), *corner = board_find_cell(t.b, 9, 4);
    const auto place = [&](i32 x, i32 y) { return std::to_string(t.b->x + x) + " " + std::to_string(t.b->y + y); };
    const std::vector<std::string> drawn = drawn_background(t.b);
    for (const std::string &line : {"bg top dent " + place(58 + first->tab_top, 76 - 5 + 1),
                                    "bg right bump " + place(58 + 405 + 46 - 10, 76 + 140 + corner->sock_right)})
        EXPECT_EQ(std::count(drawn.begin(), drawn.end(), line), 1) << line;
    EXPECT_EQ(std::count_if(drawn.begin(), drawn.end(), [](const auto &l) { return l.find("bump") != l.npos; }), 5);
    EXPECT_EQ(std::count_if(drawn.begin(), drawn.end(), [](const auto &l) { return l.find("dent") != l.npos; }), 50);
}

} // namespace
