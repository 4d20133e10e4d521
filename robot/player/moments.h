// moments.h: what the robot sees and does, told while it plays to whoever listens: an album takes pictures, a test
// judges.
//
// One thread. A listener may look, but does not act; the play goes on when it returns.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzle_kinds.h"

#include <functional>

enum class moment {
    // This is seen, the mouse is out of the way:
    SPLASH,
    TITLE,
    TITLE_HELP,
    CREDITS,
    SELECTED, // a puzzle on the title screen
    STUDY,
    STUDY_CLEAR,
    STUDY_HELP,
    NAME, // the name dialog with the player's name
    PLAY_HELP,
    BEGIN,    // the play screen before the first move
    QUESTION, // the dialog that asks whether to leave the play screen
    WRONG_DROP,
    WRONG_ANSWER,
    WRONG_ANSWER_GONE,
    HALF,      // of the pieces are placed
    LAST_LEFT, // of the pieces that lie in sight
    COMPLETED,
    SCORE_LOG, // with all its rows
    EXIT,      // the dialog that asks whether to end the program
    CLOSING,
    HELD, // a piece, by the mouse
    // This is about to be done:
    CLICK,  // on a button
    SELECT, // a puzzle that was not selected before
    FIRST_MOVE,
    TAKE,  // a piece
    PLACE, // a piece into the cell where it fits
    ANSWER,
    ANSWER_WRONGLY,
    // This was just done:
    LAST_PIECE, // was placed
};

// `puzzle` is the one that is visited, or null.
using moment_listener = std::function<void(moment what, const puzzle_kind *puzzle)>;

void moments_listen(moment_listener listener);
void moments_about(const puzzle_kind *puzzle); // what is told from now on belongs to this puzzle, or null
void moments_tell(moment what);
