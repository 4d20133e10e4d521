// board_test.cpp: loading a type, its geometry, its pieces, keys, the clock and the end of a run.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/settings.h"
#include "puzzles/background.h"
#include "puzzles/board_pictures.h"
#include "puzzles/puzzle_type.h"
#include "sprites/effect.h"
#include "sprites/number_entry.h"
#include "unit/puzzles/table.h"

#include <SDL_keysym.h>

#include <cctype>

namespace {

int pictures_of(board *b) {
    int count = 0;
    for (const picture_row &row : board_picture_rows()) {
        const picture_slots slots = row.slots(b);
        for (i32 i = 0; slots.first != nullptr && i < slots.count; ++i)
            count += slots.first[i] != nullptr ? 1 : 0;
    }
    return count;
}

bool is_empty(board *b) {
    return !board_loaded(b) && pictures_of(b) == 0 && b->pieces->count + b->cells->count + b->buttons->count == 0;
}

std::string folder_of(const std::string &file) {
    return file.substr(0, file.rfind('/'));
}

// Types 0, 1 and 6 have between them every kind of picture.
TEST(board, runs_with_all_its_pictures_or_not_at_all) {
    for (const i32 type : {0, 1, 6}) {
        puzzle_table t(type);
        const std::vector<std::string> files = picture_files(type);
        EXPECT_EQ(pictures_of(t.b), static_cast<int>(files.size()) - 1) << "without the background";
        for (std::size_t i = 0; i < files.size(); ++i) {
            const bool numbered = std::isdigit(files[i][files[i].size() - 5]) != 0;
            if (numbered && i + 1 < files.size() && folder_of(files[i]) == folder_of(files[i + 1]))
                continue; // the last of a series will do
            t.open(picture_archive(type, files[i]));
            board_free_background();
            EXPECT_EQ(board_load(t.b, type), -1) << files[i];
            EXPECT_TRUE(is_empty(t.b) && board_start(t.b) == -1) << files[i];
        }
        t.frame();
        board_draw(t.b);
        board_draw_background(t.b);
        EXPECT_TRUE(take_recording({}).now.empty() && !board_is(t.b, BOARD_COMPLETE));
        t.open(picture_archive(type));
        EXPECT_TRUE(board_prepare(&t.state) == 1 && board_background() != nullptr) << "the next time loads again";
    }
}

TEST(board, loads_only_another_type) {
    puzzle_table t(1);
    EXPECT_EQ(t.b->entry->digits, t.b->entered_digits);
    const image *before = t.b->board_picture, *background = board_background();
    for (const i32 type : {1, -1, PUZZLE_COUNT, BOARD_NO_TYPE}) {
        t.state.puzzle = type;
        EXPECT_EQ(board_prepare(&t.state), type == 1 ? 1 : -1);
        EXPECT_EQ(t.b->board_picture, before);
    }
    t.open(picture_archive(7));
    t.state.puzzle = 7;
    EXPECT_EQ(board_prepare(&t.state), 1);
    EXPECT_EQ(board_background(), background);
    // What type 1 has and type 7 has not is gone.
    EXPECT_TRUE(t.b->card_symbol_count + t.b->symbol_count == 0 && t.b->char_map[u8{'x'}] == -1);
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
        t.open(picture_archive(type));
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

// What the boards measure in the game.
constexpr struct {
    i32 w, h;
} BOARD_SIZES[PUZZLE_COUNT] = {{530, 275}, {530, 275}, {530, 275}, {530, 275}, {530, 275}, {530, 275},
                               {565, 485}, {606, 269}, {530, 445}, {484, 460}, {576, 444}};

TEST(board, everything_has_room) {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        SCOPED_TRACE(type);
        const puzzle_table t(type);
        const auto [w, h] = BOARD_SIZES[type];
        const rect board_area = {center_x(w), t.b->top, w, h};
        EXPECT_TRUE(inside(board_area, WHOLE_SCREEN) && inside({center_x(w), t.b->study_top, w, h}, WHOLE_SCREEN));
        for (const sprite *cell : each(t.b->cells))
            EXPECT_TRUE(inside({cell->x, cell->y, cell->w, cell->h}, {0, 0, w, h}));
        std::vector<rect> around;
        if (board_has(t.b, BOARD_HAS_DECK))
            around.push_back(
                {t.b->deck_x - 4, t.b->deck_y, t.b->card_picture->width + 4, t.b->card_picture->height + 4});
        for (const button *shown : each(t.b->buttons))
            around.push_back({shown->x, shown->y, shown->width, shown->height});
        for (const sprite *piece : each(t.b->pieces))
            if (!has_any(piece, SPRITE_HIDDEN))
                around.push_back({piece->home_x, piece->home_y, piece->w, piece->h});
        for (const rect &area : around) {
            EXPECT_TRUE(inside(area, WHOLE_SCREEN) && !overlap(area, board_area)) << area.x << ", " << area.y;
            for (const rect &other : around)
                EXPECT_TRUE(&other == &area || !overlap(area, other)) << area.x << ", " << area.y;
        }
    }
}

TEST(board, lays_loose_pieces_out_in_the_order_of_the_draws) {
    const struct {
        i32 type, place, x, y;
    } ROWS[] = {{2, 0, 105, 307},  {2, 11, 166, 358}, {9, 0, 18, 100},   {9, 5, 18, 450},  {9, 6, 86, 100},
                {9, 12, 655, 100}, {9, 23, 723, 450}, {9, 24, 180, 485}, {9, 35, 565, 545}};
    for (const i32 type : {2, 9}) {
        puzzle_table t(type);
        fake_dice({0}); // each added piece takes the first place: the last one is picked first
        ASSERT_EQ(board_start(t.b), 1);
        EXPECT_EQ(t.b->pieces->items[0]->label_index, t.b->label_count - 1);
        for (const auto &row : ROWS) {
            const sprite *piece = t.b->pieces->items[row.place];
            EXPECT_TRUE(row.type != type || (piece->x == row.x && piece->y == row.y)) << type << ", " << row.place;
        }
        for (const sprite *piece : each(t.b->pieces))
            EXPECT_EQ(piece->target_row * t.b->cols + piece->target_col, piece->label_index);
    }
}

TEST(board, prepares_pieces_for_the_deck) {
    const u32 waiting = SPRITE_INERT | SPRITE_HIDDEN | SPRITE_HIDE_ON_ARRIVAL | SPRITE_AVAILABLE;
    const struct {
        i32 type, label;
        u32 flags;
        i32 answer;
        const char *text;
    } ROWS[] = {{1, 49, waiting | SPRITE_REDEAL, 50, "5x10"},
                {3, 24, waiting | SPRITE_REDEAL, 40, "8x5"},
                {4, 49, waiting | SPRITE_DEAL_NEXT, 0, nullptr},
                {10, 0, waiting | SPRITE_DEAL_NEXT | SPRITE_LABEL_TOP, 0, nullptr}};
    for (const auto &[type, label, flags, answer, text] : ROWS) {
        const puzzle_table t(type);
        const sprite *piece = t.piece(label);
        EXPECT_EQ(piece->flags, flags) << type;
        EXPECT_EQ(piece->answer, answer);
        EXPECT_STREQ(piece->label_text, text);
        EXPECT_EQ(piece->label, t.b->labels[label]);
        EXPECT_TRUE(piece->home_x == t.b->deck_x + 4 && piece->home_y == t.b->deck_y + 4);
    }
}

int returns_asked = 0;
void note_return(button *, std::intptr_t, std::intptr_t) {
    ++returns_asked;
}

TEST(board, binds_keys_to_buttons) {
    puzzle_table t(4);
    returns_asked = 0;
    board_set_return_action(note_return);
    EXPECT_EQ(board_start(t.b), 1);
    board_set_return_action(nullptr);
    const button *leave = t.b->buttons->items[1];
    EXPECT_EQ(leave->pictures[BUTTON_LOOK_HOVER], t.b->console_pictures[3]);
    t.press_key(SDLK_ESCAPE);
    EXPECT_EQ(returns_asked, 1);
    t.frame(3);
    EXPECT_TRUE((leave->flags & BUTTON_PRESSED) != 0);
    t.frame();
    EXPECT_TRUE((leave->flags & BUTTON_PRESSED) == 0) << "released four frames later";
    button_press(t.b->buttons->items[0]);
    EXPECT_TRUE(settings_help_showing());
    t.press_key(SDLK_SPACE);
    EXPECT_FALSE(board_is(t.b, BOARD_DECK_MOVING)) << "not while help shows";
    settings = 0;
    t.frame();
    t.press_key(SDLK_SPACE);
    EXPECT_TRUE(board_is(t.b, BOARD_DECK_MOVING | BOARD_CLOCK));
}

TEST(board, clock_waits_for_the_first_piece_and_stops_at_the_limit) {
    puzzle_table t(0);
    t.frame(200);
    EXPECT_FALSE(board_is(t.b, BOARD_CLOCK));
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
    EXPECT_EQ(board_start(t.b), 1);
    EXPECT_STREQ(t.b->clock_text, "0:00");
    for (const auto &[seconds, rank] : {std::pair{0, 0}, {150, 0}, {151, 1}, {330, 2}, {360, 3}, {361, -1}}) {
        t.b->seconds = seconds;
        EXPECT_EQ(board_master_rank(t.b), rank) << seconds;
    }
}

TEST(board, completes_with_the_last_piece_and_shows_all) {
    puzzle_table t(5);
    t.piece(3)->flags |= SPRITE_PULSE;
    for (t.b->placed = 49; t.b->placed <= 50; ++t.b->placed) {
        t.frame();
        EXPECT_EQ(board_is(t.b, BOARD_COMPLETE), t.b->placed == 50);
        for (const sprite *piece : each(t.b->pieces))
            EXPECT_EQ(has_any(piece, SPRITE_HIDDEN | SPRITE_PULSE), t.b->placed < 50);
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
    board_add_effect(t.b, effect_create(EFFECT_BURN), 0, 0);
    t.frame();
    ASSERT_EQ(t.b->effects->count, 3);
    EXPECT_TRUE(t.b->effects->items[0] == made[3] && t.b->effects->items[1] == made[1]);
}

} // namespace
