// play_deck.cpp: cards from the deck, and products on the keypad.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "play_deck.h"
#include "album.h"
#include "ears.h"
#include "eyes.h"
#include "hands.h"
#include "library.h"
#include "pieces.h"
#include "robot.h"
#include "screens.h"

#include <algorithm>
#include <string>
#include <vector>

static constexpr int DECK_PIECE = 4;     // a piece taken from the deck lies this far from its corner
static constexpr double RESEMBLES = 0.7; // share of a card that must be seen
static constexpr double CLEARLY = 10;    // pixels by which it must be the better one
static constexpr int SLIDE = 60;         // a turned card slides less far than this
static constexpr int NEXT_LEFT = 60;     // of the next button from the deck
static constexpr int KEY_MARGIN = 3, KEY_GAP_X = 1, KEY_GAP_Y = 3;
static constexpr int ENTER_KEY = 11; // number on the keypad, read row by row
static constexpr int DIGIT_ZERO_KEY = 10;
static constexpr int FACTORS = 10; // columns of the products

static std::string in(const puzzle_kind &kind, const char *name) {
    return std::string(kind.folder) + name;
}

static void click_next(const puzzle_kind &kind) {
    const picture &card = library_picture(in(kind, "deck/base.xpm"));
    const picture &button = library_picture(in(kind, "input/keys/"), 4);
    const point at = {kind.deck.x - NEXT_LEFT, kind.deck.y + 4 + (card.height >> 1) - (button.height >> 1)};
    eyes_until_seen(button, at.x, at.y);
    hands_click(at.x + button.width / 2, at.y + button.height / 2);
}

// Cards that are being turned can be neither taken nor answered.
static void until_deck_rests(const puzzle_kind &kind) {
    const picture &card = library_picture(in(kind, "deck/base.xpm"));
    hands_move(AWAY.x, AWAY.y);
    eyes_until_still("the deck", {kind.deck.x - SLIDE, kind.deck.y - DECK_PIECE, card.width + 2 * SLIDE, card.height});
}

// --- Cards with labels -----------------------------------------------------------------------------------------

// Cards as far as their labels reach.
static std::vector<picture> card_faces(const puzzle_kind &kind) {
    const picture &card = library_picture(in(kind, "deck/base.xpm"));
    std::vector<picture> faces;
    for (int cell = 0; cell < pieces_count(); ++cell) {
        const picture &label = pieces_label(cell);
        const int x = (card.width >> 1) - (label.width >> 1) + kind.card_label.x;
        const int y = (card.height >> 1) - (label.height >> 1) + kind.card_label.y;
        faces.push_back(picture_inset(picture_over(card, label, x, y), x, y, card.width - x - label.width,
                                      card.height - y - label.height));
    }
    return faces;
}

// The number of the picture that the top card resembles clearly more than it resembles any other, or -1. Sparks may
// play over the card for a moment after a piece was placed.
static int guess_card(const puzzle_kind &kind, const std::vector<picture> &faces) {
    std::vector<double> match;
    for (const picture &face : faces)
        match.push_back(eyes_match(face, kind.deck.x, kind.deck.y));
    const auto best = static_cast<std::size_t>(std::max_element(match.begin(), match.end()) - match.begin());
    double next = 0;
    for (std::size_t i = 0; i < faces.size(); ++i)
        if (match[i] > next && !picture_same(faces[i], faces[best]))
            next = match[i];
    const double margin = CLEARLY / static_cast<double>(faces[best].probes.size());
    return match[best] >= RESEMBLES && match[best] >= next + margin ? static_cast<int>(best) : -1;
}

static int until_card(const puzzle_kind &kind, const std::vector<picture> &faces) {
    int seen = -1;
    eyes_until("a card on the deck", [&] {
        const int before = seen;
        seen = guess_card(kind, faces);
        return seen >= 0 && seen == before;
    });
    return seen;
}

// Cells are tried in turn where several pieces share a label; a cell that has its piece is not among them.
static int put_into_one_of(std::vector<int> cells, point from) {
    const point grip = play_grip();
    for (const int cell : cells) {
        play_drag(from, play_careless(pieces_place(cell)), grip);
        if (play_snapped(cell))
            return cell;
        from = play_careless(pieces_place(cell));
    }
    return -1;
}

static void take_card(const puzzle_kind &kind, point to) {
    const point card = {kind.deck.x + DECK_PIECE, kind.deck.y + DECK_PIECE};
    play_drag(card, to, {pieces_size().x / 2, pieces_size().y / 2});
}

// The next card, while this one goes under the stack; a piece that is dropped where it does not belong goes back.
static void wander_deck(const puzzle_kind &kind, const std::vector<picture> &faces) {
    hands_key(XK_space);
    until_deck_rests(kind);
    const int seen = until_card(kind, faces);
    int elsewhere = 0;
    while (picture_same(pieces_label(elsewhere), pieces_label(seen)))
        ++elsewhere;
    const point wrong = pieces_place(elsewhere);
    take_card(kind, wrong);
    hands_nudge();
    hands_move(AWAY.x, AWAY.y);
    eyes_until("a piece that was dropped wrongly where it was dropped", [&] { return pieces_face_seen(seen, wrong); });
    album_snap("wrong-drop");
    hands_key(XK_space);
    eyes_until("the cell empty from which a piece was taken back", [&] { return pieces_cell_empty(elsewhere); });
    until_deck_rests(kind);
}

