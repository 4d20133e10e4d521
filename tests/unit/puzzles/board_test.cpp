// board_test.cpp: loading a type, its geometry, starting a run, the clock and the end of a run.
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

#include <set>

namespace {

bool has_any_picture(board *b) {
    for (const picture_row &row : board_picture_rows()) {
        const picture_slots slots = row.slots(b);
        for (i32 i = 0; slots.first != nullptr && i < slots.count; ++i)
            if (slots.first[i] != nullptr)
                return true;
    }
    return false;
}

// The last file of each series, and every single picture.
std::vector<std::string> files_to_leave_out(i32 type) {
    std::vector<std::string> chosen;
    for (const std::string &file : picture_files(type)) {
        const std::string folder = file.substr(0, file.rfind('/'));
        if (!chosen.empty() && chosen.back().substr(0, chosen.back().rfind('/')) == folder &&
            file.find("base") == file.npos)
            chosen.back() = file;
        else
            chosen.push_back(file);
    }
    return chosen;
}

TEST(board, loads_all_pictures_of_a_type_or_none) {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        empty_table t(picture_archive(type));
        t.state.puzzle = type;
        ASSERT_EQ(board_prepare(&t.state), 1) << type;
        for (const picture_row &row : board_picture_rows()) {
            const picture_slots slots = row.slots(t.b);
            const bool wanted = picture_row_applies(row, t.b) && slots.count > 0;
            for (i32 i = 0; slots.first != nullptr && i < slots.count; ++i)
                EXPECT_EQ(slots.first[i] != nullptr, wanted) << type << " " << row.name << " " << i;
        }
        ASSERT_EQ(board_start(t.b), 1);
        if (type != 0 && type != 1 && type != 6) // these have between them every kind of picture
            continue;
        for (const std::string &file : files_to_leave_out(type)) {
            t.open(picture_archive(type, file));
            board_free_background();
            EXPECT_EQ(board_load(t.b, type), -1) << file;
            EXPECT_FALSE(has_any_picture(t.b)) << file;
            EXPECT_EQ(t.b->pieces->count + t.b->cells->count + t.b->buttons->count, 0);
            EXPECT_EQ(board_start(t.b), -1);
            t.frame();
            board_draw(t.b);
            board_draw_background(t.b);
            EXPECT_TRUE(take_recording({}).now.empty());
            EXPECT_FALSE(board_is(t.b, BOARD_COMPLETE));
        }
        t.open(picture_archive(type));
        EXPECT_EQ(board_prepare(&t.state), 1) << type;
    }
}

TEST(board, loads_only_another_type) {
    puzzle_table t(9);
    const image *before = t.b->board_picture, *background = board_background();
    EXPECT_EQ(board_prepare(&t.state), 1);
    EXPECT_EQ(t.b->board_picture, before);
    for (const i32 unknown : {-1, PUZZLE_COUNT, BOARD_NO_TYPE}) {
        t.state.puzzle = unknown;
        EXPECT_EQ(board_prepare(&t.state), -1);
        EXPECT_EQ(t.b->board_picture, before);
    }
    t.open(picture_archive(1));
    t.state.puzzle = 1;
    EXPECT_EQ(board_prepare(&t.state), 1);
    EXPECT_EQ(t.b->entry->digits, t.b->entered_digits);
    EXPECT_EQ(board_background(), background);
    t.open(picture_archive(7)); // what type 1 set and 7 does not must be gone
    t.state.puzzle = 7;
    EXPECT_EQ(board_prepare(&t.state), 1);
    EXPECT_EQ(t.b->card_symbol_count + t.b->symbol_count, 0);
    EXPECT_EQ(t.b->char_map['x'], -1);
}

TEST(board, survives_short_memory) {
    empty_table t(picture_archive(1));
    EXPECT_GT(fake_fail_each_allocation([] {
                  board *made = board_create();
                  board_destroy(made);
                  return made != nullptr;
              }),
              7);
    for (const i32 type : {1, 0, 9, 4}) {
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
            EXPECT_EQ(board_loaded(t.b), ready) << k;
            EXPECT_EQ(t.b->pieces->count, ready ? t.b->label_count : 0) << k;
            EXPECT_EQ(has_any_picture(t.b), ready) << k;
        }
        EXPECT_GT(failures, 15) << type;
    }
}

// What the pictures measure in the game, type by type.
constexpr struct {
    i32 board_w, board_h;
} BOARD_SIZES[PUZZLE_COUNT] = {{530, 275}, {530, 275}, {530, 275}, {530, 275}, {530, 275}, {530, 275},
                               {565, 485}, {606, 269}, {530, 445}, {484, 460}, {576, 444}};

