// fuzz.h: what the fuzzers share: a folder to work in, a screen of either depth without a window, and pictures.
//
// One fuzzer a file, one thread. fuzz.cpp sets everything up before the first input; a condition that does not hold
// ends the fuzzer, which then keeps the input.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/types.h"
#include "resources/image.h"
#include "support/temp_folder.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <span>

extern "C" int LLVMFuzzerTestOneInput(const u8 *data, std::size_t size);

inline void must(bool holds) {
    if (!holds)
        __builtin_trap();
}

const temp_game &fuzz_folder();                                      // a game folder; its bin/ is the working directory
void fuzz_write(const char *name, const u8 *data, std::size_t size); // data/NAME of that folder

// Makes the screen, its glyphs and the pictures of this depth the ones in use.
void fuzz_use_screen(bool narrow);
std::span<image *const> fuzz_pictures(); // from one pixel to larger than the window, one without a run table
