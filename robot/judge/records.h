// records.h: the robot's own book of what it has played, and the two files that the game should have made of it.
//
// One thread. Written from what the screens showed, not from the game's files.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <array>
#include <string>
#include <vector>

inline constexpr int PLACES = 3; // that a puzzle's masters hold

struct run_record {
    std::string date; // as the score log shows it: 2004-03-07 14:05
    int seconds;
    std::string name;
};

struct place_record {
    int seconds;
    std::string name;
};

const std::vector<run_record> &records_log(int type); // newest first
const std::array<place_record, PLACES> &records_masters(int type);
int records_master_time(int type); // seconds that a run may take to count as a master's
bool records_mastered(int type);   // by the player

void records_study_seen();          // the study screen was entered
void records_run_started(int type); // the play screen was entered
void records_run(int type, const run_record &run);

std::string records_scores_file(); // the bytes that data/scores should hold
std::string records_prefs_file();  // and data/prefs
