// scenario.cpp: the player: sees every screen, loads every puzzle once, three of them to play to a recorded result, and
// leaves.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/app_state.h"
#include "core/base/puzzle_info.h"
#include "core/ui/screen.h"
#include "puzzles/board.h"
#include "puzzles/debug_actions.h"
#include "screens/dialog.h"
#include "screens/play.h"
#include "sprites/sprite.h"
#include "support/whole_program/hands.h"
#include "sweep/sweep.h"

#include <SDL.h>

namespace {

constexpr int SHORTLY = 3, LATER = 30;                              // frames
constexpr int FRAMES_AFTER_FAILURE = 60, SCREENS_AFTER_FAILURE = 2; // whichever comes first

void show(screen_id id) {
    then([id] { screen_request(id); });
    wait_frames(SHORTLY);
}

void select_puzzle(int type) {
    then([type] { app_state_select_puzzle(app, type); });
}

void study(int type) {
    select_puzzle(type);
    show(SCREEN_STUDY);
    show(SCREEN_TITLE);
}

void press_after(int frames, int key) {
    wait_frames(frames);
    press(key);
}

void do_after(int frames, void (*act)(board *)) {
    wait_frames(frames);
    then([act] {
        if (screen_current() == SCREEN_PLAY && app->board->type != BOARD_NO_TYPE)
            act(app->board);
    });
}

void take_a_piece(board *b) {
    for (const sprite *piece : each(b->pieces))
        if ((piece->flags & (SPRITE_INERT | SPRITE_HIDDEN)) == 0)
            fake_mouse_move(piece->x + piece->w / 2, piece->y + piece->h / 2);
    fake_mouse_button(SDL_BUTTON_LEFT, true);
}

void play(int type) {
    select_puzzle(type);
    then([] {
        play_request_new_run();
        dialog_enter_name(true);
        screen_request(SCREEN_DIALOG);
    });
    press_after(DIALOG_ENTRANCE, 'a');
    press_after(SHORTLY, SDLK_RETURN);
    for (int bubbles = 3; bubbles > 0; --bubbles) {
        wait_frames(BUBBLES_DEAF);
        click(COLUMN_X, NOWHERE_Y);
    }
    do_after(SHORTLY, take_a_piece);
    hold(false);
    press_after(SHORTLY, SDLK_SPACE);
    press_after(LATER, '7');
    press_after(SHORTLY, SDLK_RETURN);
    do_after(LATER, board_debug_reveal);
    do_after(LATER, board_debug_place_most);
    do_after(LATER, board_debug_finish);
    press_after(DIALOG_ENTRANCE, SDLK_RETURN);
    wait_frames(LATER);
    show(SCREEN_TITLE);
}

bool plan() {
    wait_frames(SPLASH_REVEAL);
    click(COLUMN_X, SPLASH_GO_Y);
    wait_frames(SHORTLY);
    show(SCREEN_CREDITS);
    for (int type = 0; type < PUZZLE_COUNT; ++type)
        type == 0 || type == 3 || type == 9 ? play(type) : study(type);
    click_column(TITLE_EXIT);
    press_after(DIALOG_ENTRANCE, SDLK_y);
    wait_frames(SPLASH_REVEAL);
    click(COLUMN_X, SPLASH_GO_Y);
    then(app_request_quit);
    return true;
}

// What broke has shown in the screen where it happened and in leaving it.
bool has_gone_on() {
    static int frames = 0, screens = 0;
    static screen_id last = screen_current();
    screens += screen_current() != last ? 1 : 0;
    last = screen_current();
    return ++frames >= FRAMES_AFTER_FAILURE || screens >= SCREENS_AFTER_FAILURE;
}

} // namespace

void scenario_step() {
    [[maybe_unused]] static const bool planned = plan();
    if (struck().what != NO_FAILURE && has_gone_on())
        app_request_quit();
    hands_move();
}
