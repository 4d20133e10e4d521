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

static constexpr auto CLICK_TIME = std::chrono::milliseconds(300); // of a click that nothing answers

static point here;  // where the robot's cursor is
static point shift; // from there to the place where the pointer has to be put
static bool pushes; // the game hears of the pointer's movements only

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

void hands_push() {
    pushes = true;
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

// The game may follow the pointer's movements rather than its place, so that the two come apart at the window's
// edges. Then the robot looks where the cursor went and allows for the difference.
static void move_to(point goal) {
    using steady = std::chrono::steady_clock;
    eyes_overlook({});
    aim(here, goal);
    here = goal;
    auto moved = steady::now();
    eyes_until("the mouse cursor at (" + std::to_string(goal.x) + ", " + std::to_string(goal.y) + ")", [&] {
        if (any_cursor_at(goal))
            return true;
        if (steady::now() - moved < std::chrono::duration<double>(LOST_SECONDS))
            return false;
        if (const auto seen = find_cursor())
            aim(*seen, goal);
        moved = steady::now();
        return false;
    });
    overlook_cursor();
}

// A pixel to the side: when the cursor is there, the game has noticed all that came before.
static void nudge() {
    move_to({here.x + (here.x % 2 == 0 ? 1 : -1), here.y});
}

void hands_move(int x, int y) {
    if (here == point{x, y})
        nudge();
    move_to({x, y});
}

void hands_click(int x, int y) {
    hands_move(x, y);
    display_button(true);
    nudge();
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
    nudge();
    display_key(keysym, false);
    nudge();
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

void hands_take(int x, int y) {
    hands_move(x, y);
    display_button(true);
    eyes_overlook({});
    eyes_until("the holding cursor over the piece at (" + std::to_string(x) + ", " + std::to_string(y) + ")",
               [&] { return cursor_at(HOLDING, here); });
    overlook_cursor();
}

void hands_let_go() {
    display_button(false);
    nudge();
}
