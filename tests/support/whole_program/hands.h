// hands.h: a player's hands: what they are to do is queued, and each frame makes one move.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "support/whole_program/places.h"
#include "support/whole_program/whole_program.h"

bool hands_rest(); // nothing is queued
void hands_move();

void then(std::function<void()> move);
void wait_frames(int count);
void move_mouse(int x, int y);
void hold(bool down); // the left button
void set_key(int key, bool down);
void press(int key);
void click();
void click(int x, int y);
void click_column(int n); // the nth button from below on the title and the study screen
