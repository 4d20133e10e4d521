// scenario.cpp: the player: sees every screen, loads every puzzle, plays three of them to a recorded result, leaves.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app_state.h"
#include "core/screen.h"
#include "input/input.h"
#include "puzzles/board.h"
#include "puzzles/debug_actions.h"
#include "puzzles/puzzle_info.h"
#include "screens/dialog.h"
#include "screens/play.h"
#include "sprites/sprite.h"
#include "sweep/devices.h"
#include "sweep/sweep.h"

#include <SDL.h>

#include <functional>
#include <vector>

namespace {

struct step {
    int frames; // to wait before it
    std::function<void()> act;
};

constexpr int SHORTLY = 3, ENTRANCE = 42; // frames
constexpr int COLUMN_X = 720, SPLASH_GO_Y = 495, EXIT_Y = 579;
constexpr int FRAMES_AFTER_FAILURE = 60;

step click(int frames, int x, int y) {
    return {frames, [=] { device_mouse(x, y, true); }};
}

step press(int frames, int key) {
    return {frames, [=] { device_key(key); }};
}

step show(int frames, screen_id id) {
    return {frames, [=] { screen_request(id); }};
}

void with_board(void (*act)(board *)) {
    if (screen_current() == SCREEN_PLAY && app->board->type != BOARD_NO_TYPE)
        act(app->board);
}

void take_a_piece(board *b) {
    for (const sprite *piece : each(b->pieces))
        if ((piece->flags & (SPRITE_INERT | SPRITE_HIDDEN)) == 0)
            device_mouse(piece->x + piece->w / 2, piece->y + piece->h / 2, true);
}

void play_puzzle(std::vector<step> *steps, int type) {
    steps->push_back({SHORTLY, [type] {
                          app_state_select_puzzle(app, type);
                          play_request_new_run();
                          dialog_enter_name(true);
                          screen_request(SCREEN_DIALOG);
                      }});
    steps->push_back(press(ENTRANCE, 'a'));
    steps->push_back(press(SHORTLY, SDLK_RETURN));
    for (int i = 0; i < 3; ++i)
        steps->push_back(click(14, COLUMN_X, 300)); // closes help bubbles
    steps->push_back({SHORTLY, [] { with_board(take_a_piece); }});
    steps->push_back(press(SHORTLY, SDLK_SPACE));
    steps->push_back(press(30, '7'));
    steps->push_back(press(SHORTLY, SDLK_RETURN));
    steps->push_back({30, [] { with_board(board_debug_reveal); }});
    steps->push_back({20, [] { with_board(board_debug_place_most); }});
    steps->push_back({10, [] { with_board(board_debug_finish); }});
    steps->push_back(press(ENTRANCE, SDLK_RETURN));
    steps->push_back(show(20, SCREEN_TITLE)); // from the score log
}

std::vector<step> all_steps() {
    std::vector<step> steps = {click(ENTRANCE, COLUMN_X, SPLASH_GO_Y), show(SHORTLY, SCREEN_CREDITS)};
    for (int type = 0; type < PUZZLE_COUNT; ++type) {
        steps.push_back({SHORTLY, [type] {
                             app_state_select_puzzle(app, type);
                             screen_request(SCREEN_STUDY);
                         }});
        steps.push_back(show(SHORTLY, SCREEN_TITLE));
    }
    for (const int type : {0, 3, 9})
        play_puzzle(&steps, type);
    steps.push_back(click(SHORTLY, COLUMN_X, EXIT_Y));
    steps.push_back(press(ENTRANCE, SDLK_y));
    steps.push_back(click(ENTRANCE, COLUMN_X, SPLASH_GO_Y));
    steps.push_back({SHORTLY, app_request_quit});
    return steps;
}

} // namespace

void scenario_step() {
    static const std::vector<step> steps = all_steps();
    static std::size_t at = 0;
    static int waited = 0, after_failure = 0;
    device_release();
    if (app == nullptr)
        return; // start-up polls once
    if (struck().what != NO_FAILURE && ++after_failure == FRAMES_AFTER_FAILURE)
        app_request_quit();
    if (at < steps.size() && ++waited > steps[at].frames) {
        waited = 0;
        steps[at++].act();
    }
}
