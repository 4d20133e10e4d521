// deck.cpp: cards from the deck, and products on the keypad.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "deck.h"

#include "eyes.h"
#include "hands.h"
#include "library.h"
#include "moments.h"
#include "pieces.h"
#include "play.h"
#include "robot.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

static constexpr point DECK_PIECE = {4, 4}; // where a piece taken from the deck lies, from the deck's corner
static constexpr double RESEMBLES = 0.7;    // share of a card that must be seen
static constexpr double CLEARLY = 10;       // pixels by which it must be the better one
static constexpr int SLIDE = 60;            // a turned card slides less far than this
static constexpr int NEXT_LEFT = 60;        // of the next button from the deck
static constexpr point KEYPAD = {333, 393}; // the first key's corner
static constexpr int KEY_COLUMNS = 3, KEY_GAP_X = 1, KEY_GAP_Y = 3;
static constexpr int ZERO_KEY = 10, ENTER_KEY = 11; // numbers on the keypad, read row by row
static constexpr int NEXT_PICTURE = 3, KEY_PICTURE = 0;

static const picture &card_back(const puzzle_kind &kind) {
    return library_puzzle(kind.type, PICTURE_CARD);
}

static const picture &key_picture(const puzzle_kind &kind, int number) {
    return library_puzzle(kind.type, PICTURE_KEYS, number);
}

// Cards that are being turned can be neither taken nor answered.
static void until_deck_rests(const puzzle_kind &kind) {
    const picture &card = card_back(kind);
    hands_move_away();
    eyes_until_still("the deck", {kind.places().deck.x - SLIDE, kind.places().deck.y - DECK_PIECE.y,
                                  card.width + 2 * SLIDE, card.height});
}

static void show_first_card(const puzzle_kind &kind) {
    const picture &button = key_picture(kind, NEXT_PICTURE);
    const point at = kind.places().deck + point{-NEXT_LEFT, DECK_PIECE.y + picture_inside(card_back(kind), button).y};
    eyes_until_seen(button, at);
    hands_click(at + picture_middle(button));
    until_deck_rests(kind);
}