void play_deck(const puzzle_kind &kind, bool wander) {
    const std::vector<picture> faces = card_faces(kind);
    std::vector<int> open;
    for (int cell = 0; cell < pieces_count(); ++cell)
        open.push_back(cell);
    click_next(kind);
    until_deck_rests(kind);
    if (wander)
        wander_deck(kind, faces);
    while (!open.empty()) {
        const int seen = until_card(kind, faces);
        if (open.size() * 2 == static_cast<std::size_t>(pieces_count()))
            album_snap("play");
        std::vector<int> cells = pieces_lookalikes(seen);
        std::erase_if(cells, [&](int cell) { return std::find(open.begin(), open.end(), cell) == open.end(); });
        robot_expect(!cells.empty(), "the card \"" + pieces_label(seen).name + "\" has not been placed before");
        const int first = cells[0];
        if (cells.size() == 1)
            ears_note_placement();
        take_card(kind, play_careless(pieces_place(first)));
        if (open.size() == 1)
            return;
        int placed = play_snapped(first) ? first : -1;
        if (placed < 0)
            placed = put_into_one_of({cells.begin() + 1, cells.end()}, play_careless(pieces_place(first)));
        robot_expect(placed >= 0, "the piece \"" + pieces_label(seen).name + "\" fits one of its cells");
        std::erase(open, placed);
    }
}

// --- Products --------------------------------------------------------------------------------------------------

// A card with the problem of this cell, as it is written with the deck's digits.
static picture problem_card(const puzzle_kind &kind, int cell) {
    static constexpr int TIMES_SIGN = 11;
    const picture &card = library_picture(in(kind, "deck/base.xpm"));
    const std::string text =
        std::to_string(kind.first_factor + cell / kind.columns) + "x" + std::to_string(1 + cell % kind.columns);
    std::vector<const picture *> signs;
    int width = 0, height = 0;
    for (const char c : text) {
        signs.push_back(&library_picture(in(kind, "deck/symbols/"), c == 'x' ? TIMES_SIGN : c - '0' + 1));
        width += signs.back()->width + 1;
        height = std::max(height, signs.back()->height);
    }
    picture result = card;
    int x = (card.width >> 1) - (width >> 1);
    const int bottom = (card.height >> 1) - (height >> 1) + height;
    for (const picture *sign : signs) {
        result = picture_over(result, *sign, x, bottom - sign->height);
        x += sign->width + 1;
    }
    result.name = text;
    return result;
}

static void click_key(const puzzle_kind &kind, int number) {
    static constexpr point KEYPAD = {330, 390};
    const picture &key = library_picture(in(kind, "input/keys/"), 1);
    hands_click(KEYPAD.x + KEY_MARGIN + number % 3 * (key.width + KEY_GAP_X) + key.width / 2,
                KEYPAD.y + KEY_MARGIN + number / 3 * (key.height + KEY_GAP_Y) + key.height / 2);
}

static void enter(const puzzle_kind &kind, int answer) {
    for (const char digit : std::to_string(answer))
        click_key(kind, digit == '0' ? DIGIT_ZERO_KEY : digit - '1');
    click_key(kind, ENTER_KEY);
}

static int product(const puzzle_kind &kind, int cell) {
    return (kind.first_factor + cell / kind.columns) * (1 + cell % kind.columns);
}

// A card is turned away; the next one is answered wrongly and stays.
static void wander_keypad(const puzzle_kind &kind, const std::vector<picture> &cards) {
    hands_key(XK_space);
    until_deck_rests(kind);
    const std::vector<color565> before = eyes_copy(WHOLE_WINDOW);
    const int asked = until_card(kind, cards);
    ears_note("incorrect_number");
    enter(kind, product(kind, asked) + 1);
    album_snap("wrong-answer");
    hands_move(AWAY.x, AWAY.y);
    eyes_until_still("the wrong answer's digits", WHOLE_WINDOW);
    robot_expect(eyes_copy(WHOLE_WINDOW) == before, "a wrong answer leaves everything as it was");
}

void play_keypad(const puzzle_kind &kind, bool wander) {
    std::vector<picture> cards;
    for (int cell = 0; cell < pieces_count(); ++cell)
        cards.push_back(problem_card(kind, cell));
    const point piece = {kind.deck.x + DECK_PIECE, kind.deck.y + DECK_PIECE};
    click_next(kind);
    until_deck_rests(kind);
    if (wander)
        wander_keypad(kind, cards);
    for (int left = pieces_count(); left > 0; --left) {
        const int cell = until_card(kind, cards);
        ears_note("piece_emerge");
        enter(kind, product(kind, cell));
        eyes_until("the piece of " + cards[static_cast<std::size_t>(cell)].name,
                   [&] { return pieces_face_seen(cell, piece); });
        if (left == pieces_count() / 2)
            album_snap("play");
        ears_note_placement();
        play_drag(piece, play_careless(pieces_place(cell)), play_grip());
        if (left > 1)
            robot_expect(play_snapped(cell), "the piece of " + cards[static_cast<std::size_t>(cell)].name + " snaps");
    }
}
