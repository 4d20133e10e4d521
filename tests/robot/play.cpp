// play.cpp: a run, by the style of the puzzle.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "play.h"
#include "album.h"
#include "ears.h"
#include "eyes.h"
#include "hands.h"
#include "library.h"
#include "pieces.h"
#include "play_deck.h"
#include "robot.h"
#include "screens.h"
#include "screens_parts.h"

#include <chrono>
#include <string>

using steady = std::chrono::steady_clock;

static constexpr int GRIP = 3;             // pixels from a piece's lower right corner to where it is held
static constexpr point CARELESS = {2, -2}; // a drop is this far from the exact place, and must snap
static constexpr int LYING_VIEWS = 20;     // in which a piece lies where it was dropped before it counts as not placed
static constexpr point HELP_BUTTON = {730, 5}, RETURN_BUTTON = {730, 35}, RETURN_MIDDLE = {760, 47};

static steady::time_point first_held, last_taken; // of this run; the clock runs from before the one to after the other

void play_take(point at) {
    last_taken = steady::now();
    hands_take(at.x, at.y);
    if (first_held == steady::time_point())
        first_held = steady::now();
}

void play_drag(point piece, point to, point grip) {
    play_take({piece.x + grip.x, piece.y + grip.y});
    hands_move(to.x + grip.x, to.y + grip.y);
    hands_drop();
}

point play_grip() {
    return {pieces_size().x - GRIP, pieces_size().y - GRIP};
}

point play_careless(point place) {
    return {place.x + CARELESS.x, place.y + CARELESS.y};
}

// A drop that fits may be seen where it was dropped for a moment before it snaps.
bool play_snapped(int cell) {
    const point place = pieces_place(cell), dropped = play_careless(place);
    bool snapped = false;
    int views = 0;
    eyes_until("a piece in cell " + std::to_string(cell) + ", or where it was dropped there", [&] {
        snapped = pieces_body_seen(place);
        views = !snapped && pieces_body_seen(dropped) ? views + 1 : 0;
        return snapped || views >= LYING_VIEWS;
    });
    return snapped;
}

static point begin_place(const picture &begin) {
    return {(WINDOW_WIDTH - begin.width) >> 1, WINDOW_HEIGHT - 5 - begin.height};
}

static const picture &begin_picture(const puzzle_kind &kind) {
    return library_picture(std::string(kind.folder) + "begin.xpm");
}

// The picture that asks for the first move; it stands where no help is shown and the clock does not run.
static void until_begin(const puzzle_kind &kind) {
    const picture &begin = begin_picture(kind);
    eyes_until_seen(begin, begin_place(begin).x, begin_place(begin).y);
}

static void click_console(const puzzle_kind &kind, int number, point at) {
    until_button_and_click(library_picture(std::string(kind.folder) + "console/", number), at.x, at.y);
}

static void wander_before(const puzzle_kind &kind) {
    click_console(kind, 1, HELP_BUTTON);
    help_until_closed(kind.help, kind.help_at, kind.help_clicks, RETURN_MIDDLE, "play-help");
    until_begin(kind);
    hands_key(XK_Escape);
    return_dialog_stay();
    until_begin(kind);
    pieces_until_board();
    click_console(kind, 2, RETURN_BUTTON);
    return_dialog_stay();
    until_begin(kind);
}

// --- All pieces in sight ---------------------------------------------------------------------------------------

// Dropped on a cell of another row the piece stays; when the next one is taken it goes home.
static void drop_wrongly(const loose_piece &piece, const loose_piece &next) {
    const int elsewhere = (piece.cell + pieces_count() / 2) % pieces_count();
    const point wrong = pieces_place(elsewhere);
    play_drag(piece.at, wrong, play_grip());
    hands_nudge();
    hands_move(AWAY.x, AWAY.y);
    eyes_until("a piece that was dropped wrongly where it was dropped",
               [&] { return pieces_face_seen(piece.cell, wrong); });
    album_snap("wrong-drop");
    const point grip = play_grip();
    play_take({next.at.x + grip.x, next.at.y + grip.y});
    hands_let_go();
    hands_move(AWAY.x, AWAY.y);
    eyes_until("the wrongly dropped piece back in its place", [&] { return pieces_face_seen(piece.cell, piece.at); });
    robot_expect(pieces_cell_empty(elsewhere), "the cell under a wrong drop is empty again");
}

static void place(const loose_piece &piece, bool last) {
    ears_note_placement();
    play_drag(piece.at, play_careless(pieces_place(piece.cell)), play_grip());
    if (!last && !play_snapped(piece.cell))
        robot_give_up("the piece \"" + pieces_label(piece.cell).name + "\" snaps into cell " +
                      std::to_string(piece.cell));
}

// Takes up some piece and lays it down again: that ends the hint, which may lie over other pieces.
static void lift_any() {
    hands_move(AWAY.x, AWAY.y);
    std::vector<loose_piece> some;
    eyes_until("a piece", [&] {
        some = pieces_find_loose();
        return !some.empty();
    });
    play_take({some[0].at.x + play_grip().x, some[0].at.y + play_grip().y});
    hands_let_go();
    hands_move(AWAY.x, AWAY.y);
}

static void play_in_sight(bool wander) {
    lift_any();
    std::vector<loose_piece> pieces;
    eyes_until("all pieces, none twice", [&] {
        pieces = pieces_find_loose();
        return static_cast<int>(pieces.size()) == pieces_count();
    });
    if (wander)
        drop_wrongly(pieces[0], pieces[1]);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const bool last = i + 1 == pieces.size();
        if (last) {
            hands_move(AWAY.x, AWAY.y);
            eyes_until("every piece but the last with its label in its cell",
                       [] { return pieces_faces_missing() == 1; });
        }
        place(pieces[i], last);
        if (i == pieces.size() / 2)
            album_snap("play");
    }
}

static double seconds_between(steady::time_point from, steady::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

run_span play_puzzle(const puzzle_kind &kind, const play_detours &detours) {
    pieces_open(kind, false);
    if (detours.help_expected)
        help_until_closed(kind.help, kind.help_at, kind.help_clicks, RETURN_MIDDLE, "play-help");
    until_begin(kind);
    pieces_until_board();
    album_snap("begin");
    if (detours.wander)
        wander_before(kind);
    hands_move(AWAY.x, AWAY.y);
    eyes_look();
    pieces_read_cells();
    const auto start = steady::now();
    first_held = {};
    switch (kind.style) {
    case play_style::BOX:
    case play_style::AROUND:
        play_in_sight(detours.wander);
        break;
    case play_style::DECK:
        play_deck(kind, detours.wander);
        break;
    case play_style::KEYPAD:
        play_keypad(kind, detours.wander);
        break;
    }
    ears_note("puzzle_complete");
    completion_await();
    return {.least = seconds_between(first_held, last_taken), .most = seconds_between(start, steady::now())};
}
