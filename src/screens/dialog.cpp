// dialog.cpp: the four dialogs, their entrance, name typing and confetti.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/dialog.h"

#include "core/base/app_state.h"
#include "core/base/containers.h"
#include "core/base/log.h"
#include "core/base/settings.h"
#include "core/base/strings.h"
#include "core/ui/screen.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "persist/best_times.h"
#include "puzzles/board.h"
#include "screens/common.h"
#include "screens/picture_sets.h"
#include "screens/score_log.h"
#include "screens/splash.h"
#include "sprites/effect.h"

#include <SDL.h>
#include <cstring>
#include <iterator>
#include <utility>

namespace {

constexpr i32 ANSWER_Y = 290, ANSWER_GAP = 10;
constexpr i32 NAME_OK_Y = 330, NAME_Y = 310;
constexpr i32 LINE_Y[] = {310, 330};
constexpr i32 COMPLETED_OK_Y = 310, EMPTY_LINE_DROP = 15, LINE_DROP = 30, SECOND_LINE_DROP = 15;
constexpr i32 TITLE_LOW_Y = 300, TITLE_REST_Y = 276; // slides down to the first, settles at the second
constexpr i32 TITLE_SLIDE_STEP = 24, TITLE_SETTLE_STEP = 2;
constexpr i32 CONFETTI_ONE_IN = 5; // frames, on average
constexpr i32 NAME_LIMIT = 16;     // characters
constexpr char KEY_CHAR_RETURN = 10, KEY_CHAR_BACKSPACE = 8;

constexpr u32 DIALOG_FIRST_FRAME = 0x1; // dim and restore the whole screen at the next draw
constexpr u32 DIALOG_SLIDE_IN = 0x2;
constexpr u32 DIALOG_SETTLE = 0x4;
constexpr u32 DIALOG_NAME_ENTRY = 0x8;
constexpr u32 DIALOG_CELEBRATE = 0x10;
constexpr u32 DIALOG_NAME_UNTOUCHED = 0x20; // the first typed character replaces the name
constexpr u32 DIALOG_ENTRANCE = DIALOG_SLIDE_IN | DIALOG_SETTLE;

struct dialog_state {
    image *pictures[DIALOG_SET.count]; // owned
    char *title;                       // owned
    i32 title_y;
    char *lines[std::size(LINE_Y)]; // owned, may be null
    u32 dialog_flags;
    ptr_array<button> *buttons; // owned
    button *hovered;
    char name_text[NAME_LIMIT + 1];
    i32 name_length;
    ptr_array<effect> *confetti; // owned
    bool unconfirmed;            // a completed run is not recorded yet
};
dialog_state dialog;

// --- Set-up --------------------------------------------------------------------------------------

// A text that memory is short for is left out.
void set_text(char **target, const char *text) {
    if (string_set(target, text) < 0)
        log_out_of_memory();
}

// Without the texts of the dialog before, which would ask another question.
void free_texts() {
    std::free(std::exchange(dialog.title, nullptr));
    for (char *&line : dialog.lines)
        std::free(std::exchange(line, nullptr));
}

void reset(const char *title) {
    free_texts();
    ptr_array_clear(dialog.buttons);
    dialog.dialog_flags &= ~(DIALOG_NAME_ENTRY | DIALOG_CELEBRATE);
    std::memset(dialog.name_text, 0, sizeof dialog.name_text);
    dialog.name_length = 0;
    dialog.hovered = nullptr;
    dialog.unconfirmed = false;
    set_text(&dialog.title, title);
    const text_size size = text_measure(title);
    dialog.title_y = 1 - size.height - size.top; // just above the window
}

void add_answers(button_callback yes, std::intptr_t yes_arg, screen_id no) {
    const i32 w = dialog.pictures[DIALOG_YES_BUTTON.first]->width;
    const i32 x = center_x(2 * w + ANSWER_GAP);
    button *second = add_button(dialog.buttons, dialog.pictures, DIALOG_NO_BUTTON, {x + w + ANSWER_GAP, ANSWER_Y},
                                request_screen, no); // comes first: of both keys at once its own counts
    button *first = add_button(dialog.buttons, dialog.pictures, DIALOG_YES_BUTTON, {x, ANSWER_Y}, yes, yes_arg);
    button_set_keys(first, SDLK_y);
    button_set_keys(second, SDLK_n);
}

void add_ok(i32 y, button_callback callback, std::intptr_t arg = 0) {
    const i32 x = center_x(dialog.pictures[DIALOG_YES_BUTTON.first]->width);
    button *ok = add_button(dialog.buttons, dialog.pictures, DIALOG_OK_BUTTON, {x, y}, callback, arg);
    button_set_keys(ok, SDLK_RETURN, SDLK_KP_ENTER);
}

// --- Answers -------------------------------------------------------------------------------------

void exit_confirmed(button *, std::intptr_t, std::intptr_t) {
    splash_layout_closing();
    screen_request(SCREEN_SPLASH);
}

void name_confirmed(button *, std::intptr_t next, std::intptr_t) {
    app_state_set_name(app, dialog.name_text[0] != '\0' ? dialog.name_text : "Anonymous");
    screen_request(static_cast<screen_id>(next));
}

void completion_confirmed(button *, std::intptr_t, std::intptr_t) {
    dialog_record_completed();
    score_log_show(app->board->type);
    screen_request(SCREEN_SCORE_LOG);
}

// --- Update --------------------------------------------------------------------------------------

void animate_title() {
    if ((dialog.dialog_flags & DIALOG_SLIDE_IN) != 0) {
        dialog.title_y += TITLE_SLIDE_STEP;
        if (dialog.title_y >= TITLE_LOW_Y) {
            dialog.title_y = TITLE_LOW_Y;
            dialog.dialog_flags &= ~DIALOG_SLIDE_IN;
            dialog.dialog_flags |= DIALOG_SETTLE;
        }
    } else if ((dialog.dialog_flags & DIALOG_SETTLE) != 0) {
        dialog.title_y -= TITLE_SETTLE_STEP;
        if (dialog.title_y <= TITLE_REST_Y) {
            dialog.title_y = TITLE_REST_Y;
            dialog.dialog_flags &= ~DIALOG_SETTLE;
        }
    }
}

// The character of the lowest key that went down and types one, or 0.
char typed_character() {
    for (i32 key = 0; key < key_count(); ++key)
        if (key_pressed(key) && key_char(key) != 0)
            return key_char(key);
    return 0;
}

void type_name() {
    const char c = typed_character();
    if (c == 0)
        return;
    if (take_flag(&dialog.dialog_flags, DIALOG_NAME_UNTOUCHED) && c != KEY_CHAR_RETURN) {
        dialog.name_text[0] = '\0';
        dialog.name_length = 0;
    }
    if (c == KEY_CHAR_BACKSPACE) {
        if (dialog.name_length > 0)
            dialog.name_text[--dialog.name_length] = '\0';
    } else if (c != KEY_CHAR_RETURN && dialog.name_length < NAME_LIMIT) {
        dialog.name_text[dialog.name_length++] = shift_held() ? char_upper(c) : c;
        dialog.name_text[dialog.name_length] = '\0';
    }
}

void press_by_key() {
    for (button *b : each(dialog.buttons)) {
        if (button_key_pressed(b)) {
            button_press(b);
            return;
        }
    }
}

void celebrate() {
    if (std::rand() % CONFETTI_ONE_IN == 0) {
        effect *piece = effect_create(EFFECT_CONFETTI);
        if (piece != nullptr && ptr_array_append(dialog.confetti, piece) < 0)
            effect_free(piece);
    }
    for (i32 i = 0; i < dialog.confetti->count; ++i) {
        effect *piece = dialog.confetti->items[i];
        effect_update(piece);
        if (effect_off_screen(piece)) {
            effect_free(piece);
            dialog.confetti->items[i] = nullptr;
        }
    }
    ptr_array_compact(dialog.confetti);
}

void draw_centred(const char *text, i32 y, rgb colour) {
    text_draw(text, 0, y, colour, TEXT_TRANSIENT | TEXT_CENTER_X);
}

} // namespace

