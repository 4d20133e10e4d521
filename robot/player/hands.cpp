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
#include <string>
#include <thread>

static constexpr const cursor_shape &HOLDING = CURSOR_SHAPES[CURSOR_CLOSED_HAND];
static constexpr point AWAY = {785, 200};
static constexpr double TAKE_SECONDS = 4; // after which a piece that was not held is pressed again
static constexpr int GLIDE_STEP = 12;     // pixels
static constexpr auto GLIDE_TIME = std::chrono::milliseconds(8);   // a step
static constexpr auto CLICK_TIME = std::chrono::milliseconds(300); // of a click that nothing answers

static point here; // where the pointer is, and the cursor must be
static bool glides;

static bool cursor_at(const cursor_shape &c, point at) {
    return eyes_see(library_picture(c.pictures, 0), at - c.hot);
}

static bool any_cursor_at(point at) {
    return std::ranges::any_of(CURSOR_SHAPES, [at](const cursor_shape &c) { return cursor_at(c, at); });
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

// Waits until the cursor shows what was done; when it has not for so many seconds, does it `again`. On a busy machine
// the first time may just be late and both may show; so after a second time it counts only when it lasts.
static void insist(const std::string &what, double seconds, const std::function<bool()> &shows,
                   const std::function<void()> &again) {
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
        again();
        patience *= 2;
        repeated = true;
        done = missing = steady::now();
        return false;
    });
}

static void glide_towards(point goal) {
    const point from = here, way = goal - from;
    const int steps = std::max(std::abs(way.x), std::abs(way.y)) / GLIDE_STEP;
    for (int step = 1; step < steps; ++step) {
        const point next = from + point{way.x * step / steps, way.y * step / steps};
        display_move_pointer(next);
        std::this_thread::sleep_for(GLIDE_TIME);
    }
}

// The pointer is put to a place, as fingers, pens and remote desktops do it; nothing corrects where the cursor goes.
static void move_to(point goal) {
    eyes_overlook({});
    if (glides)
        glide_towards(goal);
    display_move_pointer(goal);
    here = goal;
    eyes_until("the mouse cursor exactly at " + eyes_place(goal) + ", where the pointer is",
               [goal] { return any_cursor_at(goal); });
    overlook_cursor();
}

void hands_touch_edges() {
    display_touch_corners();
    move_to(AWAY);
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
