// deck.cpp: dealing cards, turning the deck, taking the top card.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/deck.h"

#include "puzzles/random_list.h"
#include "sound/sound.h"
#include "sprites/effect.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"

#include <SDL_keysym.h>

#include <algorithm>

namespace {

constexpr i32 NEXT_BUTTON_LOOKS = 3;    // first of the next button's looks among key_pictures
constexpr i32 NEXT_BUTTON_OFFSET = -60; // pixels from the deck
constexpr i32 NEXT_BUTTON_DROP = 4;     // pixels below the card's middle
constexpr i32 CARD_STEP = 2;            // pixels from one card to the next below it, leftward and downward
constexpr i32 EXTRA_DRAWS = 4;          // beyond two cycles of the pool
constexpr i32 VANISH_FRAMES = 10;       // of a piece that the deck takes back
constexpr i32 FOLLOW_FRAMES = 4;        // until the play screen has taken the new piece
constexpr i32 SLIDE_FRAMES = 50;        // the turned card slides out, and in again
constexpr i32 LIFT_FRAMES = 2;          // the stack moves up by one card

enum deck_phase : i32 { PHASE_START, PHASE_SLIDE_OUT, PHASE_LIFT, PHASE_SLIDE_IN, PHASE_END, PHASE_CUT_SHORT = 10 };

bool has_flag(const sprite *piece, u32 flag) {
    return (piece->flags & flag) != 0;
}

// --- Dealing -------------------------------------------------------------------------------------

bool may_be_dealt(const board *b, const sprite *piece) {
    return has_flag(piece, SPRITE_AVAILABLE) && piece != b->deck.slot[0] && !has_flag(piece, SPRITE_ANSWERED);
}

// So many draws reach every piece, wherever the pool's cycle stands.
sprite *draw_from_pool(const board *b) {
    const i32 draws = 2 * b->deck.pool->items->count + EXTRA_DRAWS;
    for (i32 i = 0; i < draws; ++i) {
        sprite *piece = random_list_pick(b->deck.pool);
        if (may_be_dealt(b, piece))
            return piece;
    }
    return nullptr;
}

// A piece that leaves the top unanswered may be dealt again.
void make_available(sprite *piece) {
    if (piece != nullptr && !has_flag(piece, SPRITE_ANSWERED))
        piece->flags |= SPRITE_AVAILABLE;
}

void put_under_stack(board *b, sprite *piece) {
    make_available(b->deck.slot[0]);
    if (board_has(b, BOARD_CARD_TEXT))
        make_available(b->deck.slot[1]); // a problem that is turned away comes back later
    b->deck.leaving = b->deck.slot[0];
    b->deck.slot[0] = b->deck.slot[1];
    b->deck.slot[1] = b->deck.slot[2];
    b->deck.slot[2] = piece;
    piece->flags &= ~SPRITE_AVAILABLE;
}

i32 empty_answered_slots(board *b) {
    i32 emptied = 0;
    for (sprite *&piece : b->deck.slot) {
        if (piece != nullptr && has_flag(piece, SPRITE_ANSWERED)) {
            piece = nullptr;
            ++emptied;
        }
    }
    return emptied;
}

void close_gaps(board *b) {
    for (i32 i = 0; i + 1 < DECK_CARDS; ++i)
        if (b->deck.slot[i] == nullptr)
            std::swap(b->deck.slot[i], b->deck.slot[i + 1]);
}

void rotate_cards(board *b) {
    for (i32 turn = 0; turn < DECK_CARDS; ++turn) {
        b->deck.slot[0] = b->deck.slot[1];
        b->deck.slot[1] = b->deck.slot[2];
        b->deck.slot[2] = b->deck.leaving;
        if (b->deck.slot[0] != nullptr)
            return;
    }
}

// Only the cards are left: answered ones go, the others take turns. None stays available below the top: dealt a
// second time it would ask for a piece that is placed already, and the run would end with another piece missing.
void deal_used_up(board *b) {
    b->deck.leaving = b->deck.slot[0];
    const i32 emptied = empty_answered_slots(b);
    close_gaps(b);
    if (b->remaining >= DECK_CARDS) {
        rotate_cards(b);
    } else if (b->remaining == 2 && emptied == 0) {
        b->deck.slot[0] = b->deck.slot[1];
        b->deck.slot[1] = b->deck.leaving;
    } else if (b->remaining == 1) {
        b->deck.leaving = nullptr;
    }
    // A top card may be available since it lay second; as a lower one it would be dealt a second time.
    for (i32 i = 1; i < DECK_CARDS; ++i)
        if (b->deck.slot[i] != nullptr)
            b->deck.slot[i]->flags &= ~SPRITE_AVAILABLE;
}

// --- Turning -------------------------------------------------------------------------------------

void reset_card_places(board *b) {
    for (i32 i = 0; i < DECK_CARDS; ++i) {
        b->deck.slot_at[i].x = b->places->deck.x - i * CARD_STEP;
        b->deck.slot_at[i].y = b->places->deck.y + i * CARD_STEP;
    }
}

void open_deck(board *b) {
    for (i32 i = 0; i < DECK_CARDS; ++i)
        board_deal(b);
    b->state &= ~BOARD_DECK_CLOSED;
    b->state |= BOARD_DECK_OPENING;
}

void start_turning(board *b) {
    b->deck.leaving_at.x = b->deck.slot_at[0].x;
    b->deck.leaving_at.y = b->deck.slot_at[0].y;
    b->deck.timer = 0;
    b->deck.phase = PHASE_START;
    b->state |= BOARD_DECK_MOVING;
}

// A piece that was taken out and not placed goes back to the deck.
void take_back(board *b, sprite *piece) {
    sprite_vanish_after(piece, VANISH_FRAMES);
    effect *flare = effect_create(EFFECT_FLARE);
    if (flare != nullptr) {
        effect_centre_on(flare, {piece->x, piece->y, piece->w, piece->h});
        board_add_effect(b, flare, flare->x, flare->y);
    }
    sound_play(SOUND_PIECE_RETURN);
}

void copy_card_place(board *b, i32 to, i32 from) {
    b->deck.slot_at[to].x = b->deck.slot_at[from].x;
    b->deck.slot_at[to].y = b->deck.slot_at[from].y;
}

void move_card(board *b, i32 card, i32 dx, i32 dy) {
    b->deck.slot_at[card].x += dx;
    b->deck.slot_at[card].y += dy;
}

// The top card's place drops to the next one's, so that the turned card leaves a stack of two behind.
void turn_start(board *b) {
    copy_card_place(b, 0, 1);
    if (b->remaining > 2)
        copy_card_place(b, 1, 2);
    b->deck.timer = SLIDE_FRAMES;
}

void turn_slide_out(board *b, bool expired) {
    ++b->deck.leaving_at.x;
    if (expired)
        b->deck.timer = LIFT_FRAMES;
}

void turn_lift(board *b, bool expired) {
    move_card(b, 0, 1, -1);
    for (i32 i = 1; i < DECK_CARDS; ++i) {
        if (b->remaining > 2)
            move_card(b, i, 1, -1);
        else
            copy_card_place(b, i, 0);
    }
    sprite *piece = b->deck.slot[0];
    if (!board_has(b, BOARD_CARD_TEXT) && piece != nullptr) {
        piece->anchor_x = ++piece->x;
        piece->anchor_y = --piece->y;
    }
    --b->deck.leaving_at.x;
    ++b->deck.leaving_at.y;
    if (expired)
        b->deck.timer = SLIDE_FRAMES;
}

void turn_slide_in(board *b, bool expired) {
    --b->deck.leaving_at.x;
    if (!expired)
        return;
    if (b->remaining > 2)
        move_card(b, 2, -CARD_STEP, CARD_STEP);
    else if (b->remaining == 2)
        move_card(b, 1, -CARD_STEP, CARD_STEP);
    b->deck.timer = 0;
}

void turn_deck(board *b) {
    const bool expired = --b->deck.timer <= 0;
    if (b->remaining <= 1)
        b->deck.phase = PHASE_CUT_SHORT;
    if (b->deck.phase == PHASE_START)
        turn_start(b);
    else if (b->deck.phase == PHASE_SLIDE_OUT)
        turn_slide_out(b, expired);
    else if (b->deck.phase == PHASE_LIFT)
        turn_lift(b, expired);
    else if (b->deck.phase == PHASE_SLIDE_IN)
        turn_slide_in(b, expired);
    else
        b->state &= ~(BOARD_DECK_MOVING | BOARD_DECK_CLOSED | BOARD_DECK_OPENING);
    if (expired)
        ++b->deck.phase;
}

// --- Taking --------------------------------------------------------------------------------------

bool on_top_card(const board *b, i32 px, i32 py) {
    const i32 x = b->deck.slot_at[0].x, y = b->deck.slot_at[0].y;
    return x <= px && px < x + b->pictures.card->width && y <= py && py < y + b->pictures.card->height;
}

bool every_piece_inert(const board *b) {
    for (const sprite *piece : each(b->pieces))
        if (!has_flag(piece, SPRITE_INERT))
            return false;
    return true;
}

bool top_card_can_be_taken(const board *b, i32 mx, i32 my) {
    return board_has(b, BOARD_HAS_DECK) && !board_has(b, BOARD_CARD_TEXT) &&
           !board_is(b, BOARD_DECK_MOVING | BOARD_DECK_CLOSED) && b->deck.slot[0] != nullptr &&
           on_top_card(b, mx, my) && every_piece_inert(b);
}

} // namespace