void dialog_ask_exit() {
    reset("Exit program?");
    add_answers(exit_confirmed, 0, SCREEN_TITLE);
}

void dialog_ask_return_to_title() {
    reset("Return to the title screen?");
    add_answers(request_screen, SCREEN_TITLE, SCREEN_PLAY);
}

void dialog_enter_name(bool then_play) {
    reset("Enter your name");
    dialog.dialog_flags |= DIALOG_NAME_ENTRY;
    add_ok(NAME_OK_Y, name_confirmed, then_play ? SCREEN_PLAY : SCREEN_TITLE);
    if (app->player_name != nullptr) {
        std::strncpy(dialog.name_text, app->player_name, NAME_LIMIT);
        dialog.name_length = static_cast<i32>(std::strlen(dialog.name_text));
    }
}

void dialog_completed(i32 master_place, const char *message) {
    const bool master = master_place >= 0;
    reset("Congratulations");
    dialog.unconfirmed = true;
    if (master)
        dialog.dialog_flags |= DIALOG_CELEBRATE;
    const bool empty = message == nullptr || message[0] == '\0';
    set_text(&dialog.lines[0], message);
    if (master)
        set_text(&dialog.lines[1], "You have achieved a Master's score!");
    const i32 drop = (empty ? EMPTY_LINE_DROP : LINE_DROP) + (master ? SECOND_LINE_DROP : 0);
    add_ok(COMPLETED_OK_Y + drop, completion_confirmed);
}

