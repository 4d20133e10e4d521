// invariants.cpp: what holds after every frame, whatever the player did.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/draw_queue.h"
#include "graphics/locks.h"
#include "monkey/monkey.h"
#include "persist/best_times.h"
#include "puzzles/board.h"
#include "puzzles/random_list.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"
#include "support/recorded_pictures.h"

#include <algorithm>

// The address sanitizer's, where it is linked in: whether memory is freed or outside all blocks.
extern "C" __attribute__((weak)) int __asan_address_is_poisoned(const void volatile *address);

namespace {

constexpr u32 ON_THE_WAY = SPRITE_TRAVEL | SPRITE_GROW | SPRITE_VANISH; // inert for a while
constexpr i32 PLACED_OFFSET = 1;                                        // pixels from the cell's corner

bool has(const sprite &piece, u32 flag) {
    return (piece.flags & flag) != 0;
}

i32 count_of(const board &b, u32 flag) {
    return static_cast<i32>(std::count_if(b.pieces->items, b.pieces->items + b.pieces->count,
                                          [=](auto *piece) { return has(*piece, flag); }));
}

template <class T> bool contains(const ptr_array<T> *list, const T *item) {
    return std::find(list->items, list->items + list->count, item) != list->items + list->count;
}

template <class T> bool is_whole(const ptr_array<T> *list) {
    return list->count <= list->capacity && !contains<T>(list, nullptr);
}

bool every_log(bool (*holds)(const ptr_array<score_entry> *log)) {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type)
        if (!holds(best_times_for_puzzle(type)->log))
            return false;
    return true;
}

bool every_card(const board &b, bool (*holds)(const board &b, const sprite *card)) {
    return std::ranges::all_of(b.deck.slot, [&](auto *card) { return card == nullptr || holds(b, card); });
}

// The first frame counts the pieces left, and before the deck moves: one answered in this frame may still be in it.
bool remaining_is_right(const board &b) {
    const i32 unanswered = b.pieces->count - count_of(b, SPRITE_ANSWERED);
    const bool counted = b.remaining > 0 || board_is(&b, BOARD_CLOCK);
    return !counted || b.remaining == unanswered || b.remaining == unanswered + 1;
}

bool lies_in_its_cell(const board &b, const sprite &piece) {
    const sprite *cell = b.cells->items[piece.target_row * b.layout->cols + piece.target_col];
    return cell->col == piece.target_col && cell->row == piece.target_row && piece.x == b.x + cell->x + PLACED_OFFSET &&
           piece.y == b.y + cell->y + PLACED_OFFSET;
}

bool within_reach(const sprite &piece) {
    return piece.x + piece.w >= 0 && piece.y + piece.h >= 0 && piece.x < SCREEN_WIDTH && piece.y < SCREEN_HEIGHT;
}

// Whether every picture that a recorded command will use is alive. A real render thread works on the lists meanwhile.
bool pictures_are_alive() {
    if (plan.render_thread || __asan_address_is_poisoned == nullptr)
        return true;
    for (const draw_block &list : draw_queue.lists) {
        for (i32 at = 0; at < list.length; at += DRAW_COMMANDS[list.bytes[at]].size + 1) {
            const image *picture = nullptr;
            if (TAKES_PICTURE[list.bytes[at]])
                std::memcpy(&picture, list.bytes + at + 1, sizeof picture);
            if (picture != nullptr && __asan_address_is_poisoned(picture) != 0)
                return false;
        }
    }
    return true;
}

// --- The invariants ------------------------------------------------------------------------------

