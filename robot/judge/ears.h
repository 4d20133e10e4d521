// ears.h: listening: what the robot's doings should have sounded like, looked up in the recording afterwards.
//
// One thread. The recording holds the program's sound as it was played; how long it is at a moment tells where a
// sound that is caused then must begin.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <string>

void ears_record(); // what the next program plays, into its folder, in real time

// A sound that is being caused: the name of its file without ".ogg", or PLACEMENT. Without a recording it is not noted.
inline constexpr const char *PLACEMENT = "piece_place"; // one of several sounds
void ears_note(const std::string &sound);

// Every noted sound is there where it was caused, nothing clips, and it is silent before the first one.
void ears_check();