TEST(board, everything_has_room) {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        SCOPED_TRACE(type);
        puzzle_table t(type);
        const auto [board_w, board_h] = BOARD_SIZES[type];
        const rect board_area = {center_x(board_w), t.b->top, board_w, board_h};
        EXPECT_TRUE(inside(board_area, WHOLE_SCREEN));
        EXPECT_TRUE(inside({center_x(board_w), t.b->study_top, board_w, board_h}, WHOLE_SCREEN));
        rect last = {};
        for (const sprite *cell : each(t.b->cells)) {
            const rect area = {cell->x, cell->y, cell->w, cell->h};
            EXPECT_TRUE(inside(area, {0, 0, board_w, board_h}));
            EXPECT_EQ(cell->index % t.b->cell_picture_count, cell->index);
            EXPECT_GE(cell->w, t.b->piece_picture->width);
            // Neighbours share their outermost pixels, the grid line, and nothing more (type 2: a line down, too).
            EXPECT_FALSE(overlap({area.x + 2, area.y + 2, area.w - 2, area.h - 2}, last));
            last = area;
        }
        const rect deck = {t.b->deck_x - 4, t.b->deck_y, 0, 0};
        if (board_has(t.b, BOARD_HAS_DECK)) {
            const rect card = {deck.x, deck.y, t.b->card_picture->width + 4, t.b->card_picture->height + 4};
            EXPECT_TRUE(inside(card, WHOLE_SCREEN));
            EXPECT_FALSE(overlap(card, board_area));
        }
        for (const button *shown : each(t.b->buttons)) {
            EXPECT_TRUE(inside({shown->x, shown->y, shown->width, shown->height}, WHOLE_SCREEN));
            EXPECT_FALSE(overlap({shown->x, shown->y, shown->width, shown->height}, board_area));
        }
        std::set<std::pair<i32, i32>> places;
        for (const sprite *piece : each(t.b->pieces)) {
            if (has_any(piece, SPRITE_HIDDEN))
                continue;
            const rect area = {piece->x, piece->y, piece->w, piece->h};
            EXPECT_TRUE(inside(area, WHOLE_SCREEN) && !overlap(area, board_area));
            EXPECT_TRUE(piece->x == piece->home_x && piece->y == piece->home_y);
            EXPECT_TRUE(places.emplace(piece->x, piece->y).second) << "two pieces at one place";
        }
    }
}

TEST(board, lays_loose_pieces_out_in_the_order_of_the_draws) {
    puzzle_table box(2), money(9);
    fake_dice({0}); // each added piece goes to the front: the last one is picked first
    for (puzzle_table *t : {&box, &money})
        ASSERT_EQ(board_start(t->b), 1);
    const struct {
        puzzle_table *t;
        i32 place, x, y;
    } ROWS[] = {{&box, 0, 127 - 22, 324 - 17}, {&box, 11, 127 + 61 - 22, 324 + 51 - 17},
                {&money, 0, 18, 100},          {&money, 5, 18, 450},
                {&money, 6, 86, 100},          {&money, 12, 655, 100},
                {&money, 23, 723, 450},        {&money, 24, 180, 485},
                {&money, 35, 565, 545}};
    for (const auto &[t, place, x, y] : ROWS) {
        const sprite *piece = t->b->pieces->items[place];
        EXPECT_TRUE(piece->x == x && piece->y == y) << place << ": " << piece->x << ", " << piece->y;
    }
    const sprite *first = box.b->pieces->items[0];
    EXPECT_EQ(first->label_index, 49); // drawn 0 each time: the newest took the first place
    EXPECT_TRUE(first->target_col == 9 && first->target_row == 4);
    EXPECT_TRUE(box.piece(22)->target_col == 2 && box.piece(22)->target_row == 2);
}

