// board_pictures.cpp: the table of a puzzle type's pictures, which loading and freeing walk.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/board_pictures.h"

#include "core/base/log.h"
#include "graphics/render.h"

#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

constexpr std::size_t NAME_SIZE = 128; // bytes; folder and name together are far shorter

picture_slots one(image **slot) {
    return {slot, 1, nullptr};
}
template <std::size_t N> picture_slots fixed(image *(&slots)[N]) {
    return {slots, static_cast<i32>(N), nullptr};
}
picture_slots owned(image ***block, i32 count) {
    return {*block, count, block};
}

constexpr u32 DECK = BOARD_HAS_DECK, KEYPAD = BOARD_HAS_KEYPAD, BOX = BOARD_HAS_BOX;

// In the order of loading. The next button's plain picture is part of each deck type's data, though only the three
// looks among the keys are drawn.
// clang-format off
constexpr picture_row ROWS[] = {
    // name                       any            all                     where
    {"board/base.xpm",            0,             0,                      [](board *b) { return one(&b->board_picture); }},
    {"piece/base.xpm",            0,             0,                      [](board *b) { return one(&b->piece_picture); }},
    {"begin.xpm",                 0,             0,                      [](board *b) { return one(&b->begin_picture); }},
    {"study_help.xpm",            0,             0,                      [](board *b) { return one(&b->study_help_picture); }},
    {"input/keys/",               DECK | KEYPAD, 0,                      [](board *b) { return fixed(b->key_pictures); }},
    {"deck/symbols/",             0,             DECK | BOARD_CARD_TEXT, [](board *b) { return owned(&b->card_symbols, b->card_symbol_count); }},
    {"deck/base.xpm",             0,             DECK,                   [](board *b) { return one(&b->card_picture); }},
    {"deck/next.xpm",             0,             DECK,                   [](board *b) { return one(&b->next_picture); }},
    {"deck/over.xpm",             0,             DECK,                   [](board *b) { return one(&b->empty_deck_picture); }},
    {"box/base.xpm",              0,             BOX,                    [](board *b) { return one(&b->box_picture); }},
    {"input/base.xpm",            0,             KEYPAD,                 [](board *b) { return one(&b->keypad_picture); }},
    {"input/symbols/keys/",       0,             KEYPAD,                 [](board *b) { return fixed(b->key_symbols); }},
    {"input/symbols/entered/",    0,             KEYPAD,                 [](board *b) { return fixed(b->entered_digits); }},
    {"piece/fragments/out/",      0,             0,                      [](board *b) { return fixed(b->piece_tab_out); }},
    {"piece/fragments/in/",       0,             0,                      [](board *b) { return fixed(b->piece_tab_in); }},
    {"board/fragments/negative/", 0,             0,                      [](board *b) { return fixed(b->board_tab_in); }},
    {"board/fragments/positive/", 0,             0,                      [](board *b) { return fixed(b->board_tab_out); }},
    {"board/symbols/",            0,             0,                      [](board *b) { return owned(&b->symbols, b->symbol_count); }},
    {"piece/symbols/",            0,             0,                      [](board *b) { return owned(&b->labels, b->label_count); }},
    {"board/pieces/",             0,             0,                      [](board *b) { return owned(&b->cell_pictures, b->cell_picture_count); }},
    {"console/",                  0,             0,                      [](board *b) { return fixed(b->console_pictures); }},
};
// clang-format on

i32 load_row(const picture_row &row, board *b) {
    const picture_slots slots = picture_row_prepare(row, b);
    if (slots.count == 0)
        return 1;
    if (slots.first == nullptr)
        return -1;
    char name[NAME_SIZE];
    std::snprintf(name, sizeof name, "%s/%s", b->dir, row.name);
    if (row.name[std::strlen(row.name) - 1] == '/')
        return image_load_sequence(slots.first, slots.count, name);
    *slots.first = image_load(name);
    return *slots.first != nullptr ? 1 : -1;
}

} // namespace

bool picture_row_applies(const picture_row &row, const board *b) {
    return (row.needs_any == 0 || (b->features & row.needs_any) != 0) && (b->features & row.needs_all) == row.needs_all;
}

picture_slots picture_row_prepare(const picture_row &row, board *b) {
    picture_slots slots = row.slots(b);
    if (slots.block != nullptr && slots.count > 0) {
        slots.first = static_cast<image **>(std::calloc(static_cast<std::size_t>(slots.count), sizeof(image *)));
        if (slots.first == nullptr)
            log_out_of_memory();
        *slots.block = slots.first;
    }
    return slots;
}

i32 board_load_pictures(board *b) {
    for (const picture_row &row : ROWS)
        if (picture_row_applies(row, b) && load_row(row, b) < 0)
            return -1;
    return 1;
}

// A screen's last list may still be waiting or playing when the next screen loads another type.
void board_free_images(board *b) {
    render_wait_until_played();
    for (const picture_row &row : ROWS) {
        const picture_slots slots = row.slots(b);
        if (slots.first == nullptr)
            continue;
        image_free_array(slots.first, slots.count);
        if (slots.block != nullptr) {
            std::free(*slots.block);
            *slots.block = nullptr;
        }
    }
}
