// library.h: what is in data.dar: the pictures and texts that a player knows from playing.
//
// One thread. Opened once; pictures are decoded when first asked for and stay. A missing entry ends the robot.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

#include <filesystem>
#include <string>
#include <vector>

void library_open(const std::filesystem::path &archive);

const picture &library_picture(const std::string &name);                           // "title/001.xpm"
const picture &library_picture(const std::string &folder, int number);             // "title/", 1
std::vector<const picture *> library_series(const std::string &folder, int count); // from 1 on
const std::string &library_bytes(const std::string &path);                         // of any entry: "txt/study0.txt"
