// board.h: the one record of a puzzle run, and its life: create, load a type, start, destroy.
//
// One board exists for the whole program (app_state owns it). The board owns its pictures, cells, pieces, buttons
// and effects. Main thread only. Functions that can fail return -1 or null after the failure has been logged; a
// board whose pictures could not be loaded has no pictures, no pieces and BOARD_NO_TYPE: updating and drawing it does
// nothing.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/app_state.h"
#include "core/base/containers.h"
#include "core/base/types.h"
#include "core/ui/button.h"
#include "puzzles/puzzle_layout.h"
#include "resources/image.h"
#include "sprites/sprite.h"

struct effect;
struct number_entry;
struct random_list;

// Run state.
inline constexpr u32 BOARD_COMPLETE = 0x1;      // every piece is placed; the run is over
inline constexpr u32 BOARD_DECK_MOVING = 0x2;   // the deck is being turned
inline constexpr u32 BOARD_DECK_LOCK = 0x4;     // the cards' faces are not drawn for deck_lock_frames frames
inline constexpr u32 BOARD_DECK_CLOSED = 0x8;   // the deck has not been opened yet: cards face down
inline constexpr u32 BOARD_DECK_OPENING = 0x10; // the first deal is being animated
inline constexpr u32 BOARD_STUDY = 0x20;        // shown by the study screen
inline constexpr u32 BOARD_CLOCK = 0x40;        // the clock runs

inline constexpr i32 BOARD_NO_TYPE = 255; // value of type while no type is loaded

// The pictures of the type, all owned; null where it has none. Blocks hold as many as the layout says.
struct board_pictures {
    image **labels;                   // on the pieces
    image **headings;                 // of columns and rows
    image **cells;                    // one a row or one a cell
    image **card_symbols;             // the characters of a card text
    image *board_tab_out[EDGE_COUNT]; // all four: by sprite_edge
    image *board_tab_in[EDGE_COUNT];
    image *piece_tab_out[EDGE_COUNT]; // of a loose piece
    image *piece_tab_in[EDGE_COUNT];  // of a placed piece
    image *board, *piece, *box, *card, *keypad, *next, *empty_deck, *begin, *study_help;
    image *keys[KEY_PICTURES];
    image *console[CONSOLE_PICTURES]; // by look: help, return
    image *key_symbols[KEY_SYMBOLS];  // by key value
    image *entered_digits[ENTRY_DIGITS];
};

inline constexpr i32 DECK_CARDS = 3; // visible cards, the top one first

// The cards of a type with a deck.
struct board_deck {
    random_list *pool;         // owned; the pieces that it deals from
    sprite *slot[DECK_CARDS];  // borrowed from the pieces: those on the cards
    sprite *leaving;           // borrowed: the piece on the card that slides under the stack
    point slot_at[DECK_CARDS]; // the cards' corners
    point leaving_at;
    i32 timer, phase; // of the turning: frames left of the phase, and the phase
    i32 lock_frames;  // frames left for which BOARD_DECK_LOCK stays
};

struct board_clock {
    u32 start;   // ms: the tick count from which it counts
    i32 seconds; // of the run
    char *text;  // owned; "0:00" at the start
};

struct board {
    i32 type;                    // 0..10, or BOARD_NO_TYPE
    u32 state;                   // BOARD_COMPLETE .. BOARD_CLOCK
    const puzzle_layout *layout; // the type's rows in the tables, never null; cells lie relative to the board's corner
    const puzzle_places *places;
    i32 x, y;          // of the board picture on the screen
    i32 width, height; // of the board picture
    board_pictures pictures;
    ptr_array<sprite> *cells;   // owned
    ptr_array<sprite> *pieces;  // owned; the last one is on top
    i32 placed;                 // pieces placed in this run
    i32 remaining;              // pieces not yet answered
    ptr_array<button> *buttons; // owned
    board_deck deck;            // of a type with BOARD_HAS_DECK
    number_entry *entry;        // owned; the answer display of a type with BOARD_HAS_KEYPAD
    board_clock clock;
    ptr_array<effect> *effects;     // owned
    ptr_array<effect> *new_effects; // queued during this frame; they move into effects at its end
};

[[nodiscard]] board *board_create(); // null when out of memory (logged)
void board_destroy(board *b);        // accepts null

// Loads a puzzle type's layout and pictures; 1, or -1, after which no type is loaded. An unknown type leaves the
// board as it is. Whatever run there was is dropped.
[[nodiscard]] i32 board_load(board *b, i32 type);

// Loads the puzzle that is selected in the state, unless it is loaded already, and centres the board. 1, or -1:
// the caller then goes back to the title screen; the next call tries again.
[[nodiscard]] i32 board_prepare(app_state *state);

// Starts a new run of the loaded type, with what its return button does (null for nothing). 1, or -1 when no type is
// loaded or memory is short (logged): no type is loaded any more then, and the caller goes back to the title screen.
[[nodiscard]] i32 board_start(board *b, button_callback on_return);

// The smallest place, 0..3, whose master time the run keeps; -1 for none.
i32 board_master_rank(const board *b);

void board_show_help(const board *b); // the type's help bubbles; nothing while bubbles show

i32 board_add_button(board *b, button *added); // takes ownership; 1, or -1 when out of memory (the button is freed)
void board_start_clock(board *b);              // it runs from now on
void board_add_effect(board *b, effect *added, i32 x, i32 y); // takes ownership; null is ignored

// Whether a puzzle type is loaded, with all its pictures.
inline bool board_loaded(const board *b) {
    return b->type != BOARD_NO_TYPE;
}
// Whether any of these flags of the run is set.
inline bool board_is(const board *b, u32 state_flags) {
    return (b->state & state_flags) != 0;
}
// Whether the loaded type has the feature.
inline bool board_has(const board *b, u32 feature) {
    return (b->layout->features & feature) != 0;
}
