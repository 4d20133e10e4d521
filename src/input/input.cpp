// input.cpp: one snapshot of keyboard and mouse a frame, beside the snapshot of the frame before.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "input/input.h"

#include "core/base/log.h"

#include <SDL.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

constexpr i32 MOUSE_BUTTON_LIMIT = 8; // buttons that fit SDL's mask

struct input_state {
    u8 *keys;          // owned; down in this frame
    u8 *previous_keys; // owned; the array as it was in the frame before
    char *characters;  // owned; what each key types
    i32 key_count;     // entries of all three
    u8 buttons, previous_buttons;
    SDL_Joystick **joysticks; // owned; opened and closed, never read
    i32 joystick_count;
};
input_state state;

// The keys first..last type characters that rise from the given one, or all the same one.
struct key_row {
    i32 first, last;
    char typed;
    bool rising;
};
constexpr key_row KEY_ROWS[] = {
    {SDLK_a, SDLK_z, 'a', true},
    {SDLK_0, SDLK_9, '0', true},
    {SDLK_KP0, SDLK_KP9, '0', true},
    {SDLK_RETURN, SDLK_RETURN, '\n', false},
    {SDLK_KP_ENTER, SDLK_KP_ENTER, '\n', false},
    {SDLK_BACKSPACE, SDLK_BACKSPACE, '\b', false},
    {SDLK_SPACE, SDLK_SPACE, ' ', false},
    {SDLK_BACKSLASH, SDLK_BACKSLASH, '\\', false},
    {SDLK_LEFTBRACKET, SDLK_LEFTBRACKET, '[', false},
    {SDLK_RIGHTBRACKET, SDLK_RIGHTBRACKET, ']', false},
    {SDLK_COMMA, SDLK_COMMA, ',', false},
    {SDLK_PERIOD, SDLK_PERIOD, '.', false},
    {SDLK_KP_PERIOD, SDLK_KP_PERIOD, '.', false},
    {SDLK_SLASH, SDLK_SLASH, '/', false},
    {SDLK_KP_DIVIDE, SDLK_KP_DIVIDE, '/', false},
    {SDLK_SEMICOLON, SDLK_SEMICOLON, ';', false},
    {SDLK_QUOTE, SDLK_QUOTE, '\'', false},
    {SDLK_MINUS, SDLK_MINUS, '-', false},
    {SDLK_KP_MINUS, SDLK_KP_MINUS, '-', false},
    {SDLK_EQUALS, SDLK_EQUALS, '=', false},
    {SDLK_BACKQUOTE, SDLK_BACKQUOTE, '`', false},
    {SDLK_KP_MULTIPLY, SDLK_KP_MULTIPLY, '*', false},
    {SDLK_KP_PLUS, SDLK_KP_PLUS, '+', false},
    {SDLK_NUMLOCK, SDLK_SCROLLOCK, ' ', false},
    {SDLK_DELETE, SDLK_DELETE, ' ', false},
    {SDLK_INSERT, SDLK_PAGEDOWN, ' ', false},
};

// --- Start-up ------------------------------------------------------------------------------------

template <class T> T *allocate(i32 count) {
    auto *block = static_cast<T *>(std::calloc(static_cast<std::size_t>(count), sizeof(T)));
    if (block == nullptr)
        log_error("%s - Out of memory\n", "");
    return block;
}

bool open_joysticks() {
    const i32 found = SDL_NumJoysticks();
    log_error("Found %i joystick(s).\n", found);
    if (found <= 0)
        return true;
    state.joysticks = allocate<SDL_Joystick *>(found);
    if (state.joysticks == nullptr)
        return false;
    state.joystick_count = found;
    for (i32 i = 0; i < found; ++i) {
        state.joysticks[i] = SDL_JoystickOpen(i);
        if (state.joysticks[i] == nullptr)
            log_error("Warning: couldn't open joystick %i: %s\n", i, SDL_GetError());
    }
    return true;
}

void fill_characters() {
    for (const key_row &row : KEY_ROWS)
        for (i32 key = row.first; key <= std::min(row.last, state.key_count - 1); ++key)
            state.characters[key] = static_cast<char>(row.rising ? row.typed + (key - row.first) : row.typed);
}

