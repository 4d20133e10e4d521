// hands.cpp: moving, clicking, dragging, typing.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "hands.h"
#include "display.h"
#include "eyes.h"
#include "library.h"
#include "robot.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>

struct cursor {
    const char *picture;
    point hot; // the pixel of the picture that lies on the mouse's place
};

static constexpr std::array CURSORS = {
    cursor{"control/mouse/001/001.xpm", {0, 0}},
    cursor{"control/mouse/002/001.xpm", {4, 2}},
    cursor{"control/mouse/003/001.xpm", {4, 1}},
};
static constexpr const cursor &HOLDING = CURSORS[2];
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

static bool cursor_at(const cursor &c, point at) {
    return eyes_see(library_picture(c.picture), at.x - c.hot.x, at.y - c.hot.y);
}

static bool any_cursor_at(point at) {
    for (const cursor &c : CURSORS)
        if (cursor_at(c, at))
            return true;
    return false;
}

static std::optional<point> find_cursor() {
    for (const cursor &c : CURSORS)
        if (const auto corner = eyes_find(library_picture(c.picture), WHOLE_WINDOW))
            return point{corner->x + c.hot.x, corner->y + c.hot.y};
    return std::nullopt;
}

static void overlook_cursor() {
    area covered = {here.x, here.y, 0, 0};
    for (const cursor &c : CURSORS) {
        const picture &p = library_picture(c.picture);
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

// Moves the pointer so that the cursor should go from where it was seen to the goal.
static void aim(point seen, point goal) {
    if (pushes) {
        display_push_pointer({goal.x - seen.x, goal.y - seen.y});
        return;
    }
    shift = {shift.x + here.x - seen.x, shift.y + here.y - seen.y};
    display_move_pointer({goal.x + shift.x, goal.y + shift.y});
}

static void glide_towards(point goal) {
    const point from = here;
    const int steps = std::max(std::abs(goal.x - from.x), std::abs(goal.y - from.y)) / GLIDE_STEP;
    for (int step = 1; step < steps; ++step) {
        const point next = {from.x + (goal.x - from.x) * step / steps, from.y + (goal.y - from.y) * step / steps};
        aim(here, next);
        here = next;
        std::this_thread::sleep_for(GLIDE_TIME);
    }
}

// Some games hear of the pointer's place, some of its movements only. When the cursor has not come to the goal, the
// robot looks where it came to rest and tries again, as long as it does not know the game's way the other way too.
// On a busy machine the cursor may just be late and make both movements; so it counts only when it stays.
static void move_to(point goal) {
    using steady = std::chrono::steady_clock;
    eyes_overlook({});
    if (glides)
        glide_towards(goal);
    aim(here, goal);
    here = goal;
    bool tried_again = false;
    auto moved = steady::now(), away = moved;
    std::chrono::duration<double> patience(place_known ? LATE_SECONDS : LOST_SECONDS);
    eyes_until("the mouse cursor at (" + std::to_string(goal.x) + ", " + std::to_string(goal.y) + ")", [&] {
        const auto now = steady::now();
        if (any_cursor_at(goal))
            return !tried_again || now - away > patience / 2;
        away = now;
        if (now - moved < patience)
            return false;
        if (const auto seen = find_cursor()) {
            pushes ^= !way_known;
            aim(*seen, goal);
            patience *= 2;
            tried_again = true;
        }
        moved = now;
        return false;
    });
    way_known = way_known || !tried_again;
    place_known = way_known;
    overlook_cursor();
}

// A pixel to the side: when the cursor is there, the game has noticed all that came before.
void hands_nudge() {
    move_to({here.x + (here.x % 2 == 0 ? 1 : -1), here.y});
}

void hands_move(int x, int y) {
    if (here == point{x, y})
        hands_nudge();
    move_to({x, y});
}

void hands_click(int x, int y) {
    hands_move(x, y);
    display_button(true);
    hands_nudge();
    display_button(false);
}

void hands_press_last(int x, int y) {
    hands_move(x, y);
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

// A piece that was still moving when it was pressed has to be pressed again. Then it is held only when that is seen
// to last: on a busy machine the first press may show late.
void hands_take(int x, int y) {
    using steady = std::chrono::steady_clock;
    static constexpr std::chrono::duration<double> PATIENT(TAKE_SECONDS);
    hands_move(x, y);
    display_button(true);
    eyes_overlook({});
    bool again = false;
    auto pressed = steady::now(), loose = pressed;
    eyes_until("the holding cursor over the piece at (" + std::to_string(x) + ", " + std::to_string(y) + ")", [&] {
        const auto now = steady::now();
        if (cursor_at(HOLDING, here))
            return !again || now - loose > PATIENT / 2;
        loose = now;
        if (now - pressed > PATIENT) {
            display_button(false);
            std::this_thread::sleep_for(CLICK_TIME);
            display_button(true);
            loose = pressed = steady::now();
            again = true;
        }
        return false;
    });
    overlook_cursor();
}

void hands_drop() {
    display_button(false);
}

void hands_let_go() {
    hands_drop();
    hands_nudge();
}
