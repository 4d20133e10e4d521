// fuzz.h: what the fuzzers share: a folder to work in, a screen of either depth without a window, and pictures.
//
// One program, one thread; the environment names the fuzzer that it runs. fuzz.cpp sets everything up before the first
// input; a condition that does not hold ends the program, which then keeps the input.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"
#include "support/temp_folder.h"

#include <span>

using fuzz_input = std::span<const u8>;

// files_fuzz.cpp, drawing_fuzz.cpp, sound_fuzz.cpp: what each does with one input.
void fuzz_archive(fuzz_input input);
void fuzz_prefs(fuzz_input input);
void fuzz_scores(fuzz_input input);
void fuzz_xpm(fuzz_input input);
void fuzz_text(fuzz_input input);
void fuzz_commands(fuzz_input input);
void fuzz_sound(fuzz_input input);
void fuzz_repair_sound(std::span<u8> input);

inline void must(bool holds) {
    if (!holds)
        __builtin_trap();
}

const temp_game &fuzz_folder();                      // a game folder; its bin/ is the working directory
void fuzz_write(const char *name, fuzz_input bytes); // data/NAME of that folder

// Makes the screen, its glyphs and the pictures of this depth the ones in use.
void fuzz_use_screen(bool narrow);
std::span<image *const> fuzz_pictures(); // from one pixel to larger than the window, one without a run table
