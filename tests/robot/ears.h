// ears.h: listening: what the robot's doings should have sounded like, looked up in the recording afterwards.
//
// One thread. Without a recording nothing is noted. The recording holds the program's sound as it was played; how
// long it is at a moment tells where a sound that is caused then must begin.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <string>

void ears_open(const std::string &recording); // of the program that is being started

void ears_note(const std::string &sound); // a sound that is being caused: the name of its file without ".ogg"
void ears_note_placement();               // one of the sounds of a placed piece

// Every noted sound is there where it was caused, nothing clips, and it is silent before the first one.
void ears_check();
