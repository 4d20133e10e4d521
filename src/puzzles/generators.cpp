// generators.cpp: makes the pieces: laid out in a box or around the board, or waiting in the deck.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/generators.h"

#include "core/base/strings.h"
#include "puzzles/cells.h"
#include "puzzles/deck.h"
#include "puzzles/placement.h"
#include "puzzles/puzzle_layout.h"
#include "puzzles/random_list.h"
#include "sprites/sprite.h"

#include <span>

namespace {

// A block of places where pieces lie free, in pixels: lines of places, from one line and one place to the next.
struct place_block {
    i32 x, y;
    i32 lines, per_line;
    point next_line, next_place;
};

struct generator_row;
using generator = i32 (*)(board *b, const generator_row &row);

struct generator_row {
    generator generate;
    u32 flags;                           // of the pieces
    i32 first_factor;                    // keypad: the first row's factor
    std::span<const place_block> places; // box, money: where the pieces lie
};

// clang-format off
constexpr u32 IN_DECK = SPRITE_INERT | SPRITE_HIDDEN | SPRITE_HIDE_ON_ARRIVAL | SPRITE_AVAILABLE;
constexpr u32 TYPED   = IN_DECK | SPRITE_REDEAL;
constexpr u32 DEALT   = IN_DECK | SPRITE_DEAL_NEXT;
constexpr u32 TIME    = DEALT | SPRITE_LABEL_TOP;

// The middles of the pieces in the box.
constexpr place_block BOX_LOW[]  = {{126, 323, 5, 10, {0, 51}, {61, 0}}};
constexpr place_block BOX_HIGH[] = {{127, 324, 5, 10, {0, 51}, {61, 0}}};

// Left and right of the board by columns, below it by rows.
constexpr place_block AROUND_BOARD[] = {
    // x    y  lines each  next line next place
    { 18, 100,     2,   6, {68,  0}, { 0, 70}},
    {655, 100,     2,   6, {68,  0}, { 0, 70}},
    {180, 485,     2,   6, { 0, 60}, {77,  0}},
};
// clang-format on

// The i-th piece, with its cell's edge places; it is not on the board yet. Null when out of memory.
sprite *create_piece(const board *b, i32 i) {
    sprite *piece = sprite_create();
    if (piece == nullptr)
        return nullptr;
    piece->label_index = i;
    piece->label = b->pictures.labels[i];
    piece->target_col = i % b->layout->cols;
    piece->target_row = i / b->layout->cols;
    if (const sprite *cell = board_find_cell(b, piece->target_col, piece->target_row)) {
        piece->tab_top = cell->tab_top;
        piece->sock_right = cell->sock_right;
        piece->sock_bottom = cell->sock_bottom;
        piece->tab_left = cell->tab_left;
    }
    return piece;
}

// --- Pieces that lie free ------------------------------------------------------------------------

i32 fill_list(const board *b, random_list *list) {
    for (i32 i = 0; i < b->layout->labels; ++i) {
        sprite *piece = create_piece(b, i);
        if (piece == nullptr)
            return -1;
        if (random_list_add(list, piece) < 0) {
            sprite_free(piece);
            return -1;
        }
    }
    return 1;
}

i32 lay_out_piece(board *b, sprite *piece, const place_block &block, i32 line, i32 place, point corner) {
    if (board_has(b, BOARD_HAS_BOX)) {
        piece->col = place;
        piece->row = line;
    }
    piece->x = piece->home_x = block.x + line * block.next_line.x + place * block.next_place.x + corner.x;
    piece->y = piece->home_y = block.y + line * block.next_line.y + place * block.next_place.y + corner.y;
    return board_add_piece(b, piece);
}

// Puts the list's pieces at the row's places; corner is the way from a place to the corner of the piece there.
i32 lay_out_list(board *b, random_list *list, const generator_row &row, point corner) {
    for (const place_block &block : row.places)
        for (i32 line = 0; line < block.lines; ++line)
            for (i32 place = 0; place < block.per_line; ++place)
                if (lay_out_piece(b, random_list_pick(list), block, line, place, corner) < 0)
                    return -1;
    return 1;
}

// Those that have not been picked belong to nobody yet.
void free_unpicked(const random_list *list) {
    for (i32 i = list->cursor; i < list->items->count; ++i)
        sprite_free(list->items->items[list->order[i]]);
}

i32 lay_out(board *b, const generator_row &row, point corner) {
    random_list *list = random_list_create();
    if (list == nullptr)
        return -1;
    i32 result = fill_list(b, list);
    if (result > 0)
        result = lay_out_list(b, list, row, corner);
    free_unpicked(list);
    random_list_free(list);
    return result;
}

i32 generate_box(board *b, const generator_row &row) {
    return lay_out(b, row, {-half(b->pictures.piece->width), -half(b->pictures.piece->height)});
}

i32 generate_money(board *b, const generator_row &row) {
    return lay_out(b, row, {0, 0});
}

// --- Pieces that wait in the deck ----------------------------------------------------------------

i32 add_to_deck(board *b, sprite *piece, u32 flags) {
    piece->home_x = b->places->deck.x + DECK_PIECE_OFFSET;
    piece->home_y = b->places->deck.y + DECK_PIECE_OFFSET;
    piece->flags = flags;
    if (board_add_piece(b, piece) < 0)
        return -1;
    return random_list_add(b->deck.pool, piece);
}

i32 set_problem(sprite *piece, i32 first_factor) {
    const i32 a = piece->target_row + first_factor, c = piece->target_col + 1;
    piece->answer = a * c;
    return string_printf(&piece->label_text, "%ix%i", a, c);
}

i32 generate_deck(board *b, const generator_row &row) {
    for (i32 i = 0; i < b->layout->labels; ++i) {
        sprite *piece = create_piece(b, i);
        if (piece == nullptr)
            return -1;
        if (row.first_factor > 0 && set_problem(piece, row.first_factor) < 0) {
            sprite_free(piece);
            return -1;
        }
        if (add_to_deck(b, piece, row.flags) < 0)
            return -1;
    }
    return 1;
}

// clang-format off
constexpr generator_row ROWS[PUZZLE_COUNT] = {
    // generator     flags  factor places
    {generate_box,    0,      0,   BOX_LOW},
    {generate_deck,   TYPED,  1,   {}},
    {generate_box,    0,      0,   BOX_HIGH},
    {generate_deck,   TYPED,  6,   {}},
    {generate_deck,   DEALT,  0,   {}},
    {generate_deck,   DEALT,  0,   {}},
    {generate_deck,   DEALT,  0,   {}},
    {generate_deck,   DEALT,  0,   {}},
    {generate_deck,   DEALT,  0,   {}},
    {generate_money,  0,      0,   AROUND_BOARD},
    {generate_deck,   TIME,   0,   {}},
};
// clang-format on

constexpr bool places_fit_labels() {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        i32 places = 0;
        for (const place_block &block : ROWS[type].places)
            places += block.lines * block.per_line;
        if (places != 0 && places != PUZZLE_LAYOUTS[type].labels)
            return false;
    }
    return true;
}
static_assert(places_fit_labels());

} // namespace

i32 pieces_generate(board *b) {
    const generator_row &row = ROWS[b->type];
    return row.generate(b, row);
}
