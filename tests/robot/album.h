// album.h: pictures of the screens while the robot plays, and the index page of a tour.
//
// One thread. Without album_open nothing is kept. A folder or file that cannot be written ends the robot.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle_kinds.h"

#include <string>

void album_open(const std::string &folder);  // numbered pictures of all that is shown to album_snap
void album_guide(double seconds);            // only what has a caption, once each, and time to look at it
void album_about(const puzzle_kind *puzzle); // the puzzle that the next pictures show, or null
void album_snap(const std::string &name);
void album_write_index();
