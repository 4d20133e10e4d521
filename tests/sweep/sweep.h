// sweep.h: a run of the whole program that forks wherever something can fail, and lets it fail in the child.
//
// The program runs in one thread, in virtual time: the scenario stands in for the player, the main thread plays the
// drawing lists and nobody hears the sounds. So a child is a whole copy of the program, which goes on for a while
// after its failure, is then asked to quit, and is judged by what it leaves behind.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <filesystem>
#include <string>

enum failure : i32 {
    NO_FAILURE,
    ALLOCATION,
    OPEN_FAILS,
    READ_FAILS,
    READ_ENDS,        // the file has vanished or was cut
    READ_SHORT,       // harmless: the rest comes with the next call
    READ_INTERRUPTED, // harmless: the call is repeated
    WRITE_FAILS,      // the disk is full
    WRITE_CUT,        // some bytes go through, then the disk is full
    WRITE_SHORT,      // harmless
    WRITE_INTERRUPTED,
    SEEK_FAILS,
    CLOSE_FAILS,
    STAT_FAILS,
    REPLACE_FAILS, // the old file by the new one
    SYNC_FAILS,
    LOG_FAILS,
    SDL_START_FAILS,
    MODE_FAILS,
    MUTEX_FAILS,
    THREAD_FAILS,
    AUDIO_FAILS,
    DECODER_FAILS,
    ARCHIVE_CUT,     // at `place`
    ARCHIVE_FLIPPED, // the byte at `place`
    FAILURE_COUNT
};

struct failing {
    failure what;
    bool later; // and from then on
    i64 place;  // in the archive, bytes
};

// In the sweeping program: forks a child for this failure if it is one of those to try here; true in the child. In
// the child: whether it strikes again.
bool strikes(failure what, i64 place = 0);
const failing &struck(); // the child's failure; NO_FAILURE in the sweeping program

// The path in the child's folder of a file in the folder that the program started in; other paths as they are.
std::string own_path(const char *path);

void scenario_step(); // before every frame: what the player does

// What is wrong with what a program has left behind; empty when all is well.
std::string fault_of(int status, const std::filesystem::path &game, const failing &cause);
inline const std::string KEEPER = "Keeper"; // whose name and scores are there from the start
