// hands.h: the robot's mouse and keyboard.
//
// One thread. The game draws its own mouse cursor; every movement is over only when the cursor is seen at the new
// place, to the pixel. That is also how the robot knows that a click or a key has been noticed: after it the mouse
// moves by a pixel, and the game sees both in order.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

#include <X11/keysym.h>

#include <string>

void hands_glide();       // from now on the pointer travels where it goes, at a pace that an eye can follow
void hands_touch_edges(); // and back into the game's picture: the cursor must still be where the pointer is
void hands_move(point to);
void hands_move_away(); // over nothing on any screen, and under no help bubble
void hands_nudge();     // moves by a pixel
void hands_click(point at);
void hands_click_away();
void hands_press_last(point at); // the click after which the program ends, too soon to be heard for certain
void hands_key(unsigned long keysym);
void hands_type(const std::string &text); // letters, digits, spaces; capitals with the shift key held

void hands_take(point at); // presses the button over a piece and waits until the cursor shows that it is held
void hands_drop();         // what it shows must be waited for before the pointer moves on
void hands_let_go();
