// puzzle_type.cpp: setting a board up from the tables.
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

constexpr i32 BACKGROUND_NUMBER = 1; // all types share one background picture
constexpr i32 SNAP_RADIUS = 5;       // pixels
constexpr point CONSOLE_PLACES[CONSOLE_BUTTONS] = {{730, 5}, {730, 35}};

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
    b->card_symbol_count = CARD_SYMBOLS;
    for (i32 i = 0; i < CARD_SYMBOLS; ++i)
        b->char_map[static_cast<u8>(CARD_TEXT_CHARACTERS[static_cast<std::size_t>(i)])] = i;
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
    set_places(b, PUZZLE_PLACES[type]);
    set_card_text(b);
    return 1;
}
