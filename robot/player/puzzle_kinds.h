// puzzle_kinds.h: what a player knows about each of the eleven puzzles: its rules, its places, its first help text.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"
#include "puzzles/puzzle_layout.h"

enum class play_style {
    IN_SIGHT, // all pieces lie in a box below the board or around it
    DECK,     // cards are taken from a deck
    KEYPAD,   // a card shows a product to be typed, then its piece appears
};

struct puzzle_kind {
    int type;
    play_style style;
    bool label_on_top; // of a piece, not in its middle
    int first_factor;  // of the first row, where the labels are products; 0: they are not

    const char *help; // the first help bubble
    point help_at;
    int help_clicks; // that lead through all bubbles

    [[nodiscard]] const puzzle_layout &layout() const { return PUZZLE_LAYOUTS[type]; }
    [[nodiscard]] const puzzle_places &places() const { return PUZZLE_PLACES[type]; }
};

const puzzle_kind &puzzle_kind_of(int type);
const puzzle_kind &puzzle_kind_in_row(int row);
int puzzle_list_row(int type); // in the title screen's list, 0 at the top
