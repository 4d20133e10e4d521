// game.h: the program under play, in a temporary game folder of its own.
//
// One thread, one program at a time. A program that ends before it should, or does not end when it should, ends the
// robot. The folder goes away at the robot's end.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <string>
#include <vector>

struct game_options {
    std::string program; // build/game/bin/tavimo; the archive lies in ../data beside it
    std::string preload; // a library put before the program's own, or empty
    std::string library_path;
    bool record_sound = false;
    bool loud = false; // on the visitor's own sound device; else nothing is heard
};

void game_prepare(const game_options &options); // makes the folder
void game_start();
void game_expect_exit(); // waits until the program has ended with status 0
void game_signal(int number);

std::string game_data_file(const std::string &name); // the bytes of data/NAME; empty when there is none
std::string game_log();                              // errorlog.log, of all starts so far