i32 deck_build(board *b) {
    const image *const *looks = b->pictures.keys + NEXT_BUTTON_LOOKS;
    const i32 drop = NEXT_BUTTON_DROP + half(b->pictures.card->height) - half(looks[BUTTON_LOOK_NORMAL]->height);
    button *next = button_add(b->buttons, looks, b->places->deck.x + NEXT_BUTTON_OFFSET, b->places->deck.y + drop,
                              board_deck_next, reinterpret_cast<std::intptr_t>(b));
    if (next == nullptr)
        return -1;
    button_set_keys(next, SDLK_SPACE);
    reset_card_places(b);
    b->state |= BOARD_DECK_CLOSED;
    return 1;
}

void board_deal(board *b) {
    if (b->deck.pool->items->count == 0)
        return;
    if (sprite *piece = draw_from_pool(b))
        put_under_stack(b, piece);
    else
        deal_used_up(b);
}

void board_deck_next(button *, std::intptr_t board_address, std::intptr_t) {
    auto *b = reinterpret_cast<board *>(board_address);
    if (!board_has(b, BOARD_HAS_DECK) || board_is(b, BOARD_DECK_MOVING))
        return;
    const bool keypad = board_has(b, BOARD_HAS_KEYPAD);
    if (keypad && (b->entry->flags & ENTRY_ENTERED) != 0)
        return;
    if (board_is(b, BOARD_DECK_CLOSED))
        open_deck(b);
    sprite *top = b->deck.slot[0];
    if (top != nullptr) {
        if (b->remaining == 0)
            return;
        if (!has_flag(top, SPRITE_FIXED) && has_flag(top, SPRITE_ANSWERED)) {
            ++b->remaining;
            top->flags &= ~SPRITE_ANSWERED;
        }
    }
    board_deal(b);
    start_turning(b);
    if (!board_has(b, BOARD_CARD_TEXT) && top != nullptr && !has_flag(top, SPRITE_INERT | SPRITE_FIXED))
        take_back(b, top);
    if (keypad)
        number_entry_clear(b->entry);
}

