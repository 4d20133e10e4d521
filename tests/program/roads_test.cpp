// roads_test.cpp: all eleven puzzles played through the real screens, from the splash screen to the saved scores.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#include "core/base/app_state.h"
#include "core/base/puzzle_info.h"
#include "core/base/settings.h"
#include "core/ui/screen.h"
#include "input/input.h"
#include "persist/best_times.h"
#include "puzzles/board.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"
#include "support/fake_sdl.h"
#include "support/recording.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <ctime>

namespace {

constexpr int KEY_HELP = 3, KEY_CLEAR = 4, KEY_FILL = 5; // on the study screen
constexpr int FREE_X = 40, FREE_Y = 300;                 // no board reaches so far left

int list_position(int type) {
    return static_cast<int>(std::find(PUZZLE_LIST_ORDER, PUZZLE_LIST_ORDER + PUZZLE_COUNT, type) - PUZZLE_LIST_ORDER);
}

bool has_any(const sprite *piece, u32 flags) {
    return (piece->flags & flags) != 0;
}

// Nothing that can be clicked lies off the screen, under the board or on another such thing.
void check_room() {
    const board *b = the_board();
    std::vector<rect> areas = {{b->x, b->y, b->width, b->height}};
    for (const button *shown : each(b->buttons))
        areas.push_back({shown->x, shown->y, shown->width, shown->height});
    if (board_has(b, BOARD_HAS_DECK)) // the lower cards stick out to the left
        areas.push_back(
            {b->places->deck.x - 4, b->places->deck.y, b->pictures.card->width + 4, b->pictures.card->height + 4});
    for (const sprite *piece : each(b->pieces))
        if (!has_any(piece, SPRITE_HIDDEN))
            areas.push_back({piece->home_x, piece->home_y, piece->w, piece->h});
    for (const rect &area : areas) {
        check(inside(area, WHOLE_SCREEN), "everything on the screen");
        for (const rect &other : areas)
            check(&other == &area || !overlap(area, other), "everything beside each other");
    }
    for (const sprite *cell : each(b->cells))
        check(inside({cell->x, cell->y, cell->w, cell->h}, {0, 0, b->width, b->height}), "the cells on the board");
}

// --- Detours -------------------------------------------------------------------------------------

i32 shown() {
    const auto *pieces = the_board()->pieces;
    return static_cast<i32>(std::count_if(pieces->items, pieces->items + pieces->count,
                                          [](const sprite *piece) { return !has_any(piece, SPRITE_HIDDEN); }));
}

void study_shows_hides_and_fills() {
    const board *b = the_board();
    check(shown() == b->pieces->count, "all pieces show in study mode");
    const sprite *cell = b->cells->items[b->layout->cols + 1];
    const int x = b->x + cell->x + cell->w / 2, y = b->y + cell->y + cell->h / 2;
    const auto in_cell = [&] {
        return std::any_of(b->pieces->items, b->pieces->items + b->pieces->count, [&](const sprite *piece) {
            return piece->x == b->x + cell->x + 1 && piece->y == b->y + cell->y + 1;
        });
    };
    click(x, y);
    check(shown() == b->pieces->count - 1, "a click takes the piece out");
    click(x, y);
    check(!in_cell(), "a second click lets it fly in");
    click(x, y); // changes nothing meanwhile
    wait_frames(100);
    check(shown() == b->pieces->count && in_cell(), "the piece is back in its cell");
    click_column(KEY_CLEAR);
    check(shown() == 0, "clear hides all");
    click(x, y);
    click_column(KEY_FILL);
    wait_frames(20);
    check(shown() == b->pieces->count && in_cell(), "fill shows all, one that was flying in too");
}

bool is_under_mouse(const sprite *piece) {
    return inside({mouse_x, mouse_y, 1, 1}, {piece->x, piece->y, piece->w + 1, piece->h + 1});
}

// The mouse may be faster than the frames.
void piece_that_the_mouse_has_left_is_not_taken() {
    const sprite *piece = loose_piece();
    const auto hover = [piece] { move_mouse(piece->x + piece->w / 2, piece->y + piece->h / 2); };
    hover();
    fake_mouse_move(1, 1);
    mouse_down_at(1, 1);
    check(!has_any(piece, SPRITE_HELD), "a press elsewhere does not take the piece");
    mouse_up();
    hover();
    click(735, 10); // the help button
    check(settings_help_showing(), "the help shows");
    hover();
    fake_mouse_button(SDL_BUTTON_LEFT, true);
    for (int i = 0; settings_help_showing(); ++i) {
        check(i < 200, "the keys end the help");
        press(SDLK_F1);
        move_mouse(1, 1);
    }
    check(!has_any(piece, SPRITE_HELD), "nor does the end of the help, with the button still held");
    mouse_up();
}

// Dropped beside its cell a piece stays; when another is taken it travels home.
void wrong_drop_goes_home() {
    sprite *piece = loose_piece();
    const int home_x = piece->home_x, home_y = piece->home_y;
    const int x = piece->x + piece->w / 2, y = piece->y + piece->h / 2;
    const int grip_x = piece->x + piece->w * 7 / 8, grip_y = piece->y + piece->h * 7 / 8;
    mouse_down_at(grip_x, grip_y);
    for (const auto &[far_x, far_y] : {std::pair{799, 599}, {0, 0}}) {
        move_mouse(far_x, far_y);
        check(4 * (SCREEN_WIDTH - piece->x) >= piece->w && 4 * (SCREEN_HEIGHT - piece->y) >= piece->h &&
                  4 * (piece->x + piece->w) >= piece->w && 4 * (piece->y + piece->h) >= piece->h,
              "a quarter of a dragged piece stays in the window");
    }
    move_mouse(grip_x, grip_y);
    mouse_up();
    drag(x, y, 400, 20);
    check(!has_any(piece, SPRITE_FIXED) && piece->y < 20, "a wrong drop leaves the piece where it is");
    check(piece->x == home_x + 400 - x && piece->y == home_y + 20 - y, "the piece moves with the mouse");
    sprite *other = loose_piece(0) == piece ? loose_piece(1) : loose_piece(0);
    drag(other->x + 20, other->y + 15, other->x + 22, other->y + 15);
    until("the piece is home", [&] { return piece->x == home_x && piece->y == home_y; });
    wait_frames(2);
    check(board_is(the_board(), BOARD_CLOCK), "the clock runs");
    move_mouse(1, 1);
    check(!has_any(piece, SPRITE_PULSE) && !has_any(other, SPRITE_PULSE), "a piece pulses only under the mouse");
}

void leave_and_return() {
    place_piece(loose_piece());
    const sprite *hovered = loose_piece();
    move_mouse(hovered->x + 5, hovered->y + 5);
    press(SDLK_ESCAPE);
    until_screen(SCREEN_DIALOG);
    check(has_any(hovered, SPRITE_PULSE), "a piece pulses under the mouse");
    move_mouse(1, 1);
    wait_frames(DIALOG_ENTRANCE);
    press(SDLK_n);
    until_screen(SCREEN_PLAY);
    wait_frames(2);
    check(the_board()->placed == 1 && !has_any(hovered, SPRITE_PULSE), "the same run goes on");
}

// Holds the mouse on the top card until its piece has come off it.
sprite *take_top_card() {
    const board *b = the_board();
    until_deck_rests();
    sprite *piece = b->deck.slot[0];
    check(piece != nullptr, "a card lies on the deck");
    mouse_down_at(b->deck.slot_at[0].x + b->pictures.card->width / 2,
                  b->deck.slot_at[0].y + b->pictures.card->height / 2);
    for (const int way : {0, 100, 100}) { // in the second frame the piece is taken
        move_mouse(mouse_x, mouse_y - way);
        check(is_under_mouse(piece), "the piece is under the mouse");
    }
    check(!has_any(piece, SPRITE_INERT | SPRITE_HIDDEN), "the piece comes off its card");
    return piece;
}

// A taken piece goes back to the deck when the next card is turned, even from the hand, and comes again.
void turn_away_a_taken_card() {
    sprite *piece = take_top_card();
    move_mouse(FREE_X, FREE_Y);
    const int before = the_board()->remaining;
    press(SDLK_SPACE);
    press(SDLK_SPACE); // ignored while the cards move
    wait_frames(12);
    check(has_any(piece, SPRITE_HIDDEN) && !has_any(piece, SPRITE_PULSE), "the piece vanishes from the hand");
    mouse_up();
    check(the_board()->remaining == before + 1, "and counts again");
    until_deck_rests();
}

// With no card left the deck cannot be turned: the last piece stays on the table.
void drop_the_last_piece_beside_its_cell(const sprite *piece) {
    move_mouse(FREE_X, FREE_Y);
    mouse_up();
    press(SDLK_SPACE);
    wait_frames(12);
    check(!has_any(piece, SPRITE_HIDDEN | SPRITE_INERT), "the last piece stays");
    mouse_down_at(FREE_X, FREE_Y);
}

int asked_on(const sprite *card) {
    return std::atoi(card->label_text) * std::atoi(std::strchr(card->label_text, 'x') + 1);
}

void answer_wrongly() {
    const board *b = the_board();
    const sprite *piece = b->deck.slot[0];
    type_on_keypad(asked_on(piece) == 1 ? 2 : 1);
    press_keypad(KEYPAD_ENTER);
    press(SDLK_SPACE); // ignored while an answer is being judged
    until("the wrong digits are gone", [b] { return std::strlen(b->entry->text) == 0 && b->entry->flags == 0; });
    check(b->deck.slot[0] == piece, "the same problem stays on the card");
    type_on_keypad(987);
    press_keypad(KEYPAD_DELETE);
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
        if (placed % 7 == 3 || placed == pieces - 1) { // a single card turns nothing
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
        sprite *piece = b->deck.slot[0];
        type_on_keypad(asked_on(piece));
        press_keypad(KEYPAD_ENTER);
        until("the piece has grown out of its card",
              [piece] { return !has_any(piece, SPRITE_INERT | SPRITE_HIDDEN | SPRITE_GROW); });
        place_piece(piece);
    }
}

void play_loose_pieces() {
    piece_that_the_mouse_has_left_is_not_taken();
    wrong_drop_goes_home();
    leave_and_return();
    for (sprite *piece = loose_piece(); piece != nullptr; piece = loose_piece())
        place_piece(piece);
}

void play(int type, const char *name) {
    select_puzzle(list_position(type));
    study_selected();
    const board *b = the_board();
    check(b->type == type, "the chosen puzzle");
    check(!settings_help_showing() || name == nullptr, "no help before there is a name");
    click_column(KEY_HELP);
    close_help();
    study_shows_hides_and_fills();
    start_playing(name);
    press(SDLK_SPACE); // turns no card under the help
    close_help();
    check(b->pieces->count == b->layout->cols * b->layout->rows && b->placed == 0, "all its pieces, and none placed");
    check((b->state & ~BOARD_DECK_CLOSED) == 0, "a fresh run");
    check_room();
    if (board_has(b, BOARD_HAS_KEYPAD))
        play_keypad();
    else if (board_has(b, BOARD_HAS_DECK))
        play_deck();
    else
        play_loose_pieces();
    check(b->placed == b->pieces->count, "every piece is placed");
    until_screen(SCREEN_DIALOG);
    check(shown() == b->pieces->count, "the finished board shows all pieces");
    finish_dialog_and_score_log();
}

void check_run(int type) {
    const puzzle_scores *scores = best_times_for_puzzle(type);
    check(scores->log->count == 1, "one run in the log");
    check(std::string(scores->log->items[0]->name) == "ann", "her name in the log");
    char month[sizeof "2004-03"];
    const std::time_t now = std::time(nullptr);
    std::strftime(month, sizeof month, "%Y-%m", std::localtime(&now));
    check(std::string(scores->log->items[0]->date).starts_with(month), "the month in the log");
}

// Pairs of unlike types, so that each meets what another one left behind.
using road = std::pair<int, int>;
constexpr road ROADS[] = {{0, 2}, {1, 9}, {6, 3}, {5, 4}, {8, 7}, {10, 0}};

class roads : public testing::TestWithParam<std::tuple<road, int>> {};

TEST_P(roads, are_played_to_their_end_and_saved) {
    const auto [types, depth] = GetParam();
    const game_folder folder;
    game_result result = play_game(folder, depth, [types = types] {
        leave_splash();
        play(types.first, "ann");
        play(types.second, nullptr);
        leave_program();
    });
    EXPECT_EQ(result.exit_code, 0) << result.said;
    EXPECT_EQ(result.said, "released\n");
    EXPECT_EQ(result.log.find("Error"), std::string::npos) << result.log;
    EXPECT_EQ(result.log.find("Warning"), std::string::npos) << result.log;
    const std::string depth_line = "Color depth is " + std::to_string(depth);
    EXPECT_NE(result.log.find(depth_line), std::string::npos) << result.log;

    result = play_game(folder, depth, [types = types] {
        check(std::string(app->player_name) == "ann" && (settings & SETTINGS_COMPLETED) != 0, "she is remembered");
        check_run(types.first);
        check_run(types.second);
        leave_splash();
        select_puzzle(list_position(types.second));
        study_selected();
        check(!settings_help_showing(), "help opens by itself only once");
        start_playing(nullptr);
        check(!settings_help_showing() && the_board()->placed == 0, "a new run without help");
        exit_main_loop(0);
    });
    EXPECT_EQ(result.exit_code, 0) << result.said;
}

INSTANTIATE_TEST_SUITE_P(all, roads, testing::Combine(testing::ValuesIn(ROADS), testing::Values(16, 32)));

} // namespace
