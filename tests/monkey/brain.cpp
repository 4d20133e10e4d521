// brain.cpp: what the monkey does next: mostly what leads on, often what nobody would do.
//
// It sees the game's state, as a child sees the screen, and acts through the mouse and the keys alone.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/app_state.h"
#include "core/base/settings.h"
#include "core/ui/screen.h"
#include "monkey/monkey.h"
#include "puzzles/board.h"
#include "puzzles/placement.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"

#include <SDL.h>
#include <algorithm>

namespace {

constexpr int DECK_BUTTON = 2, DECK_BUTTON_AT_KEYPAD = 14; // among the board's buttons
constexpr int CELL_MARGIN = 1, STUCK_FRAMES = 6000, HOUR_MS = 3'600'000;
constexpr char DEBUG_SEQUENCE[] = "qzkvxhwnyrt", DEBUG_KEYS[] = "awdc";

int mood = 0; // of 100 decisions so many are sensible

bool one_in(int n) {
    return roll(n) == 0;
}

bool is_sensible() {
    return roll(100) < mood;
}

void point_anywhere() {
    move_mouse(roll(SCREEN_WIDTH), roll(SCREEN_HEIGHT));
}

int any_key() {
    return 1 + roll(SDLK_LAST - 1);
}

// --- Noise ---------------------------------------------------------------------------------------

void use_debug_mode() {
    if (one_in(30)) {
        for (const char *key = DEBUG_SEQUENCE; *key != '\0'; ++key)
            press(*key);
        debug_used = true;
    }
    set_key(SDLK_LCTRL, true);
    press(DEBUG_KEYS[roll(4)]);
    set_key(SDLK_LCTRL, false);
}

void hold_and_move() {
    hold(true);
    point_anywhere();
    hold(one_in(2));
}

// Now and then everything stands still for an hour.
void stall() {
    fake_time_advance(one_in(50) ? HOUR_MS : static_cast<u32>(roll(2000)));
}

constexpr void (*NOISES[])() = {
    point_anywhere,
    hold_and_move,
    stall,
    use_debug_mode,
    [] { point_anywhere(), click(); },
    [] { point_anywhere(), click(); },
    [] { devices.keys.at(static_cast<std::size_t>(any_key())) ^= 1; },
    [] { devices.buttons = static_cast<u8>(roll(256)); },
    [] { push_event(one_in(400) ? SDL_QUIT : SDL_VIDEOEXPOSE); },
    [] { press(any_key()); },
    [] { press(SDLK_ESCAPE); },
    [] { press(SDLK_SPACE); },
    [] { wait_frames(roll(40)); },
};

// --- Playing -------------------------------------------------------------------------------------

// Moves the held piece into its cell, or near it, and lets go. Where it is only shows in that frame.
void carry(int label, bool right) {
    for (int i = roll(3); i > 0; --i)
        point_anywhere();
    then([label, right] {
        const board *b = app->board;
        for (const sprite *piece : each(b->pieces)) {
            const sprite *cell = piece->label_index == label ? piece_target_cell(b, piece) : nullptr;
            if (cell == nullptr)
                continue;
            const int off = right ? roll(3) - 1 : roll(41) - 20;
            devices.x = std::clamp(devices.x + b->x + cell->x + CELL_MARGIN - piece->x + off, 0, SCREEN_WIDTH - 1);
            devices.y = std::clamp(devices.y + b->y + cell->y + CELL_MARGIN - piece->y + off, 0, SCREEN_HEIGHT - 1);
        }
    });
    hold(false);
}

void drag_piece(const sprite *piece) {
    move_mouse(piece->x + roll(piece->w + 1), piece->y + roll(piece->h + 1));
    hold(true);
    wait_frames(1);
    if (const bool right = is_sensible(); right || one_in(2))
        return carry(piece->label_index, right);
    point_anywhere();
    hold(one_in(8));
}

// The piece on top where one lies that can be taken; null for none.
const sprite *loose_piece(const board *b) {
    for (int n = b->pieces->count, first = roll(n + 1), i = 0; i < n; ++i) {
        const sprite *piece = b->pieces->items[(first + i) % n];
        if ((piece->flags & (SPRITE_FIXED | SPRITE_INERT)) == 0)
            return board_piece_at(b, piece->x + piece->w / 2, piece->y + piece->h / 2);
    }
    return nullptr;
}

void click_button(int index) {
    const button *b = app->board->buttons->items[index];
    click(b->x + b->width / 2, b->y + b->height / 2);
}

void answer(const board *b) {
    const bool right = is_sensible() && !one_in(12);
    for (int i = number_entry_length(b->entry); i > 0; --i)
        click_button(KEYPAD_DELETE);
    for (const char digit : std::to_string(right ? b->deck.slot[0]->answer : roll(12000)))
        click_button(keypad_digit(digit));
    click_button(KEYPAD_ENTER);
}

void turn_deck(const board *b) {
    if (one_in(2))
        return press(SDLK_SPACE);
    click_button(board_has(b, BOARD_HAS_KEYPAD) ? DECK_BUTTON_AT_KEYPAD : DECK_BUTTON);
}

void take_card(const board *b) {
    move_mouse(b->deck.slot_at[0].x + b->pictures.card->width / 2, b->deck.slot_at[0].y + b->pictures.card->height / 2);
    hold(true);
    wait_frames(2);
    carry(b->deck.slot[0]->label_index, is_sensible());
}

void play() {
    const board *b = app->board;
    if (!plan.soak && one_in(700))
        return press(SDLK_ESCAPE);
    if (const sprite *piece = loose_piece(b); piece != nullptr)
        return drag_piece(piece);
    const bool busy = !board_has(b, BOARD_HAS_DECK) || board_is(b, BOARD_DECK_MOVING | BOARD_DECK_LOCK);
    if (board_is(b, BOARD_DECK_CLOSED) || (!busy && !is_sensible()))
        return turn_deck(b);
    if (busy || b->deck.slot[0] == nullptr || (b->entry->flags & (ENTRY_ENTERED | ENTRY_CLOSED)) != 0)
        return wait_frames(5);
    if (board_has(b, BOARD_HAS_KEYPAD))
        return answer(b);
    (b->deck.slot[0]->flags & SPRITE_ANSWERED) == 0 ? take_card(b) : turn_deck(b);
}

// A good player that comes no further has found a run that cannot be finished.
void watch_success() {
    static int last_placed = 0, frames_without_success = 0;
    const board *b = app->board;
    const bool trying = screen_current() == SCREEN_PLAY && mood > 90 && b->placed == last_placed;
    last_placed = b->placed;
    frames_without_success = trying ? frames_without_success + 1 : 0;
    if (frames_without_success > STUCK_FRAMES)
        monkey_fail("a good player is stuck in type " + std::to_string(b->type));
}

// --- The other screens ---------------------------------------------------------------------------

void at_title() {
    static int next_puzzle = 0;
    if (plan.soak)
        soak_measure();
    click(LIST_X, list_y(plan.soak ? next_puzzle++ % PUZZLE_COUNT : roll(PUZZLE_COUNT)));
    wait_frames(plan.soak ? 30 : roll(30));
    if (plan.soak || !one_in(3))
        return click_column(TITLE_STUDY);
    if (const int n = 1 + roll(TITLE_OTHERS); n != TITLE_EXIT || one_in(3))
        click_column(n);
}

void at_study() {
    const board *b = app->board;
    if (plan.soak || one_in(2))
        return click_column(STUDY_PLAY);
    if (one_in(6))
        return click_column(1 + roll(STUDY_BUTTONS));
    click(b->x + roll(b->width), b->y + roll(b->height));
}

void at_dialog() {
    if (!plan.soak && one_in(4))
        return click(SCREEN_WIDTH / 2 - 60 + roll(120), NOWHERE_Y + roll(70));
    press(one_in(2) ? SDLK_y : SDLK_n);
    for (int i = plan.soak ? 0 : roll(24); i > 0; --i) {
        set_key(SDLK_LSHIFT, one_in(2));
        press(one_in(12) ? SDLK_BACKSPACE : SDLK_a + roll(one_in(8) ? 26 : 2));
    }
    set_key(SDLK_LSHIFT, false);
    press(one_in(2) ? SDLK_RETURN : SDLK_KP_ENTER);
}

void click_later() {
    wait_frames(roll(80));
    click(COLUMN_X, NOWHERE_Y);
}

constexpr void (*ACTIONS[SCREEN_COUNT])() = {
    play, at_title, at_study, at_dialog, click_later, click_later, [] { click(COLUMN_X, SPLASH_GO_Y); },
};

void act_sensibly() {
    devices.buttons = 0;
    fake_keys_up();
    settings_help_showing() ? click_later() : ACTIONS[screen_current()]();
}

void change_mood() {
    constexpr int MOODS[] = {100, 100, 98, 90, 60, 20};
    static int frames_left = 0;
    if (--frames_left > 0)
        return;
    frames_left = 200 + roll(6000);
    mood = plan.soak ? 100 : MOODS[roll(std::size(MOODS))];
}

} // namespace

void monkey_move() {
    change_mood();
    watch_success();
    if (hands_rest())
        is_sensible() ? act_sensibly() : NOISES[roll(std::size(NOISES))]();
    hands_move();
}
