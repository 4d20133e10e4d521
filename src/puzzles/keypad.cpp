// keypad.cpp: the twelve keys, and what a right and a wrong answer do.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/keypad.h"

#include "puzzles/deck.h"
#include "sound/sound.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"

namespace {

// Key values are those of the key symbols: the digits, then these two.
constexpr i32 KEY_BACKSPACE = 10, KEY_ENTER = 11;
constexpr i32 KEY_ORDER[KEY_SYMBOLS] = {1, 2, 3, 4, 5, 6, 7, 8, 9, KEY_BACKSPACE, 0, KEY_ENTER};
constexpr i32 KEYS_A_ROW = 3;
constexpr i32 KEYPAD_MARGIN = 3;            // pixels
constexpr i32 KEY_GAP_X = 1, KEY_GAP_Y = 3; // pixels
constexpr i32 REVEAL_LOCK_FRAMES = 15;      // while the answered piece grows, the next problem is not shown

void type_digit(button *key, std::intptr_t entry_address, std::intptr_t digit) {
    number_entry_add_digit(reinterpret_cast<number_entry *>(entry_address), {key->x, key->y, key->width, key->height},
                           static_cast<i32>(digit));
}

void type_backspace(button *, std::intptr_t entry_address, std::intptr_t) {
    number_entry_backspace(reinterpret_cast<number_entry *>(entry_address));
}

void bind_key(const board *b, button *key, i32 value) {
    const auto entry_address = reinterpret_cast<std::intptr_t>(b->entry);
    if (value == KEY_ENTER)
        button_set_callback(key, board_keypad_enter, reinterpret_cast<std::intptr_t>(b), 0);
    else if (value == KEY_BACKSPACE)
        button_set_callback(key, type_backspace, entry_address, 0);
    else
        button_set_callback(key, type_digit, entry_address, value);
}

void judge(board *b) {
    number_entry *entry = b->entry;
    if ((entry->flags & ENTRY_ARRIVED) == 0 || board_revealing_piece(b) != nullptr)
        return;
    if ((entry->flags & ENTRY_CORRECT) != 0 && b->deck.slot[0] != nullptr) {
        keypad_reveal_answered(b);
        return;
    }
    number_entry_scatter(entry);
    entry->flags &= ~(ENTRY_ENTERED | ENTRY_ARRIVED);
    entry->flags |= ENTRY_CLOSED;
    sound_play(SOUND_INCORRECT_NUMBER);
}

} // namespace

i32 keypad_build(board *b) {
    const image *const *looks = b->pictures.keys;
    const i32 step_x = looks[0]->width + KEY_GAP_X, step_y = looks[0]->height + KEY_GAP_Y;
    for (i32 i = 0; i < KEY_SYMBOLS; ++i) {
        button *key = button_create();
        if (key == nullptr)
            return -1;
        button_set_pictures(key, looks[BUTTON_LOOK_NORMAL], looks[BUTTON_LOOK_HOVER], looks[BUTTON_LOOK_PRESSED],
                            b->pictures.key_symbols[KEY_ORDER[i]]);
        key->x = b->places->keypad.x + KEYPAD_MARGIN + i % KEYS_A_ROW * step_x;
        key->y = b->places->keypad.y + KEYPAD_MARGIN + i / KEYS_A_ROW * step_y;
        bind_key(b, key, KEY_ORDER[i]);
        if (board_add_button(b, key) < 0)
            return -1;
    }
    return 1;
}

void board_keypad_enter(button *, std::intptr_t board_address, std::intptr_t) {
    const auto *b = reinterpret_cast<const board *>(board_address);
    if (b->remaining > 0 && b->deck.slot[0] != nullptr && !board_is(b, BOARD_DECK_MOVING) &&
        number_entry_length(b->entry) > 0)
        number_entry_submit(b->entry, b->deck.slot[0]->answer);
}

void keypad_update(board *b) {
    number_entry_update(b->entry);
    judge(b);
}

void keypad_reveal_answered(board *b) {
    sprite *piece = b->deck.slot[0];
    number_entry_clear(b->entry);
    piece->flags &= ~(SPRITE_INERT | SPRITE_HIDDEN | SPRITE_AVAILABLE);
    piece->x = b->places->deck.x + DECK_PIECE_OFFSET;
    piece->y = b->places->deck.y + DECK_PIECE_OFFSET;
    sprite_grow(piece);
    piece->flags |= SPRITE_ANSWERED;
    --b->remaining;
    sprite_raise(piece);
    board_deal(b);
    board_lock_deck(b, REVEAL_LOCK_FRAMES);
}

sprite *board_revealing_piece(const board *b) {
    for (sprite *piece : each(b->pieces))
        if ((piece->flags & SPRITE_GROW) != 0)
            return piece;
    return nullptr;
}
