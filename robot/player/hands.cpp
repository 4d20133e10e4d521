// hands.cpp: moving, clicking, dragging, typing.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "hands.h"
#include "display.h"
#include "eyes.h"
#include "input/cursor_shapes.h"
#include "library.h"
#include "robot.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <thread>

static constexpr const cursor_shape &HOLDING = CURSOR_SHAPES[CURSOR_CLOSED_HAND];
static constexpr point AWAY = {785, 200};
static constexpr double LOST_SECONDS = 0.5; // without the cursor where it should be before looking for it elsewhere
static constexpr double LATE_SECONDS = 4;   // likewise, when the game is known to hear of the pointer
static constexpr double TAKE_SECONDS = 4;   // after which a piece that was not held is pressed again
static constexpr int GLIDE_STEP = 12;       // pixels
static constexpr auto GLIDE_TIME = std::chrono::milliseconds(8);   // a step
static constexpr auto CLICK_TIME = std::chrono::milliseconds(300); // of a click that nothing answers

static point here;  // where the robot's cursor is
static point shift; // from there to the place where the pointer has to be put
static bool pushes; // the pointer is moved by so much, not to a place: some games hear only of that
static bool way_known, place_known;
static bool glides;

static bool cursor_at(const cursor_shape &c, point at) {
    return eyes_see(library_picture(c.pictures, 0), at - c.hot);
}

static bool any_cursor_at(point at) {
    return std::ranges::any_of(CURSOR_SHAPES, [at](const cursor_shape &c) { return cursor_at(c, at); });
}

static std::optional<point> find_cursor() {
    for (const cursor_shape &c : CURSOR_SHAPES)
        if (const auto corners = eyes_find(library_picture(c.pictures, 0)); !corners.empty())
            return corners[0] + c.hot;
    return std::nullopt;
}

static void overlook_cursor() {
    rect covered = {here.x, here.y, 0, 0};
    for (const cursor_shape &c : CURSOR_SHAPES) {
        const picture &p = library_picture(c.pictures, 0);
        covered.x = std::min(covered.x, here.x - c.hot.x);
        covered.y = std::min(covered.y, here.y - c.hot.y);
        covered.w = std::max(covered.w, p.width + c.hot.x);
        covered.h = std::max(covered.h, p.height + c.hot.y);
    }
    eyes_overlook(covered);
}

void hands_glide() {
    glides = true;
}

void hands_push() {
    pushes = way_known = true;
}

void hands_begin() {
    place_known = false;
}

// Waits until the cursor shows what was done; when it has not for so many seconds, does it `again`. On a busy machine
// the first time may just be late and both may show; so after a second time it counts only when it lasts. Whether there
// was a second time.
static bool insist(const std::string &what, double seconds, const std::function<bool()> &shows,
                   const std::function<bool()> &again) {
    using steady = std::chrono::steady_clock;
    bool repeated = false;
    auto done = steady::now(), missing = done;
    std::chrono::duration<double> patience(seconds);
    eyes_until(what, [&] {
        const auto now = steady::now();
        if (shows())
            return !repeated || now - missing > patience / 2;
        missing = now;
        if (now - done < patience)
            return false;
        if (again()) {
            patience *= 2;
            repeated = true;
        }
        done = missing = steady::now();
        return false;
    });
    return repeated;
}

// Moves the pointer so that the cursor should go from where it was seen to the goal.
static void aim(point seen, point goal) {
    if (pushes) {
        display_push_pointer(goal - seen);
        return;
    }
    shift = shift + here - seen;
    display_move_pointer(goal + shift);
}

static void glide_towards(point goal) {
    const point from = here, way = goal - from;
    const int steps = std::max(std::abs(way.x), std::abs(way.y)) / GLIDE_STEP;
    for (int step = 1; step < steps; ++step) {
        const point next = from + point{way.x * step / steps, way.y * step / steps};
        aim(here, next);
        here = next;
        std::this_thread::sleep_for(GLIDE_TIME);
    }
}

// Some games hear of the pointer's place, some of its movements only. When the cursor has not come to the goal, the
// robot looks where it came to rest and tries again, as long as it does not know the game's way the other way too.
static void move_to(point goal) {
    eyes_overlook({});
    if (glides)
        glide_towards(goal);
    aim(here, goal);
    here = goal;
    const auto aim_again = [goal] {
        const auto seen = find_cursor();
        if (!seen)
            return false;
        pushes ^= !way_known;
        aim(*seen, goal);
        return true;
    };
    const bool repeated = insist(
        "the mouse cursor at " + eyes_place(goal), place_known ? LATE_SECONDS : LOST_SECONDS,
        [goal] { return any_cursor_at(goal); }, aim_again);
    way_known = place_known = way_known || !repeated;
    overlook_cursor();
}

// A pixel to the side: when the cursor is there, the game has noticed all that came before.
void hands_nudge() {
    move_to({here.x + (here.x % 2 == 0 ? 1 : -1), here.y});
}

void hands_move(point to) {
    if (here == to)
        hands_nudge();
    move_to(to);
}

void hands_move_away() {
    hands_move(AWAY);
}

void hands_click(point at) {
    hands_move(at);
    display_button(true);
    hands_nudge();
    display_button(false);
}

void hands_click_away() {
    hands_click(AWAY);
}

void hands_press_last(point at) {
    hands_move(at);
    display_button(true);
    std::this_thread::sleep_for(CLICK_TIME);
    display_button(false);
}

void hands_key(unsigned long keysym) {
    display_key(keysym, true);
    hands_nudge();
    display_key(keysym, false);
    hands_nudge();
}

void hands_type(const std::string &text) {
    for (const char c : text) {
        const bool capital = std::isupper(c) != 0;
        if (capital)
            display_key(XK_Shift_L, true);
        hands_key(static_cast<unsigned long>(std::tolower(c))); // the keysyms of these keys are their characters
        if (capital)
            display_key(XK_Shift_L, false);
    }
}

// A piece that was still moving when it was pressed has to be pressed again.
void hands_take(point at) {
    hands_move(at);
    display_button(true);
    eyes_overlook({});
    const auto press_again = [] {
        display_button(false);
        std::this_thread::sleep_for(CLICK_TIME);
        display_button(true);
        return true;
    };
    insist(
        "the holding cursor over the piece at " + eyes_place(at), TAKE_SECONDS, [] { return cursor_at(HOLDING, here); },
        press_again);
    overlook_cursor();
}

void hands_drop() {
    display_button(false);
}

void hands_let_go() {
    hands_drop();
    hands_nudge();
}
