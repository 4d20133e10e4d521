// eyes.h: looking at the screen: is a picture there, where is it, wait until it is.
//
// One thread. eyes_look takes a new view; the questions are about the last one. Pixels under the robot's own
// mouse cursor are not judged. Waiting in vain gives up with a screenshot.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "display.h"
#include "picture.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

inline constexpr double PATIENCE = 60; // seconds that something expected may take to appear; it costs time only in vain
inline constexpr area WHOLE_WINDOW = {0, 0, WINDOW_WIDTH, WINDOW_HEIGHT};

void eyes_look();
const view &eyes_view();
void eyes_overlook(const area &hidden); // what the mouse cursor covers now

bool eyes_see(const picture &p, int x, int y);        // every opaque pixel that is inside the window
bool eyes_contradict(const picture &p, int x, int y); // some pixel is not there; nothing seen contradicts nothing
double eyes_match(const picture &p, int x, int y);    // the share of its opaque pixels that are there, 0..1
std::optional<point> eyes_find(const picture &p, const area &within); // its first place, corners in `within`
std::vector<point> eyes_find_all(const picture &p, const area &within);

// Looks until it holds; `what` completes "expected to see ...".
void eyes_until(const std::string &what, const std::function<bool()> &holds, double seconds = PATIENCE);
void eyes_until_seen(const picture &p, int x, int y);
void eyes_find_window(const picture &p, int x, int y); // where on the display this is seen, and looks there from now on
// Looks until it does not hold for several views in a row, so that a picture caught half drawn does not count.
void eyes_until_not(const std::string &what, const std::function<bool()> &holds);

std::vector<color565> eyes_copy(const area &part);                // what is there now
void eyes_until_still(const std::string &what, const area &part); // nothing moves there for a while

// A check that runs while waiting; it returns what went wrong, or nothing.
void eyes_set_alarm(std::function<std::string()> check);

void eyes_save(const std::string &path); // the last view as PNG
