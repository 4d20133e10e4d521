// board_update.cpp: one frame of a run: pieces, deck, keypad, keys, clock, completion, effects.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/board_update.h"

#include "core/base/settings.h"
#include "core/base/strings.h"
#include "input/input.h"
#include "puzzles/deck.h"
#include "puzzles/keypad.h"
#include "sprites/effect.h"
#include "sprites/sprite.h"

#include <SDL.h>

namespace {

constexpr u32 CLOCK_LIMIT = 5'999'000; // ms: 99 minutes and 59 seconds, where the clock stands still
constexpr u32 MS_PER_SECOND = 1000;
constexpr i32 SECONDS_PER_MINUTE = 60;

bool any_piece_was_taken(const board *b) {
    for (const sprite *piece : each(b->pieces))
        if ((piece->flags & SPRITE_HELD) != 0)
            return true;
    return false;
}

void update_lock(board *b) {
    if (board_is(b, BOARD_DECK_LOCK) && --b->deck.lock_frames < 1)
        b->state &= ~BOARD_DECK_LOCK;
}

void press_by_keys(const board *b) {
    if (board_is(b, BOARD_STUDY) || settings_help_showing())
        return;
    for (button *bound : each(b->buttons)) {
        if (button_key_pressed(bound)) {
            button_press(bound);
            button_release_later(bound);
        }
    }
}

void update_clock(board *b) {
    const u32 now = SDL_GetTicks();
    if (!board_is(b, BOARD_CLOCK)) {
        if (board_is(b, BOARD_DECK_MOVING) || any_piece_was_taken(b))
            board_start_clock(b);
        b->clock.start = now;
    }
    const u32 elapsed = now - b->clock.start;
    if (!board_is(b, BOARD_CLOCK) || elapsed > CLOCK_LIMIT)
        return;
    const auto seconds = static_cast<i32>(elapsed / MS_PER_SECOND);
    if (seconds == b->clock.seconds)
        return;
    b->clock.seconds = seconds;
    string_printf(&b->clock.text, "%i:%.2i", seconds / SECONDS_PER_MINUTE, seconds % SECONDS_PER_MINUTE);
}

void update_completion(board *b) {
    if (board_is(b, BOARD_COMPLETE) || b->pieces->count > b->placed)
        return;
    b->state |= BOARD_COMPLETE;
    for (sprite *piece : each(b->pieces))
        sprite_clear_effects(piece);
}

// Takes the finished effects out and the queued ones in.
void exchange_effects(board *b) {
    for (i32 i = 0; i < b->effects->count; ++i) {
        effect *&running = b->effects->items[i];
        if ((running->flags & EFFECT_FINISHED) != 0) {
            effect_free(running);
            running = nullptr;
        }
    }
    ptr_array_compact(b->effects);
    for (effect *queued : each(b->new_effects))
        if (ptr_array_append(b->effects, queued) < 0)
            effect_free(queued);
    ptr_array_clear(b->new_effects);
}

} // namespace

void board_count_remaining(board *b) {
    b->remaining = 0;
    for (const sprite *piece : each(b->pieces))
        b->remaining += (piece->flags & SPRITE_ANSWERED) == 0 ? 1 : 0;
}

void board_update(board *b) {
    if (!board_loaded(b))
        return;
    sprite_list_update(b->pieces);
    board_count_remaining(b);
    for (sprite *cell : each(b->cells))
        sprite_update(cell);
    for (button *ticked : each(b->buttons))
        button_tick(ticked);
    for (effect *running : each(b->effects))
        effect_update(running);
    const bool playing = !board_is(b, BOARD_STUDY);
    if (playing && board_has(b, BOARD_HAS_DECK))
        deck_update(b);
    if (playing && board_has(b, BOARD_HAS_KEYPAD))
        keypad_update(b);
    update_lock(b);
    press_by_keys(b);
    update_clock(b);
    update_completion(b);
    exchange_effects(b);
}