TEST(board, prepares_pieces_for_the_deck) {
    const u32 waiting = SPRITE_INERT | SPRITE_HIDDEN | SPRITE_HIDE_ON_ARRIVAL | SPRITE_AVAILABLE;
    const struct {
        i32 type, label;
        u32 flags;
        i32 answer;
        const char *text;
    } ROWS[] = {{1, 0, waiting | SPRITE_REDEAL, 1, "1x1"},
                {1, 49, waiting | SPRITE_REDEAL, 50, "5x10"},
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
    board_set_return_action(note_return);
    puzzle_table t(4);
    board_set_return_action(nullptr);
    returns_asked = 0;
    button *leave = t.b->buttons->items[1], *next = t.b->buttons->items[2];
    EXPECT_EQ(leave->pictures[BUTTON_LOOK_PRESSED], t.b->console_pictures[5]);
    EXPECT_TRUE(leave->x == 730 && leave->y == 35);
    t.press_key(SDLK_ESCAPE);
    EXPECT_EQ(returns_asked, 1);
    EXPECT_TRUE((leave->flags & BUTTON_PRESSED) != 0);
    t.frame(3);
    EXPECT_TRUE((leave->flags & BUTTON_PRESSED) != 0);
    t.frame();
    EXPECT_TRUE((leave->flags & BUTTON_PRESSED) == 0);

    settings |= SETTINGS_HELP;
    t.press_key(SDLK_SPACE);
    EXPECT_FALSE(board_is(t.b, BOARD_DECK_MOVING));
    settings = 0;
    t.frame();
    t.press_key(SDLK_SPACE);
    EXPECT_TRUE(board_is(t.b, BOARD_DECK_MOVING));
    EXPECT_TRUE((next->flags & BUTTON_PRESSED) != 0);

    button_press(t.b->buttons->items[0]);
    EXPECT_TRUE(settings_help_showing());
}

TEST(board, clock_waits_for_the_first_piece_and_stops_at_the_limit) {
    puzzle_table t(0);
    t.frame(200);
    EXPECT_STREQ(t.b->clock_text, "0:00");
    EXPECT_EQ(t.b->seconds, 0);
    t.piece(0)->flags |= SPRITE_HELD;
    t.frame(); // now is 0:00
    const struct {
        u32 advance; // ms beyond the frame's 20
        i32 seconds;
        const char *text;
    } ROWS[] = {{959, 0, "0:00"},     {0, 0, "0:00"},          {0, 1, "0:01"},
                {64'000, 65, "1:05"}, {535'000, 600, "10:00"}, {5'398'921, 5999, "99:59"},
                {1, 5999, "99:59"},   {600'000, 5999, "99:59"}};
    for (const auto &[advance, seconds, text] : ROWS) {
        fake_time_advance(advance);
        t.frame();
        EXPECT_EQ(t.b->seconds, seconds) << text;
        EXPECT_STREQ(t.b->clock_text, text);
    }
    EXPECT_EQ(board_start(t.b), 1);
    EXPECT_STREQ(t.b->clock_text, "0:00");
}

TEST(board, ranks_by_the_first_master_time_that_is_kept) {
    puzzle_table t(0);
    for (const auto &[seconds, rank] : {std::pair{0, 0}, {150, 0}, {151, 1}, {240, 1}, {330, 2}, {360, 3}, {361, -1}}) {
        t.b->seconds = seconds;
        EXPECT_EQ(board_master_rank(t.b), rank) << seconds;
    }
}

TEST(board, completes_with_the_last_piece_and_shows_all) {
    puzzle_table t(5);
    t.piece(3)->flags |= SPRITE_BLINK_OUT | SPRITE_PULSE;
    t.b->placed = 49;
    t.frame();
    EXPECT_FALSE(board_is(t.b, BOARD_COMPLETE));
    EXPECT_TRUE(has(t.piece(0), SPRITE_HIDDEN));
    t.b->placed = 50;
    t.frame();
    EXPECT_TRUE(board_is(t.b, BOARD_COMPLETE));
    for (const sprite *piece : each(t.b->pieces))
        EXPECT_FALSE(has_any(piece, SPRITE_HIDDEN | SPRITE_BLINK_OUT | SPRITE_PULSE));
}

TEST(board, exchanges_effects_at_the_end_of_a_frame) {
    puzzle_table t(0);
    effect *made[4];
    for (effect *&e : made) {
        e = effect_create(EFFECT_FLARE);
        board_add_effect(t.b, e, 5, 6);
    }
    EXPECT_EQ(t.b->effects->count, 0);
    t.frame();
    EXPECT_TRUE(t.b->effects->count == 4 && t.b->new_effects->count == 0);
    EXPECT_EQ(made[0]->timer, 2); // an effect's first step is in the frame after
    made[0]->flags |= EFFECT_FINISHED;
    made[2]->flags |= EFFECT_FINISHED;
    board_add_effect(t.b, effect_create(EFFECT_BURN), 0, 0);
    t.frame();
    ASSERT_EQ(t.b->effects->count, 3);
    EXPECT_TRUE(t.b->effects->items[0] == made[3] && t.b->effects->items[1] == made[1]);
    EXPECT_EQ(board_start(t.b), 1);
    EXPECT_EQ(t.b->effects->count, 0);
}

} // namespace
