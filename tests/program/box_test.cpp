// The box puzzles, played through the real screens from the splash screen to the saved scores.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#include "core/app_state.h"
#include "core/screen.h"
#include "core/strings.h"
#include "persist/best_times.h"
#include "puzzles/board.h"
#include "puzzles/cells.h"
#include "sprites/sprite.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <csignal>
#include <string>

namespace {

constexpr int BOX_PIECES = 50;
constexpr int TITLE_FIRST = 0, TITLE_SECOND = 2; // list positions of the box puzzles
constexpr int SECOND_TYPE = 2;

void study_shows_hides_and_fills() {
    board *b = the_board();
    const auto shown = [b] {
        int count = 0;
        for (const sprite *piece : each(b->pieces))
            count += (piece->flags & SPRITE_HIDDEN) == 0 ? 1 : 0;
        return count;
    };
    check(shown() == BOX_PIECES, "all pieces show in study mode");
    const sprite *cell = board_find_cell(b, 3, 2);
    const int x = b->x + cell->x + cell->w / 2, y = b->y + cell->y + cell->h / 2;
    click(x, y);
    check(shown() == BOX_PIECES - 1, "a click takes the piece out");
    click(x, y);
    wait_frames(100);
    check(shown() == BOX_PIECES, "a second click brings it back");
    click(720, 460); // clear
    check(shown() == 0, "clear hides all");
    click(720, 425); // fill
    check(shown() == BOX_PIECES, "fill shows all");
}

// Dropped beside its cell a piece stays; when another is taken it travels home.
void wrong_drop_goes_home() {
    board *b = the_board();
    sprite *piece = loose_piece();
    const int home_x = piece->home_x, home_y = piece->home_y;
    const int x = piece->x + piece->w / 2, y = piece->y + piece->h / 2;
    drag(x, y, 400, 20);
    check((piece->flags & SPRITE_FIXED) == 0 && piece->y < 20, "a wrong drop leaves the piece where it is");
    sprite *other = loose_piece(0) == piece ? loose_piece(1) : loose_piece(0);
    drag(other->x + 20, other->y + 15, other->x + 22, other->y + 15);
    until("the piece is home", [&] { return piece->x == home_x && piece->y == home_y; });
    wait_frames(2);
    check((b->state & BOARD_CLOCK) != 0, "the clock runs");
}

void play_box(int list_position, const char *name, bool with_detours) {
    select_puzzle(list_position);
    study_selected();
    if (with_detours)
        study_shows_hides_and_fills();
    start_playing(name);
    check(the_board()->pieces->count == BOX_PIECES, "fifty pieces");
    if (with_detours) {
        wrong_drop_goes_home();
        press(SDLK_ESCAPE);
        until_screen(SCREEN_DIALOG);
        wait_frames(40);
        press(SDLK_n); // back into the same run
        until_screen(SCREEN_PLAY);
        wait_frames(2);
    }
    for (sprite *piece = loose_piece(); piece != nullptr; piece = loose_piece())
        place_piece(piece);
    finish_dialog_and_score_log();
}

class box_road : public testing::TestWithParam<int> {};

TEST_P(box_road, is_played_saved_and_found_again) {
    const game_folder folder;
    game_result result = play_game(folder, GetParam(), [] {
        leave_splash();
        play_box(TITLE_FIRST, "ann", true);
        play_box(TITLE_SECOND, nullptr, false);
        leave_program();
    });
    EXPECT_EQ(result.exit_code, 0) << result.said;
    EXPECT_EQ(result.log.find("Error"), std::string::npos) << result.log;
    EXPECT_EQ(result.log.find("Warning"), std::string::npos) << result.log;
    const std::string depth_line = "Color depth is " + std::to_string(GetParam());
    EXPECT_NE(result.log.find(depth_line), std::string::npos) << result.log;

    result = play_game(folder, GetParam(), [] {
        check(std::string(app->player_name) == "ann", "the name is remembered");
        for (const int type : {0, SECOND_TYPE}) {
            const puzzle_scores *scores = best_times_for_puzzle(type);
            check(scores->log->count == 1, "one run in the log");
            check(std::string(scores->log->items[0]->name) == "ann", "her name in the log");
            check(scores->master_time[0] == scores->log->items[0]->seconds, "she is the master");
        }
        check(player_mastered("Ann") == (1u << 0 | 1u << SECOND_TYPE), "both puzzles are mastered");
        leave_splash();
        leave_program();
    });
    EXPECT_EQ(result.exit_code, 0) << result.said;
}

INSTANTIATE_TEST_SUITE_P(depths, box_road, testing::Values(16, 32));

TEST(ending, by_signal_saves_a_recorded_run) {
    for (const int signal : {SIGTERM, SIGINT}) {
        const game_folder folder;
        const game_result result = play_game(folder, 16, [signal] {
            leave_splash();
            play_box(TITLE_FIRST, "bob", false);
            std::raise(signal);
            wait_frames(50);
            check(false, "the signal ends the program");
        });
        EXPECT_EQ(result.exit_code, 0) << result.said;
        std::string stored = "bob";
        string_shift(stored.data(), 128);
        EXPECT_NE(file_text(folder.file("data/scores")).find(stored), std::string::npos);
        EXPECT_NE(file_text(folder.file("data/prefs")).find(stored), std::string::npos);
    }
}

} // namespace
