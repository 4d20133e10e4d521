// judge.h: listens to what the player sees and does, and checks it against what it knows: names, times, marks, texts
// and numbers on the screens, sounds, and at the end the files.
//
// One thread. Gives up on what is not as it should be.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

void judge_begin();       // listens from now on
void judge_check_files(); // what the program has written when it ended
