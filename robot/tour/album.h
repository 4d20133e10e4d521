// album.h: the pictures of a tour and the page that shows them.
//
// One thread. A folder or file that cannot be written ends the robot.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <string>

// From now on takes numbered pictures of what has a caption, once each, and gives time to look at them.
void album_open(const std::string &folder, double seconds_each);
void album_write_index();
