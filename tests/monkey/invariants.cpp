// invariants.cpp: what holds after every frame, whatever the player did.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/draw_ops.h"
#include "graphics/draw_queue.h"
#include "graphics/locks.h"
#include "monkey/monkey.h"
#include "persist/best_times.h"
#include "puzzles/board.h"
#include "puzzles/random_list.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"

#include <algorithm>

// The address sanitizer's, where it is linked in: whether memory is freed or outside all blocks.
extern "C" __attribute__((weak)) int __asan_address_is_poisoned(const void volatile *address);

namespace {

constexpr u32 ON_THE_WAY = SPRITE_TRAVEL | SPRITE_GROW | SPRITE_VANISH; // inert for a while
constexpr i32 PLACED_OFFSET = 1;                                        // pixels from the cell's corner

bool has(const sprite *piece, u32 flag) {
    return (piece->flags & flag) != 0;
}

void require(bool holds, const char *what, const sprite *piece = nullptr) {
    if (holds)
        return;
    const board *b = app->board;
    char text[300];
    std::snprintf(text, sizeof text, "%s; type %d, board state %x, %d placed, %d remaining of %d%s", what, b->type,
                  b->state, b->placed, b->remaining, b->pieces->count, debug_used ? ", debug mode used" : "");
    std::string all = text;
    if (piece != nullptr) {
        std::snprintf(text, sizeof text, "; piece %d at %d, %d, flags %x", piece->label_index, piece->x, piece->y,
                      piece->flags);
        all += text;
    }
    monkey_fail(all);
}

template <class T> bool contains(const ptr_array<T> *list, const T *item) {
    return std::find(list->items, list->items + list->count, item) != list->items + list->count;
}

template <class T> void require_no_holes(const ptr_array<T> *list, const char *what) {
    require(list->count <= list->capacity && !contains<T>(list, nullptr), what);
}

void check_fixed(const board *b, const sprite *piece) {
    const sprite *cell = b->cells->items[piece->target_row * b->cols + piece->target_col];
    require(cell->col == piece->target_col && cell->row == piece->target_row, "the cells stand in order", piece);
    require(piece->x == b->x + cell->x + PLACED_OFFSET && piece->y == b->y + cell->y + PLACED_OFFSET,
            "a fixed piece lies in its cell", piece);
    require(has(piece, SPRITE_INERT), "a fixed piece cannot be taken", piece);
}

// Of a piece that is not fixed: either the mouse can get at it, or a card will bring it.
void check_loose(const board *b, const sprite *piece) {
    if (has(piece, SPRITE_HIDDEN)) {
        const bool on_card = std::find(std::begin(b->slot), std::end(b->slot), piece) != std::end(b->slot);
        return require(on_card || has(piece, SPRITE_AVAILABLE), "a hidden piece comes back", piece);
    }
    require(piece->x + piece->w >= 0 && piece->y + piece->h >= 0 && piece->x < SCREEN_WIDTH && piece->y < SCREEN_HEIGHT,
            "a piece stays within reach", piece);
    require(!has(piece, SPRITE_INERT) || has(piece, ON_THE_WAY), "a piece can be taken", piece);
}

void check_run(const board *b) {
    const bool complete = board_is(b, BOARD_COMPLETE);
    i32 fixed = 0, unanswered = 0;
    for (const sprite *piece : each(b->pieces)) {
        unanswered += has(piece, SPRITE_ANSWERED) ? 0 : 1;
        fixed += has(piece, SPRITE_FIXED) ? 1 : 0;
        if (has(piece, SPRITE_FIXED))
            check_fixed(b, piece);
        else if (!complete)
            check_loose(b, piece);
    }
    require(fixed == b->placed, "as many pieces are fixed as are counted as placed");
    // The first frame counts them, and before the deck moves: a piece answered in this frame may still be in it.
    const bool counted = b->remaining > 0 || board_is(b, BOARD_CLOCK);
    require(!counted || b->remaining == unanswered || b->remaining == unanswered + 1, "the pieces left are counted");
    for (sprite *card : b->slot) {
        require(card == nullptr || contains(b->pieces, card), "a card belongs to a piece");
        require(card == nullptr || complete || !has(card, SPRITE_FIXED), "no card asks for a placed piece", card);
    }
    require(complete == (fixed == b->pieces->count) || debug_used, "a full board is complete");
}

// Every picture that a recorded command will draw is alive.
void check_commands(const draw_block &list) {
    for (i32 at = 0; at < list.length;) {
        const u8 id = list.bytes[at++];
        require(id < DRAW_OPCODE_COUNT, "a command is known");
        if (id == DRAW_IMAGE || id == DRAW_IMAGE_BG || id == DRAW_IMAGE_EX || id == DRAW_IMAGE_CLIPPED) {
            const image *picture;
            std::memcpy(&picture, list.bytes + at, sizeof picture);
            require(!__asan_address_is_poisoned(picture), "a recorded picture is alive");
        }
        at += DRAW_COMMANDS[id].size;
    }
}

} // namespace

void check_invariants() {
    require(locks_held == 0, "the locks are free");
    const board *b = app->board;
    require_no_holes(b->cells, "the cells have no holes");
    require_no_holes(b->pieces, "the pieces have no holes");
    require_no_holes(b->buttons, "the buttons have no holes");
    require_no_holes(b->effects, "the effects have no holes");
    require_no_holes(b->deck_pool->items, "the pool has no holes");
    require(number_entry_length(b->entry) <= b->entry->capacity, "the answer fits its display");
    if (board_loaded(b) && !board_is(b, BOARD_STUDY) && b->pieces->count > 0)
        check_run(b);
    for (i32 type = 0; type < PUZZLE_COUNT; ++type) {
        require_no_holes(best_times_for_puzzle(type)->log, "the log has no holes");
        require(best_times_for_puzzle(type)->log->count <= LOG_LENGTH, "the log keeps its length");
    }
    if (!plan.render_thread && __asan_address_is_poisoned != nullptr)
        for (const draw_block &list : draw_queue.lists)
            check_commands(list);
}
