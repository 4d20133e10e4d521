// study.cpp: the study screen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "album.h"
#include "eyes.h"
#include "hands.h"
#include "letters.h"
#include "library.h"
#include "pieces.h"
#include "records.h"
#include "robot.h"
#include "screens.h"
#include "screens_parts.h"

// Buttons of the column, by the number of their normal picture; their place from the lowest up is beside them.
struct study_button {
    int picture, rise;
};
static constexpr study_button BACK = {1, 1}, PLAY = {13, 2}, HELP = {4, 3}, CLEAR = {7, 4}, FILL = {10, 5};
static constexpr int COLUMN_RIGHT = 795, COLUMN_BOTTOM = 595, COLUMN_GAP = 5;
static constexpr int BUTTON_INSIDE = 15; // pixels from a button's corner
static constexpr int TEXT_WIDTH = 510, TEXT_Y = 595, HELP_BELOW_BOARD = 30;

static point place_of(const study_button &button) {
    const picture &size = library_picture("study/", BACK.picture);
    return {COLUMN_RIGHT - size.width, COLUMN_BOTTOM - COLUMN_GAP * (button.rise - 1) - size.height * button.rise};
}

static void click_study(const study_button &button) {
    const point at = place_of(button);
    until_button_and_click(library_picture("study/", button.picture), at.x, at.y);
}

static void close_help(const puzzle_kind &kind) {
    const std::string text = "Click spaces on the board to place or remove pieces.";
    const int board_height = library_picture(std::string(kind.folder) + "board/base.xpm").height;
    help_until_closed(text, {letters_center(text), board_height + HELP_BELOW_BOARD}, 2,
                      {place_of(BACK).x + BUTTON_INSIDE, place_of(BACK).y + BUTTON_INSIDE}, "study-help");
}

static void check_text(const puzzle_kind &kind) {
    const std::string text = letters_wrap(library_text("study" + std::to_string(kind.type) + ".txt"), TEXT_WIDTH);
    eyes_until("the study text of " + std::string(kind.title),
               [&] { return letters_seen(text, letters_center(text), TEXT_Y, NAVY); });
}

void study_enter(const puzzle_kind &kind, bool help_expected) {
    pieces_open(kind, true);
    eyes_until_seen(library_picture("study/", PLAY.picture), place_of(PLAY).x, place_of(PLAY).y);
    if (help_expected)
        close_help(kind);
    records_study_seen();
    hands_move(AWAY.x, AWAY.y);
    pieces_until_board();
    eyes_until("every piece in its place on the study board", [] { return pieces_faces_missing() == 0; });
    check_text(kind);
    album_snap("study");
}

static void click_cell(int cell) {
    const point at = pieces_place(cell), size = pieces_size();
    hands_click(at.x + size.x / 2, at.y + size.y / 2);
    hands_move(AWAY.x, AWAY.y);
}

void study_explore(const puzzle_kind &kind) {
    const int cell = kind.columns + 2;
    click_cell(cell);
    eyes_until("an empty cell where a piece was clicked", [&] { return pieces_cell_empty(cell); });
    eyes_until("all other pieces in their cells", [] { return pieces_faces_missing() == 1; });
    click_cell(cell);
    eyes_until("the piece back in its cell", [] { return pieces_faces_missing() == 0; });
    click_study(CLEAR);
    eyes_until("an empty board", [] {
        for (int each = 0; each < pieces_count(); ++each)
            if (!pieces_cell_empty(each))
                return false;
        return true;
    });
    album_snap("study-clear");
    click_study(FILL);
    eyes_until("a full board", [] { return pieces_faces_missing() == 0; });
    click_study(HELP);
    close_help(kind);
}

void study_play(const std::string &name) {
    click_study(PLAY);
    dialog_name(name);
}

void study_back() {
    click_study(BACK);
    title_check();
}
