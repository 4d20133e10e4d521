// judge.h: the files that a swept program starts with, and what is wrong with what a child has left behind.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "sweep/sweep.h"

#include <filesystem>
#include <string>

void put_old_files(const std::filesystem::path &game); // prefs and scores of a player named Keeper

struct ending {
    int status;         // as from wait
    double cpu_seconds; // since the failure
    std::filesystem::path game;
};
std::string fault_of(const ending &end, const failing &cause); // empty when all is well