constexpr struct {
    const char *what;
    bool (*holds)(const board &b);
} ALWAYS[] = {
    {"the locks are free", [](auto &) { return locks_held == 0; }},
    {"the recorded pictures are alive", [](auto &) { return pictures_are_alive(); }},
    {"the cells have no holes", [](auto &b) { return is_whole(b.cells); }},
    {"the pieces have no holes", [](auto &b) { return is_whole(b.pieces); }},
    {"the buttons have no holes", [](auto &b) { return is_whole(b.buttons); }},
    {"the effects have no holes", [](auto &b) { return is_whole(b.effects); }},
    {"the pool has no holes", [](auto &b) { return is_whole(b.deck.pool->items); }},
    {"the logs have no holes", [](auto &) { return every_log(is_whole<score_entry>); }},
    {"the logs keep their length",
     [](auto &) { return every_log([](auto *log) { return log->count <= LOG_LENGTH; }); }},
    {"the answer fits its display", [](auto &b) { return number_entry_length(b.entry) <= b.entry->capacity; }},
};

constexpr struct {
    const char *what;
    bool (*holds)(const board &b);
} IN_A_RUN[] = {
    {"as many pieces are fixed as are counted", [](auto &b) { return count_of(b, SPRITE_FIXED) == b.placed; }},
    {"the pieces left are counted", remaining_is_right},
    {"a full board is complete",
     [](auto &b) { return board_is(&b, BOARD_COMPLETE) == (b.placed == b.pieces->count) || debug_used; }},
    {"a card belongs to a piece",
     [](auto &b) { return every_card(b, [](auto &of, auto *card) { return contains(of.pieces, card); }); }},
    {"no card asks for a placed piece",
     [](auto &b) {
         return board_is(&b, BOARD_COMPLETE) ||
                every_card(b, [](auto &, auto *card) { return !has(*card, SPRITE_FIXED); });
     }},
};

enum piece_state { FIXED, HIDDEN, LOOSE }; // of a completed board, only the fixed ones count
constexpr struct {
    const char *what;
    piece_state state;
    bool (*holds)(const board &b, const sprite &piece);
} OF_A_PIECE[] = {
    {"a fixed piece lies in its cell", FIXED, lies_in_its_cell},
    {"a fixed piece cannot be taken", FIXED, [](auto &, auto &piece) { return has(piece, SPRITE_INERT); }},
    {"a hidden piece comes back", HIDDEN,
     [](auto &b, auto &piece) { return has(piece, SPRITE_AVAILABLE) || std::ranges::count(b.deck.slot, &piece) > 0; }},
    {"a piece stays within reach", LOOSE, [](auto &, auto &piece) { return within_reach(piece); }},
    {"a piece can be taken", LOOSE,
     [](auto &, auto &piece) { return !has(piece, SPRITE_INERT) || has(piece, ON_THE_WAY); }},
};

// --- Checking them -------------------------------------------------------------------------------

[[noreturn]] void fail(const char *what, const board &b, const sprite *piece) {
    char text[300];
    std::snprintf(text, sizeof text, "not so: %s; type %d, board state %x, %d placed, %d remaining of %d%s", what,
                  b.type, b.state, b.placed, b.remaining, b.pieces->count, debug_used ? ", debug mode used" : "");
    std::string all = text;
    if (piece != nullptr)
        all += "; piece " + std::to_string(piece->label_index) + " at " + std::to_string(piece->x) + ", " +
               std::to_string(piece->y) + ", flags " + std::to_string(piece->flags);
    monkey_fail(all);
}

void check(const auto &rows, const board &b) {
    for (const auto &row : rows)
        if (!row.holds(b))
            fail(row.what, b, nullptr);
}

void check_pieces(const board &b) {
    for (const sprite *piece : each(b.pieces)) {
        const piece_state state = has(*piece, SPRITE_FIXED) ? FIXED : has(*piece, SPRITE_HIDDEN) ? HIDDEN : LOOSE;
        for (const auto &row : OF_A_PIECE)
            if (row.state == state && (state == FIXED || !board_is(&b, BOARD_COMPLETE)) && !row.holds(b, *piece))
                fail(row.what, b, piece);
    }
}

} // namespace

void check_invariants() {
    const board &b = *app->board;
    check(ALWAYS, b);
    if (!board_loaded(&b) || board_is(&b, BOARD_STUDY) || b.pieces->count == 0)
        return;
    check(IN_A_RUN, b);
    check_pieces(b);
}
