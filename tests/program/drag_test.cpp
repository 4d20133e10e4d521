// Dragging pieces with a mouse that is faster than the frames.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#include "core/settings.h"
#include "input/input.h"
#include "puzzles/board.h"
#include "sprites/sprite.h"
#include "support/fake_sdl.h"

#include <SDL.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

constexpr int BOX_POSITION = 0, DECK_POSITION = 7; // in the title's list
constexpr int FREE_X = 790, FREE_Y = 400;          // no piece lies there

bool is_under_mouse(const sprite *piece) {
    return mouse_x >= piece->x && mouse_x <= piece->x + piece->w && mouse_y >= piece->y &&
           mouse_y <= piece->y + piece->h;
}

void hover(const sprite *piece) {
    move_mouse(piece->x + piece->w / 2, piece->y + piece->h / 2);
}

void piece_that_the_mouse_has_left_is_not_taken() {
    const sprite *piece = loose_piece();
    hover(piece);
    fake_mouse_move(FREE_X, FREE_Y);
    mouse_down_at(FREE_X, FREE_Y);
    check((piece->flags & SPRITE_HELD) == 0, "a press elsewhere does not take the piece");
    mouse_up();
    hover(piece);
    click(the_board()->button_x[0] + 5, the_board()->button_y[0] + 5); // the help button
    check(settings_help_showing(), "the help shows");
    hover(piece);
    fake_mouse_button(SDL_BUTTON_LEFT, true);
    for (int i = 0; settings_help_showing(); ++i) {
        check(i < 200, "the keys end the help");
        press(SDLK_F1);
        move_mouse(FREE_X, FREE_Y);
    }
    check((piece->flags & SPRITE_HELD) == 0, "nor does the end of the help, with the button still held");
    mouse_up();
}

void new_piece_of_a_card_stays_at_the_mouse() {
    press(SDLK_SPACE);
    until("the deck rests", [] { return !board_is(the_board(), BOARD_DECK_MOVING); });
    const board *b = the_board();
    const sprite *piece = b->slot[0];
    mouse_down_at(b->slot_x[0] + b->card_picture->width / 2, b->slot_y[0] + b->card_picture->height / 2);
    for (const int way : {0, 100, 100}) { // in the second frame the piece is taken
        move_mouse(mouse_x, mouse_y - way);
        check(is_under_mouse(piece), "the piece is under the mouse");
    }
    mouse_up();
}

struct part {
    int list_position;
    void (*play)();
};

TEST(drag, takes_only_what_is_under_the_mouse) {
    for (const part &p : {part{BOX_POSITION, piece_that_the_mouse_has_left_is_not_taken},
                          part{DECK_POSITION, new_piece_of_a_card_stays_at_the_mouse}}) {
        const game_folder folder;
        const game_result result = play_game(folder, 16, [&p] {
            leave_splash();
            select_puzzle(p.list_position);
            study_selected();
            start_playing("Ann");
            close_help();
            p.play();
            _exit(0);
        });
        EXPECT_EQ(result.exit_code, 0) << result.said;
    }
}

} // namespace
