// board_pictures.cpp: the table of where a puzzle type's pictures go, which loading and freeing walk.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/board_pictures.h"

#include "core/base/log.h"
#include "graphics/render.h"
#include "puzzles/puzzle_pictures.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace {

constexpr std::size_t NAME_SIZE = 128; // bytes; folder and name together are far shorter

// Where the pictures go: slots in the board, or an owned block of them.
struct picture_slots {
    image **first; // null for a block that is not allocated
    i32 count;
    image ***block; // null for slots in the record itself
};

picture_slots one(image **slot) {
    return {slot, 1, nullptr};
}
template <std::size_t N> picture_slots fixed(image *(&slots)[N]) {
    return {slots, static_cast<i32>(N), nullptr};
}
picture_slots owned(image ***block, i32 count) {
    return {*block, count, block};
}

struct picture_place {
    puzzle_picture id;
    picture_slots (*slots)(board *b);
};

// clang-format off
constexpr picture_place PLACES[] = {
    {PICTURE_BOARD,          [](board *b) { return one(&b->pictures.board); }},
    {PICTURE_PIECE,          [](board *b) { return one(&b->pictures.piece); }},
    {PICTURE_BEGIN,          [](board *b) { return one(&b->pictures.begin); }},
    {PICTURE_STUDY_HELP,     [](board *b) { return one(&b->pictures.study_help); }},
    {PICTURE_KEYS,           [](board *b) { return fixed(b->pictures.keys); }},
    {PICTURE_CARD_SYMBOLS,   [](board *b) { return owned(&b->pictures.card_symbols, CARD_SYMBOLS); }},
    {PICTURE_CARD,           [](board *b) { return one(&b->pictures.card); }},
    {PICTURE_NEXT,           [](board *b) { return one(&b->pictures.next); }},
    {PICTURE_EMPTY_DECK,     [](board *b) { return one(&b->pictures.empty_deck); }},
    {PICTURE_BOX,            [](board *b) { return one(&b->pictures.box); }},
    {PICTURE_KEYPAD,         [](board *b) { return one(&b->pictures.keypad); }},
    {PICTURE_KEY_SYMBOLS,    [](board *b) { return fixed(b->pictures.key_symbols); }},
    {PICTURE_ENTERED_DIGITS, [](board *b) { return fixed(b->pictures.entered_digits); }},
    {PICTURE_LOOSE_EDGES,    [](board *b) { return fixed(b->pictures.piece_tab_out); }},
    {PICTURE_PLACED_EDGES,   [](board *b) { return fixed(b->pictures.piece_tab_in); }},
    {PICTURE_BOARD_DENTS,    [](board *b) { return fixed(b->pictures.board_tab_in); }},
    {PICTURE_BOARD_BUMPS,    [](board *b) { return fixed(b->pictures.board_tab_out); }},
    {PICTURE_HEADINGS,       [](board *b) { return owned(&b->pictures.headings, b->layout->symbols); }},
    {PICTURE_LABELS,         [](board *b) { return owned(&b->pictures.labels, b->layout->labels); }},
    {PICTURE_CELLS,          [](board *b) { return owned(&b->pictures.cells, b->layout->cell_pictures); }},
    {PICTURE_CONSOLE,        [](board *b) { return fixed(b->pictures.console); }},
};
// clang-format on
static_assert(std::size(PLACES) == PUZZLE_PICTURE_COUNT);

// The place's slots, with the block allocated where there is one; first is null when out of memory (logged).
picture_slots prepare(const picture_place &place, board *b) {
    picture_slots slots = place.slots(b);
    if (slots.block != nullptr && slots.count > 0) {
        slots.first = static_cast<image **>(std::calloc(static_cast<std::size_t>(slots.count), sizeof(image *)));
        if (slots.first == nullptr)
            log_out_of_memory();
        *slots.block = slots.first;
    }
    return slots;
}

i32 load(const picture_place &place, board *b) {
    const puzzle_picture_row &row = PUZZLE_PICTURES[place.id];
    if ((b->layout->features & row.needs) != row.needs)
        return 1;
    const picture_slots slots = prepare(place, b);
    if (slots.count == 0)
        return 1;
    if (slots.first == nullptr)
        return -1;
    char name[NAME_SIZE];
    std::snprintf(name, sizeof name, "%s%s", b->layout->dir, row.name);
    if (puzzle_picture_is_series(place.id))
        return image_load_sequence(slots.first, slots.count, name);
    *slots.first = image_load(name);
    return *slots.first != nullptr ? 1 : -1;
}

} // namespace

i32 board_load_pictures(board *b) {
    for (const picture_place &place : PLACES)
        if (load(place, b) < 0)
            return -1;
    return 1;
}

// A screen's last list may still be waiting or playing when the next screen loads another type.
void board_free_images(board *b) {
    render_wait_until_played();
    for (const picture_place &place : PLACES) {
        const picture_slots slots = place.slots(b);
        if (slots.first == nullptr)
            continue;
        image_free_array(slots.first, slots.count);
        if (slots.block != nullptr) {
            std::free(*slots.block);
            *slots.block = nullptr;
        }
    }
}
