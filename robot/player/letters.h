// letters.h: seeing and reading text that is drawn with the game's font.
//
// One thread. Places are the text's left end and reference line, as for all the game's texts; the lines of a text
// of several lines stand above each other, the last one on the reference line.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

#include <string>

inline constexpr rgb GREY = {200, 200, 200}, ORANGE = {230, 190, 0};

constexpr rgb grey_of(int level) {
    return {static_cast<u8>(level), static_cast<u8>(level), static_cast<u8>(level)};
}

int letters_width(const std::string &text);  // of its widest line, pixels
int letters_centre(const std::string &text); // the left end of the text when it stands in the window's middle

bool letters_seen(const std::string &text, point at, rgb colour);
bool letters_seen_pulsing(const std::string &text, point at); // in any grey of a pulsing text
void letters_until(const std::string &text, point at, rgb colour);
void letters_until_centred(const std::string &text, int y, rgb colour);