void board_take_top_card(board *b, i32 mx, i32 my) {
    if (!top_card_can_be_taken(b, mx, my))
        return;
    sprite *piece = b->deck.slot[0];
    piece->flags &= ~(SPRITE_INERT | SPRITE_HIDDEN | SPRITE_AVAILABLE);
    piece->flags |= SPRITE_ANSWERED;
    piece->x = piece->home_x = piece->anchor_x = b->places->deck.x + DECK_PIECE_OFFSET;
    piece->y = piece->home_y = piece->anchor_y = b->places->deck.y + DECK_PIECE_OFFSET;
    sprite_raise(piece);
    sprite_unfold(piece);
    sprite_follow_mouse(piece, FOLLOW_FRAMES, mx, my);
    sound_play(SOUND_PIECE_EMERGE);
}

void board_lock_deck(board *b, i32 frames) {
    b->state |= BOARD_DECK_LOCK;
    b->deck.lock_frames = frames;
}

void deck_update(board *b) {
    if (board_is(b, BOARD_DECK_MOVING))
        turn_deck(b);
    sprite *top = b->deck.slot[0];
    if (board_has(b, BOARD_CARD_TEXT) || top == nullptr || has_flag(top, SPRITE_ANSWERED))
        return;
    if (top->x != top->anchor_x || top->y != top->anchor_y) {
        top->flags &= ~(SPRITE_INERT | SPRITE_HIDDEN);
        top->flags |= SPRITE_ANSWERED | SPRITE_DEAL_NEXT;
    }
}