void remember_keys() {
    std::memcpy(state.previous_keys, state.keys, static_cast<std::size_t>(state.key_count));
}

} // namespace

i32 input_init() {
    SDL_PumpEvents();
    int count = 0;
    const u8 *keys = SDL_GetKeyState(&count);
    if (!open_joysticks())
        return -1;
    state.keys = allocate<u8>(count);
    if (state.keys == nullptr)
        return -1;
    state.previous_keys = allocate<u8>(count);
    if (state.previous_keys == nullptr)
        return -1;
    state.characters = allocate<char>(count);
    if (state.characters == nullptr)
        return -1;
    state.key_count = count;
    std::memcpy(state.keys, keys, static_cast<std::size_t>(count));
    remember_keys(); // a key held down at start is no press
    fill_characters();
    return 1;
}

namespace {

void add_button_tap(const SDL_MouseButtonEvent &press) {
    if (press.button < 1 || press.button > MOUSE_BUTTON_LIMIT)
        return;
    const auto bit = static_cast<u8>(SDL_BUTTON(press.button));
    if (((state.buttons | state.previous_buttons) & bit) != 0)
        return;
    state.buttons |= bit;
    mouse_x = press.x;
    mouse_y = press.y;
}

// What has gone down and up again since the last poll is down in this frame, the mouse where it was pressed.
void add_taps() {
    SDL_Event event;
    while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_KEYEVENTMASK | SDL_MOUSEEVENTMASK) > 0) {
        if (event.type == SDL_MOUSEBUTTONDOWN)
            add_button_tap(event.button);
        else if (event.type == SDL_KEYDOWN && event.key.keysym.sym < state.key_count)
            state.keys[event.key.keysym.sym] |= state.previous_keys[event.key.keysym.sym] == 0;
    }
}

} // namespace

void input_poll() {
    remember_keys();
    state.previous_buttons = state.buttons;
    SDL_PumpEvents();
    int count = 0;
    const u8 *keys = SDL_GetKeyState(&count);
    state.key_count = std::min(state.key_count, count);
    std::memcpy(state.keys, keys, static_cast<std::size_t>(state.key_count));
    state.buttons = SDL_GetMouseState(&mouse_x, &mouse_y);
    add_taps();
}

void input_shutdown() {
    std::free(state.keys);
    std::free(state.previous_keys);
    std::free(state.characters);
    for (i32 i = 0; i < state.joystick_count; ++i)
        if (state.joysticks[i] != nullptr)
            SDL_JoystickClose(state.joysticks[i]);
    std::free(state.joysticks);
    state = {};
}

// --- Questions -----------------------------------------------------------------------------------

namespace {

bool is_key(i32 key) {
    return key >= 0 && key < state.key_count;
}

bool key_down(i32 key) {
    return is_key(key) && state.keys[key] != 0;
}

bool button_in(u8 mask, i32 button) {
    return button >= 1 && button <= MOUSE_BUTTON_LIMIT && (mask & SDL_BUTTON(button)) != 0;
}

} // namespace

bool key_pressed(i32 key) {
    return key_down(key) && state.previous_keys[key] == 0;
}

bool shift_held() {
    return key_down(SDLK_RSHIFT) || key_down(SDLK_LSHIFT);
}

bool ctrl_held() {
    return key_down(SDLK_RCTRL) || key_down(SDLK_LCTRL);
}

bool mouse_pressed(i32 button) {
    return mouse_held(button) && !button_in(state.previous_buttons, button);
}

bool mouse_held(i32 button) {
    return button_in(state.buttons, button);
}

char key_char(i32 key) {
    return is_key(key) ? state.characters[key] : '\0';
}

i32 key_count() {
    return state.key_count;
}

i32 first_pressed_key() {
    for (i32 key = 1; key < state.key_count; ++key)
        if (key_pressed(key))
            return key;
    return 0;
}

bool click_or_key_pressed() {
    return mouse_pressed(MOUSE_LEFT) || first_pressed_key() != 0;
}
