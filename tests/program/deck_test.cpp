// The deck, keypad and coin puzzles, played through the real screens to their last piece.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#include "core/screen.h"
#include "input/input.h"
#include "puzzles/board.h"
#include "puzzles/puzzle_info.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

constexpr int FIRST_KEY = 2;  // the keypad's keys come after the two console buttons
constexpr int ENTER_KEY = 11; // the last of the keys
constexpr int DELETE_KEY = 9;
constexpr int FREE_X = 40, FREE_Y = 300; // no board reaches so far left

struct road {
    int type;
    int pieces;
};
constexpr road ROADS[] = {{1, 50}, {3, 50}, {4, 50}, {5, 50}, {6, 36}, {7, 40}, {8, 100}, {9, 36}, {10, 48}};

void PrintTo(const road &r, std::ostream *out) {
    *out << puzzle_title(r.type);
}

int list_position(int type) {
    return static_cast<int>(std::find(PUZZLE_LIST_ORDER, PUZZLE_LIST_ORDER + PUZZLE_COUNT, type) - PUZZLE_LIST_ORDER);
}

void until_deck_rests() {
    until("the deck rests", [] { return !board_is(the_board(), BOARD_DECK_MOVING); });
}

// Holds the mouse on the top card until its piece has come off it.
sprite *take_top_card() {
    const board *b = the_board();
    until_deck_rests();
    sprite *piece = b->slot[0];
    check(piece != nullptr, "a card lies on the deck");
    mouse_down_at(b->slot_x[0] + b->card_picture->width / 2, b->slot_y[0] + b->card_picture->height / 2);
    wait_frames(3);
    check((piece->flags & (SPRITE_INERT | SPRITE_HIDDEN)) == 0, "the piece comes off its card");
    return piece;
}

void press_key(int index) {
    const button *key = the_board()->buttons->items[FIRST_KEY + index];
    click(key->x + key->width / 2, key->y + key->height / 2);
}

void type_number(int number) {
    for (const char digit : std::to_string(number))
        press_key(digit == '0' ? DELETE_KEY + 1 : digit - '1');
}

// --- Awkward moments -----------------------------------------------------------------------------

// A taken piece that lies on the board goes back to the deck when the next card is turned, and comes again.
void turn_away_a_taken_card() {
    sprite *piece = take_top_card();
    move_mouse(FREE_X, FREE_Y);
    mouse_up();
    const int before = the_board()->remaining;
    press(SDLK_SPACE);
    press(SDLK_SPACE); // ignored while the cards move
    wait_frames(12);
    check((piece->flags & SPRITE_HIDDEN) != 0, "the piece vanishes");
    check(the_board()->remaining == before + 1, "and counts again");
    until_deck_rests();
}

// With no card left the deck cannot be turned: the last piece stays on the table.
void drop_the_last_piece_beside_its_cell(const sprite *piece) {
    move_mouse(FREE_X, FREE_Y);
    mouse_up();
    press(SDLK_SPACE);
    wait_frames(12);
    check((piece->flags & (SPRITE_HIDDEN | SPRITE_INERT)) == 0, "the last piece stays");
    mouse_down_at(FREE_X, FREE_Y);
}

void answer_wrongly() {
    const board *b = the_board();
    const sprite *piece = b->slot[0];
    type_number(piece->answer == 1 ? 2 : 1);
    press_key(ENTER_KEY);
    press(SDLK_SPACE); // ignored while an answer is being judged
    until("the wrong digits are gone", [b] { return std::strlen(b->entry->text) == 0 && b->entry->flags == 0; });
    check(b->slot[0] == piece, "the same problem stays on the card");
    type_number(987);
    press_key(DELETE_KEY);
    check(number_entry_value(b->entry) == 98, "delete takes the last digit");
    press(SDLK_SPACE);
    until_deck_rests();
    check(std::strlen(b->entry->text) == 0, "turning the deck clears the answer");
}

// --- The three ways of play ----------------------------------------------------------------------

void play_deck() {
    press(SDLK_SPACE);
    until_deck_rests();
    const int pieces = the_board()->pieces->count;
    for (int placed = 0; placed < pieces; ++placed) {
        if (placed == 1)
            turn_away_a_taken_card();
        if (placed % 7 == 3) {
            press(SDLK_SPACE);
            until_deck_rests();
        }
        sprite *piece = take_top_card();
        if (placed == pieces - 1)
            drop_the_last_piece_beside_its_cell(piece);
        carry_to_cell(piece);
        if (placed % 5 == 2 && placed < pieces - 1)
            press(SDLK_SPACE); // while the next card comes up
    }
}

void play_keypad() {
    const board *b = the_board();
    press(SDLK_SPACE);
    until_deck_rests();
    for (int placed = 0; placed < b->pieces->count; ++placed) {
        if (placed == 1)
            answer_wrongly();
        sprite *piece = b->slot[0];
        type_number(piece->answer);
        press_key(ENTER_KEY);
        until("the piece has grown out of its card",
              [piece] { return (piece->flags & (SPRITE_INERT | SPRITE_HIDDEN | SPRITE_GROW)) == 0; });
        place_piece(piece);
    }
}

void play_loose_pieces() {
    for (sprite *piece = loose_piece(); piece != nullptr; piece = loose_piece())
        place_piece(piece);
}

void play(const road &r) {
    leave_splash();
    select_puzzle(list_position(r.type));
    study_selected();
    check(the_board()->type == r.type, "the chosen puzzle");
    start_playing("ann");
    const board *b = the_board();
    check(b->pieces->count == r.pieces, "the number of pieces");
    if (board_has(b, BOARD_HAS_KEYPAD))
        play_keypad();
    else if (board_has(b, BOARD_HAS_DECK))
        play_deck();
    else
        play_loose_pieces();
    check(b->placed == r.pieces, "every piece is placed");
    finish_dialog_and_score_log();
    leave_program();
}

class other_roads : public testing::TestWithParam<std::tuple<road, int>> {};

TEST_P(other_roads, are_played_to_the_end) {
    const auto [r, depth] = GetParam();
    const game_folder folder;
    const game_result result = play_game(folder, depth, [r = r] { play(r); });
    EXPECT_EQ(result.exit_code, 0) << result.said;
    EXPECT_EQ(result.log.find("Error"), std::string::npos) << result.log;
}

INSTANTIATE_TEST_SUITE_P(all, other_roads, testing::Combine(testing::ValuesIn(ROADS), testing::Values(16, 32)));

} // namespace
