// puzzle_type.cpp: the table of places, and setting a board up from the tables.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/puzzle_type.h"

#include "core/base/log.h"
#include "core/base/strings.h"
#include "puzzles/background.h"
#include "sprites/number_entry.h"

#include <algorithm>
#include <iterator>

namespace {

struct place {
    i32 x, y;
};

// Where things stand on the screen, in pixels; unused ones are 0.
struct puzzle_places {
    place box;
    place deck;
    place keypad;
    place entry;      // answer display
    place entry_dest; // where entered digits fly
    place card_label; // offset of a label on a card
};

// clang-format off
constexpr puzzle_places PLACES[PUZZLE_COUNT] = {
    // box         deck        keypad      entry       entry_dest  card_label
    {{94, 295},    {},         {},         {},         {},         {}},
    {{},           {330, 345}, {330, 390}, {405, 358}, {342, 358}, {}},
    {{94, 295},    {},         {},         {},         {},         {}},
    {{},           {330, 345}, {330, 390}, {405, 358}, {342, 358}, {}},
    {{},           {380, 415}, {340, 420}, {415, 388}, {352, 388}, {}},
    {{},           {380, 415}, {340, 420}, {415, 388}, {352, 388}, {}},
    {{},           {350, 495}, {340, 320}, {415, 288}, {352, 288}, {}},
    {{},           {370, 395}, {340, 420}, {415, 388}, {352, 388}, {3, 2}},
    {{},           {384, 481}, {340, 320}, {415, 288}, {352, 288}, {}},
    {{},           {},         {},         {},         {},         {}},
    {{},           {370, 476}, {340, 420}, {415, 388}, {352, 388}, {3, 2}},
};
// clang-format on

constexpr bool places_fit_features() {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        const puzzle_places &p = PLACES[type];
        const u32 features = PUZZLE_LAYOUTS[type].features;
        const bool box = (features & BOARD_HAS_BOX) != 0, deck = (features & BOARD_HAS_DECK) != 0;
        if ((p.box.x > 0) != box || (p.deck.x > 0) != deck || ((features & BOARD_HAS_KEYPAD) != 0 && p.keypad.x == 0))
            return false;
    }
    return true;
}
static_assert(places_fit_features());

constexpr i32 BACKGROUND_NUMBER = 1; // all types share one background picture
constexpr i32 SNAP_RADIUS = 5;       // pixels
constexpr place CONSOLE_PLACES[CONSOLE_BUTTONS] = {{730, 5}, {730, 35}};

// The characters of a card text, in the order of the card symbols.
constexpr char CARD_TEXT_CHARACTERS[] = "0123456789x";
constexpr i32 CARD_TEXT_COUNT = static_cast<i32>(std::size(CARD_TEXT_CHARACTERS)) - 1;

void set_geometry(board *b, const puzzle_layout &l) {
    b->cols = l.cols;
    b->rows = l.rows;
    b->top = l.top;
    b->study_top = l.study_top;
    b->cell_w = l.cell_w;
    b->cell_h = l.cell_h;
    b->grid_x = l.grid_x;
    b->grid_y = l.grid_y;
    b->label_count = l.labels;
    b->cell_picture_count = l.cell_pictures;
    b->symbol_count = l.symbols;
    b->features = l.features;
    b->snap_radius = SNAP_RADIUS;
}

void set_places(board *b, const puzzle_places &p) {
    for (i32 i = 0; i < CONSOLE_BUTTONS; ++i) {
        b->button_x[i] = CONSOLE_PLACES[i].x;
        b->button_y[i] = CONSOLE_PLACES[i].y;
    }
    b->box_x = p.box.x;
    b->box_y = p.box.y;
    b->deck_x = p.deck.x;
    b->deck_y = p.deck.y;
    b->keypad_x = p.keypad.x;
    b->keypad_y = p.keypad.y;
    b->entry->x = p.entry.x;
    b->entry->y = p.entry.y;
    b->entry->dest_x = p.entry_dest.x;
    b->entry->dest_y = p.entry_dest.y;
    b->card_label_dx = p.card_label.x;
    b->card_label_dy = p.card_label.y;
}

void set_card_text(board *b) {
    std::fill(std::begin(b->char_map), std::end(b->char_map), -1);
    b->card_symbol_count = 0;
    if (!board_has(b, BOARD_CARD_TEXT))
        return;
    b->card_symbol_count = CARD_TEXT_COUNT;
    for (i32 i = 0; i < CARD_TEXT_COUNT; ++i)
        b->char_map[static_cast<u8>(CARD_TEXT_CHARACTERS[i])] = i;
}

} // namespace

i32 puzzle_type_init(board *b, i32 type) {
    const puzzle_layout &layout = PUZZLE_LAYOUTS[type];
    if (string_set(&b->dir, layout.dir) < 0) {
        log_out_of_memory();
        return -1;
    }
    board_set_background(BACKGROUND_NUMBER);
    set_geometry(b, layout);
    set_places(b, PLACES[type]);
    set_card_text(b);
    return 1;
}
