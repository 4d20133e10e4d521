// display.h: the display of the play, the robot's own virtual one or the visitor's: looks at it, and acts on it as a
// mouse and keyboard do.
//
// One thread, one display. A display that cannot be started ends the robot. Places are the game's pixels, wherever
// the display shows them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

// The left end of what stands in the window's middle.
constexpr int window_centre(int width) {
    return (SCREEN_WIDTH - width) >> 1;
}

// A virtual one; where it is larger, it may show the game scaled. Remote: a remote desktop's, of a VNC server.
void display_start(int width, int height, bool remote = false);
void display_open();                       // the one that $DISPLAY names, as it is
std::vector<rect> display_frames();        // where the game's picture may be: each window, as far as it fits
void display_set_frame(const rect &frame); // where it is; at first, the whole display

std::span<const std::uint32_t> display_grab(); // what it shows now: 0x00RRGGBB or 0xFFRRGGBB, row after row
void display_save(const std::string &path);    // what was grabbed last, as PNG; ends the robot when it cannot

void display_move_pointer(point to);
void display_touch_corners();   // of the whole display, all four with the edges between them
void display_button(bool down); // the left one
void display_key(unsigned long keysym, bool down);
