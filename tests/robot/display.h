// display.h: the display of the play, the robot's own virtual one or the visitor's: looks at it, and acts on it as a
// mouse and keyboard do.
//
// One thread, one display. A display that cannot be started ends the robot. Everything stops at the robot's end.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

inline constexpr int WINDOW_WIDTH = 800, WINDOW_HEIGHT = 600; // of the game, pixels

struct display_options {
    int width = WINDOW_WIDTH, height = WINDOW_HEIGHT; // of the display; a larger one shows the game scaled
    bool window_manager = false;
    bool visitors = false; // the one that $DISPLAY names, as it is
};

// What the window shows, in the game's pixels.
struct view {
    std::vector<std::uint32_t> shown = std::vector<std::uint32_t>(WINDOW_WIDTH * WINDOW_HEIGHT); // 0x00RRGGBB
    std::vector<color565> pixels = std::vector<color565>(WINDOW_WIDTH * WINDOW_HEIGHT);
};

void display_start(const display_options &options);
std::vector<area> display_frames();        // where the game's picture may be: each window, as far as it fits
void display_set_frame(const area &frame); // where it is; at first, the whole display
void display_grab(view *into);

void display_move_pointer(point to); // the game's pixels
void display_push_pointer(point by); // by so many pixels of the game, wherever it is
void display_button(bool down);      // the left one
void display_key(unsigned long keysym, bool down);

// Starts a program with these words; standard output and error go to `output` (null: nowhere). Its process id.
pid_t process_start(const std::vector<std::string> &words, const char *output, const std::string &folder);
void process_stop(pid_t id); // asks it to end, then makes it
