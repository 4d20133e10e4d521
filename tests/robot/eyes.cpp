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

static constexpr auto PAUSE = std::chrono::milliseconds(3);   // between two looks, at least
static constexpr auto STILL = std::chrono::milliseconds(150); // longer than a slow game's frame
static constexpr int GONE_VIEWS = 4;                          // views without a thing before it counts as gone

static view now;
static area covered;
static std::function<std::string()> alarm_check;

void eyes_look() {
    display_grab(&now);
}

// Half of the time belongs to the game.
static void pause_after(steady::duration looking) {
    std::this_thread::sleep_for(std::max<steady::duration>(looking, PAUSE));
}

const view &eyes_view() {
    return now;
}

void eyes_overlook(const area &hidden) {
    covered = hidden;
}

void eyes_set_alarm(std::function<std::string()> check) {
    alarm_check = std::move(check);
}

// The pixel of `p` with this index, its corner at (x, y): 1 there, 0 not there, -1 cannot be judged.
static int judge(const picture &p, int index, int x, int y) {
    const point at = {x + index % p.width, y + index / p.width};
    if (!WHOLE_WINDOW.holds(at) || covered.holds(at))
        return -1;
    const color565 seen = now.pixels[static_cast<std::size_t>(at.y * WINDOW_WIDTH + at.x)];
    return color_close(seen, p.pixels[static_cast<std::size_t>(index)]) ? 1 : 0;
}

bool eyes_see(const picture &p, int x, int y) {
    bool any = false;
    for (const int index : p.probes) {
        const int there = judge(p, index, x, y);
        if (there == 0)
            return false;
        any |= there > 0;
    }
    return any;
}

bool eyes_contradict(const picture &p, int x, int y) {
    return std::any_of(p.probes.begin(), p.probes.end(), [&](int index) { return judge(p, index, x, y) == 0; });
}

double eyes_match(const picture &p, int x, int y) {
    int judged = 0, there = 0;
    for (const int index : p.probes) {
        const int result = judge(p, index, x, y);
        judged += result >= 0 ? 1 : 0;
        there += result > 0 ? 1 : 0;
    }
    return judged == 0 ? 0 : static_cast<double>(there) / judged;
}

static std::vector<point> search(const picture &p, const area &within, bool first_only) {
    std::vector<point> found;
    for (int y = within.y; y < within.y + within.h; ++y)
        for (int x = within.x; x < within.x + within.w; ++x)
            if (eyes_see(p, x, y)) {
                found.push_back({x, y});
                if (first_only)
                    return found;
            }
    return found;
}

std::optional<point> eyes_find(const picture &p, const area &within) {
    const std::vector<point> found = search(p, within, true);
    return found.empty() ? std::nullopt : std::optional(found[0]);
}

std::vector<point> eyes_find_all(const picture &p, const area &within) {
    return search(p, within, false);
}

static void watch(const std::string &what, const std::function<bool()> &holds, int views, double seconds) {
    const auto end = steady::now() + std::chrono::duration<double>(seconds);
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
        pause_after(steady::now() - begin);
    }
}

void eyes_until(const std::string &what, const std::function<bool()> &holds, double seconds) {
    watch(what, holds, 1, seconds);
}

void eyes_until_not(const std::string &what, const std::function<bool()> &holds) {
    watch(
        what + " no more", [&] { return !holds(); }, GONE_VIEWS, PATIENCE);
}

static std::string place(int x, int y) {
    return "(" + std::to_string(x) + ", " + std::to_string(y) + ")";
}

void eyes_until_seen(const picture &p, int x, int y) {
    eyes_until("the picture " + p.name + " at " + place(x, y), [&] { return eyes_see(p, x, y); });
}

void eyes_find_window(const picture &p, int x, int y) {
    eyes_until("the program's window with " + p.name, [&] {
        for (const area &frame : display_frames()) {
            display_set_frame(frame);
            eyes_look();
            if (eyes_see(p, x, y))
                return true;
        }
        return false;
    });
}

std::vector<color565> eyes_copy(const area &part) {
    std::vector<color565> copy;
    for (int y = part.y; y < part.y + part.h; ++y)
        for (int x = part.x; x < part.x + part.w; ++x)
            copy.push_back(now.pixels[static_cast<std::size_t>(y * WINDOW_WIDTH + x)]);
    return copy;
}

void eyes_until_still(const std::string &what, const area &part) {
    std::vector<color565> before;
    auto since = steady::now();
    eyes_until(what + " at rest", [&] {
        std::vector<color565> seen = eyes_copy(part);
        if (seen != before) {
            before = std::move(seen);
            since = steady::now();
        }
        return steady::now() - since > STILL;
    });
}

void eyes_save(const std::string &path) {
    picture_write_png(path, now.shown, WINDOW_WIDTH, WINDOW_HEIGHT);
}
