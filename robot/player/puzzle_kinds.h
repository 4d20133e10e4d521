// puzzle_kinds.h: what a player knows about each of the eleven puzzles: its rules, its places, its first help text.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

inline constexpr int PUZZLE_COUNT = 11;

enum class play_style {
    IN_SIGHT, // all pieces lie in a box below the board or around it
    DECK,     // cards are taken from a deck
    KEYPAD,   // a card shows a product to be typed, then its piece appears
};

struct puzzle_kind {
    int type;
    const char *title;
    const char *folder; // of its pictures
    play_style style;

    int columns, rows;
    point cell;         // size
    point grid;         // the first cell, from the board's corner
    int pitch_y;        // from one row to the next; columns are a pixel more than a cell apart
    int top, study_top; // of the board, in play and in study mode
    point deck;
    point card_label;  // how far a label on a card is from its middle
    bool label_on_top; // of a piece, not in its middle
    bool cell_each;    // every cell has a picture of its own, not every row
    int first_factor;  // of the first row, where the labels are products; 0: they are not

    const char *help; // the first help bubble
    point help_at;
    int help_clicks; // that lead through all bubbles
};

const puzzle_kind &puzzle_kind_of(int type);
const puzzle_kind &puzzle_kind_in_row(int row);
int puzzle_list_row(int type); // in the title screen's list, 0 at the top
