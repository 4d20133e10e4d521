// play.cpp: a run, by the style of the puzzle.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "play.h"
#include "deck.h"
#include "dialogs.h"
#include "eyes.h"
#include "hands.h"
#include "library.h"
#include "moments.h"
#include "pieces.h"
#include "robot.h"
#include "title.h"

#include <string>
#include <vector>

static constexpr point GRIP = {-3, -3};    // from a piece's lower right corner to where it is held
static constexpr point CARELESS = {2, -2}; // a drop is this far from the exact place, and must snap
static constexpr int LYING_VIEWS = 20;     // in which a piece lies where it was dropped before it counts as not placed
static constexpr int PULSING_VIEWS = 60;   // in which it is seen nowhere before the mouse leaves it
static constexpr int BEGIN_BOTTOM = SCREEN_HEIGHT - 5;
static constexpr point HELP_BUTTON = {730, 5}, RETURN_BUTTON = {730, 35}, RETURN_MIDDLE = {760, 47};

static void take(point at) {
    moments_tell(moment::TAKE);
    hands_take(at);
    moments_tell(moment::HELD);
}

static void drag(point piece, point grip, point to) {
    take(piece + grip);
    hands_move(to + grip);
    hands_drop();
}

point play_grip() {
    return pieces_size() + GRIP;
}

point play_near(int cell) {
    return pieces_place(cell) + CARELESS;
}

void play_lift(point piece) {
    take(piece + play_grip());
    hands_let_go();
    hands_move_away();
}

// A drop that fits may be seen where it was dropped for a moment before it snaps. One that does not may lie under the
// mouse and pulse.
bool play_place(point piece, point grip, int cell, bool last) {
    drag(piece, grip, play_near(cell));
    if (last)
        return true;
    bool snapped = false;
    int lying = 0, neither = 0; // views in a row
    eyes_until("a piece in cell " + std::to_string(cell) + ", or where it was dropped there", [&] {
        snapped = pieces_body_seen(pieces_place(cell));
        lying = !snapped && pieces_body_seen(play_near(cell)) ? lying + 1 : 0;
        neither = snapped || lying > 0 ? 0 : neither + 1;
        if (neither == PULSING_VIEWS)
            hands_move_away();
        return snapped || lying >= LYING_VIEWS;
    });
    return snapped;
}

void play_drop_wrongly(point piece, point grip, int cell, int other_cell) {
    const point wrong = pieces_place(other_cell);
    drag(piece, grip, wrong);
    hands_nudge();
    hands_move_away();
    eyes_until("a piece that was dropped wrongly where it was dropped", [&] { return pieces_face_seen(cell, wrong); });
    moments_tell(moment::WRONG_DROP);
}

// The picture that asks for the first move; it stands where no help is shown and the clock does not run.
static void until_begin(const puzzle_kind &kind) {
    const picture &begin = library_puzzle(kind.type, PICTURE_BEGIN);
    eyes_until_seen(begin, {window_centre(begin.width), BEGIN_BOTTOM - begin.height});
}

static void close_help(const puzzle_kind &kind) {
    help_until_closed(kind.help, kind.help_at, kind.help_clicks, RETURN_MIDDLE, moment::PLAY_HELP);
    until_begin(kind);
}

static void stay(const puzzle_kind &kind) {
    dialog_answer("Return to the title screen?", false, moment::QUESTION);
    until_begin(kind);
}

static void wander_before(const puzzle_kind &kind) {
    button_click(library_puzzle(kind.type, PICTURE_CONSOLE, 0), HELP_BUTTON);
    close_help(kind);
    hands_key(XK_Escape);
    stay(kind);
    pieces_until_board();
    button_click(library_puzzle(kind.type, PICTURE_CONSOLE, 1), RETURN_BUTTON);
    stay(kind);
}

// --- All pieces in sight ---------------------------------------------------------------------------------------

// Dropped on a cell of another row the piece stays; when the next one is taken it goes home.
static void wander_in_sight(const loose_piece &piece, const loose_piece &next) {
    const int elsewhere = (piece.cell + pieces_count() / 2) % pieces_count();
    play_drop_wrongly(piece.at, play_grip(), piece.cell, elsewhere);
    play_lift(next.at);
    eyes_until("the wrongly dropped piece back in its place and the cell empty",
               [&] { return pieces_face_seen(piece.cell, piece.at) && pieces_cell_empty(elsewhere); });
}

static std::vector<loose_piece> until_pieces(int least) {
    std::vector<loose_piece> seen;
    hands_move_away();
    eyes_until(std::to_string(least) + " pieces, none twice", [&] {
        seen = pieces_find_loose();
        const int count = static_cast<int>(seen.size());
        return count >= least && count <= pieces_count();
    });
    return seen;
}

static void play_in_sight(bool wander) {
    play_lift(until_pieces(1)[0].at); // that ends the hint, which may lie over other pieces
    const std::vector<loose_piece> pieces = until_pieces(pieces_count());
    if (wander)
        wander_in_sight(pieces[0], pieces[1]);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const bool last = i + 1 == pieces.size();
        const auto [at, cell] = pieces[i];
        if (last) {
            hands_move_away();
            moments_tell(moment::LAST_LEFT);
        }
        moments_tell(moment::PLACE);
        if (!play_place(at, play_grip(), cell, last))
            robot_give_up("the piece \"" + pieces_label(cell).name + "\" snaps into cell " + std::to_string(cell));
        if (i == pieces.size() / 2)
            moments_tell(moment::HALF);
    }
}

void play_puzzle(const puzzle_kind &kind, bool wander) {
    pieces_open(kind, false);
    close_help(kind);
    pieces_until_board();
    moments_tell(moment::BEGIN);
    if (wander)
        wander_before(kind);
    hands_move_away();
    eyes_look();
    pieces_read_cells();
    moments_tell(moment::FIRST_MOVE);
    if (kind.style == play_style::DECK)
        play_deck(kind, wander);
    else if (kind.style == play_style::KEYPAD)
        play_keypad(kind, wander);
    else
        play_in_sight(wander);
    moments_tell(moment::LAST_PIECE);
    completion_await();
}
