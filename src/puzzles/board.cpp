// board.cpp: the life of the board record: create, load a type, start a run, destroy.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/board.h"

#include "core/base/log.h"
#include "core/base/strings.h"
#include "core/ui/help.h"
#include "puzzles/background.h"
#include "puzzles/board_pictures.h"
#include "puzzles/cells.h"
#include "puzzles/deck.h"
#include "puzzles/generators.h"
#include "puzzles/keypad.h"
#include "puzzles/puzzle_help.h"
#include "puzzles/random_list.h"
#include "sprites/effect.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"

#include <SDL.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr i32 ENTRY_CAPACITY = 4; // digits of an answer
constexpr char CLOCK_AT_START[] = "0:00";

constexpr i32 BACKGROUND_NUMBER = 1; // all types share one background picture

enum console_button : i32 { CONSOLE_HELP, CONSOLE_RETURN, CONSOLE_BUTTONS };
constexpr point CONSOLE_PLACES[CONSOLE_BUTTONS] = {{730, 5}, {730, 35}};

constexpr puzzle_layout NO_LAYOUT = {};
constexpr puzzle_places NO_PLACES = {};

bool create_lists(board *b) {
    b->cells = ptr_array_create(sprite_free);
    b->pieces = ptr_array_create(sprite_free);
    b->buttons = ptr_array_create(button_free);
    b->effects = ptr_array_create(effect_free);
    b->new_effects = ptr_array_create<effect>();
    b->deck.pool = random_list_create();
    b->entry = number_entry_create(ENTRY_CAPACITY);
    return b->cells != nullptr && b->pieces != nullptr && b->buttons != nullptr && b->effects != nullptr &&
           b->new_effects != nullptr && b->deck.pool != nullptr && b->entry != nullptr;
}

// Empties the lists of a run, and all that borrows from them.
void drop_run(board *b) {
    ptr_array_clear(b->cells);
    ptr_array_clear(b->pieces);
    ptr_array_clear(b->buttons);
    ptr_array_clear(b->effects);
    for (effect *queued : each(b->new_effects))
        effect_free(queued);
    ptr_array_clear(b->new_effects);
    random_list_clear(b->deck.pool);
    number_entry_clear(b->entry);
    std::fill(std::begin(b->deck.slot), std::end(b->deck.slot), nullptr);
    b->deck.leaving = nullptr;
}

// Leaves no type loaded: without its pictures a board must not be drawn, and the next prepare loads it again.
void unload(board *b) {
    drop_run(b);
    board_free_images(b);
    b->type = BOARD_NO_TYPE;
}

i32 load_type(board *b, i32 type) {
    b->type = type;
    b->layout = &PUZZLE_LAYOUTS[type];
    b->places = &PUZZLE_PLACES[type];
    board_set_background(BACKGROUND_NUMBER);
    if (board_load_pictures(b) < 0 || background_load() < 0)
        return -1;
    if (board_has(b, BOARD_HAS_KEYPAD))
        b->entry->digits = b->pictures.entered_digits;
    b->entry->x = b->places->entry.x;
    b->entry->y = b->places->entry.y;
    b->entry->dest_x = b->places->entry_dest.x;
    b->entry->dest_y = b->places->entry_dest.y;
    b->width = b->pictures.board->width;
    b->height = b->pictures.board->height;
    return 1;
}

i32 reset_clock(board *b) {
    b->placed = b->remaining = 0;
    b->state = 0;
    b->clock.start = SDL_GetTicks();
    b->clock.seconds = 0;
    const i32 result = string_set(&b->clock.text, CLOCK_AT_START);
    if (result < 0)
        log_out_of_memory();
    return result;
}

void show_help(button *, std::intptr_t board_address, std::intptr_t) {
    board_show_help(reinterpret_cast<const board *>(board_address));
}

