// study.cpp: the study screen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "study.h"

#include "dialogs.h"
#include "eyes.h"
#include "hands.h"
#include "letters.h"
#include "library.h"
#include "pieces.h"
#include "title.h"

#include <string>

static constexpr side_button BACK = {STUDY_SET, STUDY_BACK_BUTTON, 1}, PLAY = {STUDY_SET, STUDY_PLAY_BUTTON, 2},
                             HELP = {STUDY_SET, STUDY_HELP_BUTTON, 3}, CLEAR = {STUDY_SET, STUDY_CLEAR_BUTTON, 4},
                             FILL = {STUDY_SET, STUDY_FILL_BUTTON, 5};
static constexpr point BUTTON_INSIDE = {15, 15}; // from a button's corner
static constexpr int HELP_BELOW_BOARD = 30;

static void close_help(const puzzle_kind &kind) {
    const std::string text = "Click spaces on the board to place or remove pieces.";
    const picture &board = library_puzzle(kind.type, PICTURE_BOARD);
    help_until_closed(text, {letters_centre(text), board.height + HELP_BELOW_BOARD}, 2,
                      column_place(BACK) + BUTTON_INSIDE, moment::STUDY_HELP);
}

static void until_missing(const std::string &what, int pieces) {
    eyes_until(what, [pieces] { return pieces_faces_missing() == pieces; });
}

void study_enter(const puzzle_kind &kind) {
    static bool help_shown = false; // to this player; nobody is shown it before there is a name
    pieces_open(kind, true);
    eyes_until_seen(column_picture(PLAY), column_place(PLAY));
    if (!player_name().empty() && !help_shown) {
        close_help(kind);
        help_shown = true;
    }
    hands_move_away();
    pieces_until_board();
    until_missing("every piece in its place on the study board", 0);
    moments_tell(moment::STUDY);
}

static void click_cell(int cell) {
    hands_click(pieces_place(cell) + pieces_middle());
    hands_move_away();
}

void study_explore(const puzzle_kind &kind) {
    const int cell = kind.layout().cols + 2;
    click_cell(cell);
    eyes_until("an empty cell where a piece was clicked", [&] { return pieces_cell_empty(cell); });
    until_missing("all other pieces in their cells", 1);
    click_cell(cell);
    until_missing("the piece back in its cell", 0);
    column_click(CLEAR);
    eyes_until("an empty board", [] {
        for (int each = 0; each < pieces_count(); ++each)
            if (!pieces_cell_empty(each))
                return false;
        return true;
    });
    moments_tell(moment::STUDY_CLEAR);
    column_click(FILL);
    until_missing("a full board", 0);
    column_click(HELP);
    close_help(kind);
}

void study_play() {
    column_click(PLAY);
    dialog_name();
}

void study_back() {
    column_click(BACK);
    title_await();
}
