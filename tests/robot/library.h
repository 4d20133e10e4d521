// library.h: what is in data.dar: the pictures, texts and sounds that a player knows from playing.
//
// One thread. Opened once; pictures are decoded when first asked for and stay. A missing entry ends the robot.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

#include <string>
#include <vector>

void library_open(const std::string &archive_path);

const picture &library_picture(const std::string &name);                           // "title/001.xpm"
const picture &library_picture(const std::string &folder, int number);             // "title/", 1
std::vector<const picture *> library_series(const std::string &folder, int count); // from 1 on
std::string library_text(const std::string &name);                                 // "study0.txt"
std::string library_sound(const std::string &name);                                // "click.ogg": the file's bytes
