// library.h: what is in data.dar: the pictures and texts that a player knows from playing.
//
// One thread. Opened once; pictures are decoded when first asked for and stay. A missing entry ends the robot.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"
#include "puzzles/puzzle_pictures.h"

#include <filesystem>
#include <string>
#include <vector>

void library_open(const std::filesystem::path &archive);

const std::string &library_bytes(const std::string &entry);            // "txt/study0.txt"
const picture &library_picture(const std::string &entry);              // "xpm/title/001.xpm"
const picture &library_picture(const picture_set &set, int k);         // the k-th of a set, from 0
const picture &library_puzzle(int type, puzzle_picture id, int k = 0); // the k-th of a series, from 0
std::vector<const picture *> library_puzzle_series(int type, puzzle_picture id);
