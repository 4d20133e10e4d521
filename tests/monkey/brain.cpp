// brain.cpp: what the monkey does next: mostly what leads on, often what nobody would do.
//
// It sees the game's state, as a child sees the screen, and acts through the mouse and the keys alone.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app_state.h"
#include "core/screen.h"
#include "core/settings.h"
#include "monkey/monkey.h"
#include "puzzles/board.h"
#include "puzzles/placement.h"
#include "sprites/number_entry.h"
#include "sprites/sprite.h"

#include <SDL.h>

#include <algorithm>
#include <deque>
#include <functional>

namespace {

constexpr int COLUMN_X = 720, COLUMN_LOW = 579, COLUMN_PITCH = 36; // the title's and the study screen's buttons
constexpr int SPLASH_GO_Y = 495, ANSWERS_Y = 300;
constexpr int LIST_X = 100, LIST_Y = 147, LIST_PITCH = 35;
constexpr int CONSOLE_KEYS = 2, KEY_BACKSPACE = 9, KEY_OF_0 = 10, KEY_ENTER = 11, KEYPAD_KEYS = 12; // among the buttons
constexpr int CELL_MARGIN = 1, STUCK_FRAMES = 6000, HOUR_MS = 3'600'000;
constexpr char DEBUG_SEQUENCE[] = "qzkvxhwnyrt", DEBUG_KEYS[] = "awdc";

std::deque<std::function<void()>> moves; // one a frame
int mood = 0, mood_frames = 0;           // of 100 decisions so many are sensible
int last_placed = 0, frames_without_success = 0;

bool one_in(int n) {
    return monkey_roll(n) == 0;
}

bool is_sensible() {
    return monkey_roll(100) < mood;
}

// --- Devices -------------------------------------------------------------------------------------

void wait_frames(int count) {
    moves.insert(moves.end(), static_cast<std::size_t>(count), [] {});
}

void point(int x, int y) {
    moves.emplace_back([x, y] {
        devices.x = std::clamp(x, 0, SCREEN_WIDTH - 1);
        devices.y = std::clamp(y, 0, SCREEN_HEIGHT - 1);
    });
}

void point_anywhere() {
    point(monkey_roll(SCREEN_WIDTH), monkey_roll(SCREEN_HEIGHT));
}

void hold(bool down) {
    moves.emplace_back([down] { devices.buttons = down ? SDL_BUTTON(SDL_BUTTON_LEFT) : 0; });
}

void set_key(int key, bool down) {
    moves.emplace_back([key, down] { devices.keys[key] = down; });
}

void press(int key) {
    set_key(key, true);
    set_key(key, false);
}

void click() {
    hold(true);
    hold(false);
}

void click(int x, int y) {
    point(x, y);
    click();
}

void click_column(int n) {
    click(COLUMN_X, COLUMN_LOW - COLUMN_PITCH * (n - 1));
}

void click_button(int index) {
    const button *b = app->board->buttons->items[index];
    click(b->x + b->width / 2, b->y + b->height / 2);
}

// --- Noise ---------------------------------------------------------------------------------------

void use_debug_mode() {
    if (one_in(30)) {
        for (const char *key = DEBUG_SEQUENCE; *key != '\0'; ++key)
            press(*key);
        ++report->counts[DEBUGGED];
        debug_used = true;
    }
    set_key(SDLK_LCTRL, true);
    press(DEBUG_KEYS[monkey_roll(4)]);
    set_key(SDLK_LCTRL, false);
}

void hold_and_move() {
    hold(true);
    point_anywhere();
    hold(one_in(2));
}

void click_anywhere() {
    point_anywhere();
    click();
}

void flip_keys() {
    moves.emplace_back([] { devices.keys[1 + monkey_roll(sizeof devices.keys - 1)] ^= 1; });
}

void flip_mouse_buttons() {
    moves.emplace_back([] { devices.buttons = static_cast<u8>(monkey_roll(256)); });
}

// Now and then everything stands still for an hour.
void stall() {
    monkey_wait(one_in(50) ? HOUR_MS : static_cast<u32>(monkey_roll(2000)));
}

void send_event() {
    monkey_push_event(one_in(400) ? SDL_QUIT : SDL_VIDEOEXPOSE);
}

void make_noise() {
    static constexpr void (*NOISES[])() = {
        click_anywhere,
        click_anywhere,
        point_anywhere,
        hold_and_move,
        flip_mouse_buttons,
        flip_keys,
        stall,
        send_event,
        use_debug_mode,
        [] { press(1 + monkey_roll(sizeof devices.keys - 1)); },
        [] { press(SDLK_ESCAPE); },
        [] { press(SDLK_SPACE); },
        [] { wait_frames(monkey_roll(40)); },
    };
    NOISES[monkey_roll(std::size(NOISES))]();
}

// --- Playing -------------------------------------------------------------------------------------

// Moves the held piece into its cell, or near it, and lets go. Where it is only shows in that frame.
void carry(int label, bool right) {
    for (int i = monkey_roll(3); i > 0; --i)
        point_anywhere();
    moves.emplace_back([label, right] {
        const board *b = app->board;
        for (const sprite *piece : each(b->pieces)) {
            const sprite *cell = piece->label_index == label ? board_target_cell(b, piece) : nullptr;
            if (cell == nullptr)
                continue;
            const int off = right ? monkey_roll(3) - 1 : monkey_roll(41) - 20;
            devices.x += b->x + cell->x + CELL_MARGIN - piece->x + off;
            devices.y += b->y + cell->y + CELL_MARGIN - piece->y + off;
        }
    });
    hold(false);
}

void drag_piece(const sprite *piece) {
    point(piece->x + monkey_roll(piece->w + 1), piece->y + monkey_roll(piece->h + 1));
    hold(true);
    wait_frames(1);
    if (const bool right = is_sensible(); right || one_in(2))
        return carry(piece->label_index, right);
    point_anywhere();
    hold(one_in(8));
}

// The piece on top where one lies that can be taken; null for none.
const sprite *loose_piece(const board *b) {
    for (int n = b->pieces->count, first = monkey_roll(n + 1), i = 0; i < n; ++i) {
        const sprite *piece = b->pieces->items[(first + i) % n];
        if ((piece->flags & (SPRITE_FIXED | SPRITE_INERT)) == 0)
            return board_piece_at(b, piece->x + piece->w / 2, piece->y + piece->h / 2);
    }
    return nullptr;
}

void answer(const board *b) {
    const bool right = is_sensible() && !one_in(12);
    for (int i = number_entry_length(b->entry); i > 0; --i)
        click_button(CONSOLE_KEYS + KEY_BACKSPACE);
    for (const char digit : std::to_string(right ? b->slot[0]->answer : monkey_roll(12000)))
        click_button(CONSOLE_KEYS + (digit == '0' ? KEY_OF_0 : digit - '1'));
    click_button(CONSOLE_KEYS + KEY_ENTER);
    moves.emplace_back([] { report->counts[RIGHT] += (app->board->entry->flags & ENTRY_CORRECT) != 0 ? 1 : 0; });
}

void turn_deck(const board *b) {
    if (one_in(2))
        return press(SDLK_SPACE);
    click_button(CONSOLE_KEYS + (board_has(b, BOARD_HAS_KEYPAD) ? KEYPAD_KEYS : 0));
}

void take_card(const board *b) {
    point(b->slot_x[0] + b->card_picture->width / 2, b->slot_y[0] + b->card_picture->height / 2);
    hold(true);
    wait_frames(2);
    carry(b->slot[0]->label_index, is_sensible());
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
    if (busy || b->slot[0] == nullptr || (b->entry->flags & (ENTRY_ENTERED | ENTRY_CLOSED)) != 0)
        return wait_frames(5);
    if (board_has(b, BOARD_HAS_KEYPAD))
        return answer(b);
    (b->slot[0]->flags & SPRITE_ANSWERED) == 0 ? take_card(b) : turn_deck(b);
}

// A good player that comes no further has found a run that cannot be finished.
void watch_success() {
    const board *b = app->board;
    const bool trying = screen_current() == SCREEN_PLAY && mood > 90 && b->placed == last_placed;
    last_placed = b->placed;
    frames_without_success = trying ? frames_without_success + 1 : 0;
    if (frames_without_success > STUCK_FRAMES)
        monkey_fail("a good player is stuck in type " + std::to_string(b->type));
}

// --- The other screens ---------------------------------------------------------------------------

void at_title() {
    constexpr int STUDY_BUTTON = 6, OTHERS = 5, EXIT_BUTTON = 1;
    static int next_puzzle = 0;
    if (plan.soak)
        soak_measure();
    const int row = plan.soak ? next_puzzle++ % PUZZLE_COUNT : monkey_roll(PUZZLE_COUNT);
    click(LIST_X, LIST_Y + LIST_PITCH * row);
    wait_frames(plan.soak ? 30 : monkey_roll(30));
    if (plan.soak || !one_in(3))
        return click_column(STUDY_BUTTON);
    if (const int n = 1 + monkey_roll(OTHERS); n != EXIT_BUTTON || one_in(3))
        click_column(n);
}

void at_study() {
    constexpr int PLAY_BUTTON = 2, BUTTONS = 5;
    const board *b = app->board;
    if (plan.soak || one_in(2))
        return click_column(PLAY_BUTTON);
    if (one_in(6))
        return click_column(1 + monkey_roll(BUTTONS));
    click(b->x + monkey_roll(b->width), b->y + monkey_roll(b->height));
}

void at_dialog() {
    if (!plan.soak && one_in(4))
        return click(SCREEN_WIDTH / 2 - 60 + monkey_roll(120), ANSWERS_Y + monkey_roll(70));
    press(one_in(2) ? SDLK_y : SDLK_n);
    for (int i = plan.soak ? 0 : monkey_roll(24); i > 0; --i) {
        set_key(SDLK_LSHIFT, one_in(2));
        press(one_in(12) ? SDLK_BACKSPACE : SDLK_a + monkey_roll(one_in(8) ? 26 : 2));
    }
    set_key(SDLK_LSHIFT, false);
    press(one_in(2) ? SDLK_RETURN : SDLK_KP_ENTER);
}

void click_later() {
    wait_frames(monkey_roll(80));
    click(COLUMN_X, SCREEN_HEIGHT / 2);
}

void act_sensibly() {
    static constexpr void (*ACTIONS[SCREEN_COUNT])() = {
        play, at_title, at_study, at_dialog, click_later, click_later, [] { click(COLUMN_X, SPLASH_GO_Y); },
    };
    devices = {.x = devices.x, .y = devices.y, .buttons = 0, .keys = {}};
    settings_help_showing() ? click_later() : ACTIONS[screen_current()]();
}

void change_mood() {
    constexpr int MOODS[] = {100, 100, 98, 90, 60, 20};
    if (--mood_frames > 0)
        return;
    mood_frames = 200 + monkey_roll(6000);
    mood = plan.soak ? 100 : MOODS[monkey_roll(std::size(MOODS))];
}

} // namespace

void monkey_move() {
    change_mood();
    watch_success();
    if (moves.empty())
        is_sensible() ? act_sensibly() : make_noise();
    if (moves.empty())
        return;
    moves.front()();
    moves.pop_front();
}
