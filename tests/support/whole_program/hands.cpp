// hands.cpp: the queue of moves.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/whole_program/hands.h"

#include <SDL_mouse.h>

#include <algorithm>
#include <deque>
#include <utility>

static std::deque<std::function<void()>> moves;

bool hands_rest() {
    return moves.empty();
}

void hands_move() {
    if (moves.empty())
        return;
    const auto move = std::move(moves.front());
    moves.pop_front();
    move();
}

void then(std::function<void()> move) {
    moves.push_back(std::move(move));
}

void wait_frames(int count) {
    moves.insert(moves.end(), static_cast<std::size_t>(count), [] {});
}

void move_mouse(int x, int y) {
    then([x, y] { fake_mouse_move(std::clamp(x, 0, SCREEN_WIDTH - 1), std::clamp(y, 0, SCREEN_HEIGHT - 1)); });
}

void hold(bool down) {
    then([down] { fake_mouse_button(SDL_BUTTON_LEFT, down); });
}

void set_key(int key, bool down) {
    then([key, down] { fake_key(key, down); });
}

void press(int key) {
    set_key(key, true);
    set_key(key, false);
}

void click() {
    hold(true);
    hold(false);
}

void click(int x, int y) {
    move_mouse(x, y);
    click();
}

void click_column(int n) {
    click(COLUMN_X, column_y(n));
}