// The number of the picture that the top card resembles clearly more than it resembles any other, or -1. Sparks may
// play over the card for a moment after a piece was placed.
static int guess_card(const puzzle_kind &kind, const std::vector<picture> &faces) {
    std::vector<double> match;
    for (const picture &face : faces)
        match.push_back(eyes_match(face, kind.places().deck));
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

// --- Cards with labels -----------------------------------------------------------------------------------------

// Cards as far as their labels reach.
static std::vector<picture> card_faces(const puzzle_kind &kind) {
    const picture &card = card_back(kind);
    std::vector<picture> faces;
    for (int cell = 0; cell < pieces_count(); ++cell) {
        const picture &label = pieces_label(cell);
        const point at = picture_inside(card, label) + kind.places().card_label;
        faces.push_back(picture_part(picture_collage(card, {{&label, at}}), {at.x, at.y, label.width, label.height}));
    }
    return faces;
}

// Cells are tried in turn where several pieces share a label. The one that fits.
static int put_into_one_of(const std::vector<int> &cells, const puzzle_kind &kind, bool last) {
    point from = kind.places().deck + DECK_PIECE, grip = pieces_middle();
    for (const int cell : cells) {
        if (play_place(from, grip, cell, last))
            return cell;
        from = play_near(cell);
        grip = play_grip();
    }
    robot_give_up("the piece \"" + pieces_label(cells[0]).name + "\" fits one of its cells");
}

// The next card, while this one goes under the stack; a piece that is dropped where it does not belong goes back.
static void wander_deck(const puzzle_kind &kind, const std::vector<picture> &faces) {
    hands_key(XK_space);
    until_deck_rests(kind);
    const int seen = until_card(kind, faces);
    int elsewhere = 0;
    while (picture_same(pieces_label(elsewhere), pieces_label(seen)))
        ++elsewhere;
    play_drop_wrongly(kind.places().deck + DECK_PIECE, pieces_middle(), seen, elsewhere);
    hands_key(XK_space);
    eyes_until("the cell empty from which a piece was taken back", [&] { return pieces_cell_empty(elsewhere); });
    until_deck_rests(kind);
}

void play_deck(const puzzle_kind &kind, bool wander) {
    const std::vector<picture> faces = card_faces(kind);
    std::set<int> open;
    for (int cell = 0; cell < pieces_count(); ++cell)
        open.insert(cell);
    show_first_card(kind);
    if (wander)
        wander_deck(kind, faces);
    while (!open.empty()) {
        const int seen = until_card(kind, faces);
        if (open.size() * 2 == faces.size())
            moments_tell(moment::HALF);
        std::vector<int> cells = pieces_lookalikes(seen);
        std::erase_if(cells, [&](int cell) { return !open.contains(cell); });
        robot_expect(!cells.empty(), "the card \"" + pieces_label(seen).name + "\" has not been placed before");
        if (cells.size() == 1)
            moments_tell(moment::PLACE);
        open.erase(put_into_one_of(cells, kind, open.size() == 1));
    }
}

// --- Products --------------------------------------------------------------------------------------------------

static point factors(const puzzle_kind &kind, int cell) {
    return {kind.first_factor + cell / kind.layout().cols, 1 + cell % kind.layout().cols};
}

// A card with the problem of this cell, as it is written with the deck's digits.
static picture problem_card(const puzzle_kind &kind, int cell) {
    const auto [a, b] = factors(kind, cell);
    const std::string text = std::to_string(a) + "x" + std::to_string(b);
    std::vector<picture_layer> signs;
    int width = 0, height = 0;
    for (const char c : text) {
        const auto number = static_cast<int>(CARD_TEXT_CHARACTERS.find(c));
        const picture &sign = library_puzzle(kind.type, PICTURE_CARD_SYMBOLS, number);
        signs.push_back({&sign, {width, -sign.height}});
        width += sign.width + 1;
        height = std::max(height, sign.height);
    }
    const picture &card = card_back(kind);
    for (picture_layer &sign : signs)
        sign.at = sign.at + picture_middle(card) + point{-(width >> 1), height - (height >> 1)};
    picture result = picture_collage(card, signs);
    result.name = text;
    return result;
}

static void click_key(const puzzle_kind &kind, int number) {
    const picture &key = key_picture(kind, KEY_PICTURE);
    hands_click(KEYPAD + picture_middle(key) +
                point{number % KEY_COLUMNS * (key.width + KEY_GAP_X), number / KEY_COLUMNS * (key.height + KEY_GAP_Y)});
}

static void enter(const puzzle_kind &kind, int answer) {
    for (const char digit : std::to_string(answer))
        click_key(kind, digit == '0' ? ZERO_KEY : digit - '1');
    click_key(kind, ENTER_KEY);
}

static int product(const puzzle_kind &kind, int cell) {
    return factors(kind, cell).x * factors(kind, cell).y;
}

// A card is turned away; the next one is answered wrongly and stays.
static void wander_keypad(const puzzle_kind &kind, const std::vector<picture> &cards) {
    hands_key(XK_space);
    until_deck_rests(kind);
    const int asked = until_card(kind, cards);
    moments_tell(moment::ANSWER_WRONGLY);
    enter(kind, product(kind, asked) + 1);
    moments_tell(moment::WRONG_ANSWER);
    hands_move_away();
    eyes_until_still("the wrong answer's digits", WHOLE_SCREEN);
    moments_tell(moment::WRONG_ANSWER_GONE);
}

void play_keypad(const puzzle_kind &kind, bool wander) {
    std::vector<picture> cards;
    for (int cell = 0; cell < pieces_count(); ++cell)
        cards.push_back(problem_card(kind, cell));
    const point piece = kind.places().deck + DECK_PIECE;
    show_first_card(kind);
    if (wander)
        wander_keypad(kind, cards);
    for (int left = pieces_count(); left > 0; --left) {
        const int cell = until_card(kind, cards);
        const std::string &problem = cards[static_cast<std::size_t>(cell)].name;
        moments_tell(moment::ANSWER);
        enter(kind, product(kind, cell));
        eyes_until("the piece of " + problem, [&] { return pieces_face_seen(cell, piece); });
        if (left == pieces_count() / 2)
            moments_tell(moment::HALF);
        moments_tell(moment::PLACE);
        robot_expect(play_place(piece, play_grip(), cell, left == 1), "the piece of " + problem + " snaps");
    }
}
