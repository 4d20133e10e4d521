// scenario.cpp: the player: sees every screen, loads every puzzle, plays three of them to a recorded result, leaves.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app_state.h"
#include "core/puzzle_info.h"
#include "core/screen.h"
#include "puzzles/board.h"
#include "puzzles/debug_actions.h"
#include "screens/dialog.h"
#include "screens/play.h"
#include "sprites/sprite.h"
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
constexpr int COLUMN_X = 720, SPLASH_GO_Y = 495, EXIT_Y = 579, NOWHERE_Y = 300;
constexpr int FRAMES_AFTER_FAILURE = 60;

step click(int frames, int x, int y) {
    return {frames, [=] { device_click(x, y); }};
}
step press(int frames, int key) {
    return {frames, [=] { device_key(key); }};
}
step show(int frames, screen_id id) {
    return {frames, [=] { screen_request(id); }};
}
step with_board(int frames, void (*act)(board *)) {
    return {frames, [=] {
                if (screen_current() == SCREEN_PLAY && app->board->type != BOARD_NO_TYPE)
                    act(app->board);
            }};
}

void take_a_piece(board *b) {
    for (const sprite *piece : each(b->pieces))
        if ((piece->flags & (SPRITE_INERT | SPRITE_HIDDEN)) == 0)
            device_click(piece->x + piece->w / 2, piece->y + piece->h / 2);
}

void play_selected() {
    play_request_new_run();
    dialog_enter_name(true);
    screen_request(SCREEN_DIALOG);
}

std::vector<step> all_steps() {
    std::vector<step> steps = {click(ENTRANCE, COLUMN_X, SPLASH_GO_Y), show(SHORTLY, SCREEN_CREDITS)};
    const auto add = [&](std::initializer_list<step> more) { steps.insert(steps.end(), more); };
    const auto select = [](int type) { return step{SHORTLY, [type] { app_state_select_puzzle(app, type); }}; };
    for (int type = 0; type < PUZZLE_COUNT; ++type)
        add({select(type), show(0, SCREEN_STUDY), show(SHORTLY, SCREEN_TITLE)});
    const step close_help = click(14, COLUMN_X, NOWHERE_Y);
    for (const int type : {0, 3, 9})
        add({select(type),
             {0, play_selected},
             press(ENTRANCE, 'a'),
             press(SHORTLY, SDLK_RETURN),
             close_help,
             close_help,
             close_help,
             with_board(SHORTLY, take_a_piece),
             press(SHORTLY, SDLK_SPACE),
             press(30, '7'),
             press(SHORTLY, SDLK_RETURN),
             with_board(30, board_debug_reveal),
             with_board(20, board_debug_place_most),
             with_board(10, board_debug_finish),
             press(ENTRANCE, SDLK_RETURN),
             show(20, SCREEN_TITLE)});
    add({click(SHORTLY, COLUMN_X, EXIT_Y),
         press(ENTRANCE, SDLK_y),
         click(ENTRANCE, COLUMN_X, SPLASH_GO_Y),
         {SHORTLY, app_request_quit}});
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
