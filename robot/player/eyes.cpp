// eyes.cpp: looking and waiting.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "eyes.h"
#include "robot.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

using steady = std::chrono::steady_clock;

static constexpr auto PATIENCE = std::chrono::seconds(60);    // for something to appear; it costs time only in vain
static constexpr auto PAUSE = std::chrono::milliseconds(3);   // between two looks, at least
static constexpr auto STILL = std::chrono::milliseconds(150); // longer than a slow game's frame
static constexpr int GONE_VIEWS = 4;                          // views without a thing before it counts as gone

static std::vector<colour565> now = std::vector<colour565>(SCREEN_WIDTH * SCREEN_HEIGHT); // what is seen
static rect covered;
static std::function<std::string()> alarm_check;

void eyes_look() {
    const auto shown = display_grab();
    std::transform(shown.begin(), shown.end(), now.begin(), [](std::uint32_t c) {
        return static_cast<colour565>((c >> 8 & 0xF800) | (c >> 5 & 0x07E0) | (c >> 3 & 0x001F));
    });
}

void eyes_overlook(const rect &hidden) {
    covered = hidden;
}

void eyes_set_alarm(std::function<std::string()> check) {
    alarm_check = std::move(check);
}

// The pixel of `p` with this index, its corner at `corner`: 1 there, 0 not there, -1 cannot be judged.
static int judge(const picture &p, int index, point corner) {
    const point at = corner + point{index % p.width, index / p.width};
    if (!rect_holds(WHOLE_SCREEN, at) || rect_holds(covered, at))
        return -1;
    const colour565 seen = now[static_cast<std::size_t>(at.y * SCREEN_WIDTH + at.x)];
    return colour_close(seen, p.pixels[static_cast<std::size_t>(index)]) ? 1 : 0;
}

bool eyes_see(const picture &p, point at) {
    bool any = false;
    for (const int index : p.probes) {
        const int there = judge(p, index, at);
        if (there == 0)
            return false;
        any |= there > 0;
    }
    return any;
}

double eyes_match(const picture &p, point at) {
    int judged = 0, there = 0;
    for (const int index : p.probes) {
        const int result = judge(p, index, at);
        judged += result >= 0 ? 1 : 0;
        there += result > 0 ? 1 : 0;
    }
    return judged == 0 ? 0 : static_cast<double>(there) / judged;
}

std::vector<point> eyes_find(const picture &p) {
    std::vector<point> found;
    for (int y = 0; y < SCREEN_HEIGHT; ++y)
        for (int x = 0; x < SCREEN_WIDTH; ++x)
            if (eyes_see(p, {x, y}))
                found.push_back({x, y});
    return found;
}

static void watch(const std::string &what, const std::function<bool()> &holds, int views) {
    const auto end = steady::now() + PATIENCE;
    for (int in_a_row = 0;;) {
        const auto begin = steady::now();
        eyes_look();
        in_a_row = holds() ? in_a_row + 1 : 0;
        if (in_a_row >= views)
            return;
        const std::string trouble = alarm_check ? alarm_check() : "";
        if (!trouble.empty())
            robot_give_up("the screen shows " + what + ", but " + trouble);
        if (steady::now() > end)
            robot_give_up("the screen shows " + what);
        std::this_thread::sleep_for(
            std::max<steady::duration>(steady::now() - begin, PAUSE)); // half of it for the game
    }
}

void eyes_until(const std::string &what, const std::function<bool()> &holds) {
    watch(what, holds, 1);
}

void eyes_until_not(const std::string &what, const std::function<bool()> &holds) {
    watch(
        what + " no more", [&] { return !holds(); }, GONE_VIEWS);
}

std::string eyes_place(point at) {
    return "(" + std::to_string(at.x) + ", " + std::to_string(at.y) + ")";
}

void eyes_until_seen(const picture &p, point at) {
    eyes_until("the picture " + p.name + " at " + eyes_place(at), [&] { return eyes_see(p, at); });
}

void eyes_find_window(const picture &p, point at) {
    eyes_until("the program's window with " + p.name, [&] {
        for (const rect &frame : display_frames()) {
            display_set_frame(frame);
            eyes_look();
            if (eyes_see(p, at))
                return true;
        }
        return false;
    });
}

std::vector<colour565> eyes_copy(const rect &part) {
    std::vector<colour565> copy;
    for (int y = part.y; y < part.y + part.h; ++y)
        for (int x = part.x; x < part.x + part.w; ++x)
            copy.push_back(now[static_cast<std::size_t>(y * SCREEN_WIDTH + x)]);
    return copy;
}

void eyes_until_still(const std::string &what, const rect &part) {
    std::vector<colour565> before;
    auto since = steady::now();
    eyes_until(what + " at rest", [&] {
        std::vector<colour565> seen = eyes_copy(part);
        if (seen != before) {
            before = std::move(seen);
            since = steady::now();
        }
        return steady::now() - since > STILL;
    });
}
