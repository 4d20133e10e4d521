// study.cpp: the complete board, its text and its buttons.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/study.h"

#include "core/base/app_state.h"
#include "core/ui/help.h"
#include "core/ui/screen.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "persist/best_times.h"
#include "puzzles/board.h"
#include "puzzles/board_draw.h"
#include "puzzles/board_update.h"
#include "puzzles/study.h"
#include "resources/archive.h"
#include "screens/common.h"
#include "screens/dialog.h"
#include "screens/play.h"
#include "screens/study_text.h"
#include "screens/title_pictures.h"

namespace {

constexpr i32 WEB_X = 5;

constexpr u32 STUDY_REDRAW = 0x1; // draw the background again
constexpr u32 STUDY_BROKEN = 0x2; // the board could not be loaded; on the way back to the title screen

// The first one's heights count from the board's height.
constexpr help_row HELP_ROWS[] = {
    {"Click spaces on the board to place or remove pieces.", HELP_CENTRED, 30, 0, 1, {{378, 12, 402, -35}}},
    {"Use these buttons to fill or clear the board completely.", 390, 550, 100, 1, {{715, 535, 742, 486}}},
};

struct study_state {
    image *study_pictures[STUDY_SET.count]; // owned
    ptr_array<button> *buttons;             // owned
    button *hovered;
    u32 study_flags;
    char *study_text; // owned; word-wrapped
};
study_state study;

// --- Buttons -------------------------------------------------------------------------------------

void play_puzzle(button *, std::intptr_t, std::intptr_t) {
    play_request_new_run();
    dialog_enter_name(true);
    screen_request(SCREEN_DIALOG);
}

void clear_board(button *, std::intptr_t, std::intptr_t) {
    board_study_clear(app->board);
}

void fill_board(button *, std::intptr_t, std::intptr_t) {
    board_study_fill(app->board);
}

void show_help(button *, std::intptr_t, std::intptr_t) {
    help_row rows[] = {HELP_ROWS[0], HELP_ROWS[1]};
    for (i32 *y : {&rows[0].y, &rows[0].lines[0].from_y, &rows[0].lines[0].to_y})
        *y += app->board->height;
    help_show(rows);
}

constexpr column_button COLUMN[] = {
    {STUDY_BACK_BUTTON, 1, request_screen, SCREEN_TITLE},
    {STUDY_PLAY_BUTTON, 2, play_puzzle, 0},
    {STUDY_HELP_BUTTON, 3, show_help, 0},
    {STUDY_CLEAR_BUTTON, 4, clear_board, 0},
    {STUDY_FILL_BUTTON, 5, fill_board, 0},
};

void build_buttons() {
    ptr_array_clear(study.buttons);
    add_web_button(study.buttons, {WEB_X, COLUMN_BOTTOM - title_image_web(BUTTON_LOOK_NORMAL)->height});
    add_column(study.buttons, study.study_pictures, STUDY_BACK_BUTTON.first, COLUMN);
}

// --- Enter ---------------------------------------------------------------------------------------

// A text that cannot be read leaves the one of the previous visit.
void load_text(i32 type) {
    data_archive_read_text(&study.study_text, STUDY_TEXTS[type]);
    text_wrap(study.study_text, STUDY_TEXT_WIDTH);
}

} // namespace

i32 study_init() {
    if (image_load_sequence(study.study_pictures, STUDY_SET.count, STUDY_SET.prefix) < 0)
        return -1;
    study.buttons = ptr_array_create<button>(button_free);
    return study.buttons != nullptr ? 1 : -1;
}

void study_enter() {
    cursor_select(CURSOR_ARROW);
    cursor_show(true);
    study.hovered = nullptr;
    if (board_prepare(app) < 0 || board_start(app->board, nullptr) < 0) {
        study.study_flags = STUDY_BROKEN;
        screen_request(SCREEN_TITLE);
        return;
    }
    board_study_begin(app->board);
    load_text(app->board->type);
    build_buttons();
    study.study_flags = STUDY_REDRAW;
    if (app_has(APP_NAME_SET) && first_visit(PLAYER_SEEN_STUDY))
        show_help(nullptr, 0, 0);
}

void study_update() {
    if ((study.study_flags & STUDY_BROKEN) != 0)
        return;
    buttons_follow_mouse(&study.hovered, button_tick_and_find(study.buttons, mouse_x, mouse_y));
    if (study.hovered == nullptr && clicked())
        board_study_toggle(app->board, mouse_x, mouse_y);
    board_update(app->board);
}

void study_draw() {
    if ((study.study_flags & STUDY_BROKEN) != 0)
        return;
    if (take_flag(&study.study_flags, STUDY_REDRAW)) {
        board_draw_background(app->board);
        text_draw(study.study_text, 0, STUDY_TEXT_Y, NAVY, TEXT_TO_BG | TEXT_CENTER_X);
        draw_restore(WHOLE_SCREEN);
    }
    board_draw(app->board);
    draw_buttons(study.buttons);
}

void study_shutdown() {
    image_free_array(study.study_pictures, STUDY_SET.count);
    ptr_array_destroy(study.buttons);
    std::free(study.study_text);
    study = {};
}
