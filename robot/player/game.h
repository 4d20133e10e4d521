// game.h: the program under play, in a temporary game folder of its own.
//
// One thread, one program at a time. A program that ends before it should, or does not end when it should, ends the
// robot; then its log is printed and the screen is saved. The folder goes away at the robot's end.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

struct game_options {
    std::filesystem::path program;             // the game; the archive lies in ../data beside it
    std::string failure = "robot-failure.png"; // where the picture of the screen goes
    bool visitors = false;                     // on the visitor's own sound device; else nothing is heard
};

void game_prepare(const game_options &options); // makes the folder, opens the library
pid_t game_start();
void game_expect_exit(); // waits until the program has ended with status 0

std::filesystem::path game_folder();            // with bin and data, as the program sees them
std::string game_file(const std::string &name); // the bytes of a file in it, such as "data/prefs"; empty for none