void dialog_record_completed() {
    if (!std::exchange(dialog.unconfirmed, false))
        return;
    settings |= SETTINGS_COMPLETED;
    best_times_record(app->board->type, app->player_name, app->board->clock.seconds);
}

i32 dialog_init() {
    if (image_load_sequence(dialog.pictures, DIALOG_SET.count, DIALOG_SET.prefix) < 0)
        return -1;
    dialog.buttons = ptr_array_create<button>(button_free);
    dialog.confetti = ptr_array_create<effect>(effect_free);
    return dialog.buttons != nullptr && dialog.confetti != nullptr ? 1 : -1;
}

void dialog_enter() {
    cursor_select(CURSOR_ARROW);
    dialog.dialog_flags &= DIALOG_NAME_ENTRY | DIALOG_CELEBRATE;
    dialog.dialog_flags |= DIALOG_FIRST_FRAME | DIALOG_SLIDE_IN;
    if ((dialog.dialog_flags & DIALOG_NAME_ENTRY) != 0)
        dialog.dialog_flags |= DIALOG_NAME_UNTOUCHED;
    dialog.hovered = nullptr;
    ptr_array_clear(dialog.confetti);
}

void dialog_update() {
    animate_title();
    if ((dialog.dialog_flags & DIALOG_ENTRANCE) == 0) {
        buttons_follow_mouse(&dialog.hovered, button_tick_and_find(dialog.buttons, mouse_x, mouse_y));
        if ((dialog.dialog_flags & DIALOG_NAME_ENTRY) != 0)
            type_name();
        press_by_key();
        if (dialog.buttons->count == 0) // memory was short for them
            screen_request(SCREEN_TITLE);
    }
    if ((dialog.dialog_flags & DIALOG_CELEBRATE) != 0)
        celebrate();
}

void dialog_draw() {
    if (take_flag(&dialog.dialog_flags, DIALOG_FIRST_FRAME)) {
        draw_darken_bg(WHOLE_SCREEN);
        draw_restore(WHOLE_SCREEN);
    }
    for (const effect *piece : each(dialog.confetti))
        effect_draw(piece);
    if ((dialog.dialog_flags & DIALOG_ENTRANCE) == 0) {
        draw_buttons(dialog.buttons);
        if ((dialog.dialog_flags & DIALOG_NAME_ENTRY) != 0)
            draw_centred(dialog.name_text, NAME_Y, YELLOW);
        for (std::size_t i = 0; i < std::size(LINE_Y); ++i)
            draw_centred(dialog.lines[i], LINE_Y[i], YELLOW);
    }
    draw_centred(dialog.title, dialog.title_y, WHITE);
}

void dialog_shutdown() {
    free_texts();
    ptr_array_destroy(dialog.buttons);
    image_free_array(dialog.pictures, DIALOG_SET.count);
    ptr_array_destroy(dialog.confetti);
    dialog = {};
}