button *add_console_button(board *b, console_button which, button_callback action) {
    const image *looks[BUTTON_LOOK_COUNT];
    for (i32 look = 0; look < BUTTON_LOOK_COUNT; ++look)
        looks[look] = b->pictures.console[look * CONSOLE_BUTTONS + which];
    return button_add(b->buttons, looks, CONSOLE_PLACES[which].x, CONSOLE_PLACES[which].y, action,
                      reinterpret_cast<std::intptr_t>(b));
}

i32 build_console(board *b, button_callback on_return) {
    button *help = add_console_button(b, CONSOLE_HELP, show_help);
    button *leave = help != nullptr ? add_console_button(b, CONSOLE_RETURN, on_return) : nullptr;
    button_set_keys(leave, SDLK_ESCAPE);
    return leave != nullptr ? 1 : -1;
}

i32 start_run(board *b, button_callback on_return) {
    if (cells_build(b) < 0 || pieces_generate(b) < 0 || reset_clock(b) < 0 || build_console(b, on_return) < 0)
        return -1;
    if (board_has(b, BOARD_HAS_KEYPAD) && keypad_build(b) < 0)
        return -1;
    if (board_has(b, BOARD_HAS_DECK) && deck_build(b) < 0)
        return -1;
    return 1;
}

} // namespace

board *board_create() {
    auto *b = static_cast<board *>(std::calloc(1, sizeof(board)));
    if (b == nullptr) {
        log_out_of_memory();
        return nullptr;
    }
    b->type = BOARD_NO_TYPE;
    b->layout = &NO_LAYOUT;
    b->places = &NO_PLACES;
    if (!create_lists(b)) {
        board_destroy(b);
        return nullptr;
    }
    return b;
}

void board_destroy(board *b) {
    if (b == nullptr)
        return;
    board_free_images(b);
    if (b->new_effects != nullptr) // else nobody owns them
        ptr_array_set_free(b->new_effects, effect_free);
    ptr_array_destroy(b->cells);
    ptr_array_destroy(b->pieces);
    ptr_array_destroy(b->buttons);
    ptr_array_destroy(b->effects);
    ptr_array_destroy(b->new_effects);
    random_list_free(b->deck.pool);
    number_entry_free(b->entry);
    std::free(b->clock.text);
    std::free(b);
}

i32 board_load(board *b, i32 type) {
    if (type < 0 || type >= PUZZLE_COUNT)
        return -1;
    unload(b);
    if (load_type(b, type) > 0)
        return 1;
    unload(b);
    return -1;
}

i32 board_prepare(app_state *state) {
    board *b = state->board;
    if ((!board_loaded(b) || b->type != state->puzzle) && board_load(b, state->puzzle) < 0)
        return -1;
    b->x = center_x(b->width);
    b->y = b->layout->top;
    state->puzzle = b->type;
    return 1;
}

i32 board_start(board *b, button_callback on_return) {
    if (!board_loaded(b))
        return -1;
    drop_run(b);
    if (start_run(b, on_return) > 0)
        return 1;
    unload(b);
    return -1;
}

i32 board_master_rank(const board *b) {
    if (!board_loaded(b))
        return -1;
    for (i32 k = 0; k < MASTER_TIME_COUNT; ++k)
        if (b->clock.seconds <= puzzle_master_time(b->type, k))
            return k;
    return -1;
}

void board_show_help(const board *b) {
    if (board_loaded(b))
        help_show(puzzle_help(b->type));
}

i32 board_add_button(board *b, button *added) {
    if (ptr_array_append(b->buttons, added) >= 0)
        return 1;
    button_free(added);
    return -1;
}

void board_start_clock(board *b) {
    b->state |= BOARD_CLOCK;
}

void board_add_effect(board *b, effect *added, i32 x, i32 y) {
    if (added == nullptr)
        return;
    added->x = x;
    added->y = y;
    if (ptr_array_append(b->new_effects, added) < 0)
        effect_free(added);
}
