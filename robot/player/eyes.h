// eyes.h: looking at the screen: is a picture there, where is it, wait until it is.
//
// One thread. eyes_look takes a new view; the questions are about the last one. Pixels under the robot's own
// mouse cursor are not judged. Waiting in vain gives up. A picture's place is that of its corner.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "display.h"
#include "picture.h"

#include <functional>
#include <string>
#include <vector>

void eyes_look();
void eyes_overlook(const rect &hidden); // what the mouse cursor covers now

bool eyes_see(const picture &p, point at);      // every opaque pixel that is inside the window, one at least
double eyes_match(const picture &p, point at);  // the share of its opaque pixels that are there, 0..1
std::vector<point> eyes_find(const picture &p); // all its places

// Looks until it holds; `what` completes "expected that the screen shows ...".
void eyes_until(const std::string &what, const std::function<bool()> &holds);
void eyes_until_seen(const picture &p, point at);
void eyes_find_window(const picture &p, point at); // where on the display this is seen, and looks there from now on
// Looks until it does not hold for several views in a row, so that a picture caught half drawn does not count.
void eyes_until_not(const std::string &what, const std::function<bool()> &holds);

std::vector<colour565> eyes_copy(const rect &part);               // what is there now
void eyes_until_still(const std::string &what, const rect &part); // nothing moves there for a while

// A check that runs while waiting; it returns what went wrong, or nothing.
void eyes_set_alarm(std::function<std::string()> check);

std::string eyes_place(point at); // in words
