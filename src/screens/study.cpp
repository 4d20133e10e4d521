// study.cpp: the complete board, its text and its buttons.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/study.h"

#include "core/base/app_state.h"
#include "core/base/screen_id.h"
#include "core/base/settings.h"
#include "core/base/strings.h"
#include "core/ui/button.h"
#include "core/ui/help.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "persist/best_times.h"
#include "puzzles/board.h"
#include "puzzles/study.h"
#include "resources/archive.h"
#include "screens/common.h"
#include "screens/dialog.h"
#include "screens/play.h"
#include "screens/title_pictures.h"

namespace {

// Places in the set; each is followed by its hover and pressed picture.
enum study_picture : i32 {
    PICTURE_BACK = 0,
    PICTURE_HELP = 3,
    PICTURE_CLEAR = 6,
    PICTURE_FILL = 9,
    PICTURE_PLAY = 12,
    PICTURE_COUNT = 15
};

constexpr i32 WEB_X = 5;
constexpr i32 TEXT_WIDTH = 510, TEXT_Y = 595;

constexpr u32 STUDY_REDRAW = 0x1; // draw the background again
constexpr u32 STUDY_BROKEN = 0x2; // the board could not be loaded; on the way back to the title screen

// The first one's heights count from the board's height.
constexpr help_row HELP_ROWS[] = {
    {"Click spaces on the board to place or remove pieces.", HELP_CENTRED, 30, 0, 1, {{378, 12, 402, -35}}},
    {"Use these buttons to fill or clear the board completely.", 390, 550, 100, 1, {{715, 535, 742, 486}}},
};

image *study_pictures[PICTURE_COUNT];
ptr_array<button> *buttons = nullptr;
button *hovered = nullptr;
u32 study_flags = 0;
char *study_text = nullptr; // owned; word-wrapped

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

// The column's buttons, from the bottom up in the order in which they are made.
struct column_button {
    study_picture picture;
    i32 n;
    button_callback callback;
    std::intptr_t arg;
};

constexpr column_button COLUMN[] = {
    {PICTURE_BACK, 1, request_screen, SCREEN_TITLE},
    {PICTURE_PLAY, 2, play_puzzle, 0},
    {PICTURE_HELP, 3, show_help, 0},
    {PICTURE_CLEAR, 4, clear_board, 0},
    {PICTURE_FILL, 5, fill_board, 0},
};

void build_buttons() {
    ptr_array_clear(buttons);
    add_web_button(buttons, WEB_X, COLUMN_BOTTOM - title_image_web(BUTTON_LOOK_NORMAL)->height);
    const i32 w = study_pictures[PICTURE_BACK]->width, h = study_pictures[PICTURE_BACK]->height;
    for (const column_button &row : COLUMN)
        button_add(buttons, study_pictures + row.picture, COLUMN_RIGHT - w, column_top(row.n, h), row.callback,
                   row.arg);
}

// --- Enter ---------------------------------------------------------------------------------------

// A text that cannot be read leaves the one of the previous visit.
void load_text(i32 type) {
    char *name = nullptr;
    if (string_printf(&name, "study%i.txt", type) >= 0)
        data_archive_read_text(&study_text, name);
    std::free(name);
    if (study_text != nullptr)
        text_wrap(study_text, TEXT_WIDTH);
}

void help_on_first_visit() {
    if (!app_has(APP_NAME_SET))
        return;
    player_record *player = player_find(app->player_name, true);
    if (player == nullptr || (player->seen & PLAYER_SEEN_STUDY) == 0)
        show_help(nullptr, 0, 0);
    if (player != nullptr)
        player->seen |= PLAYER_SEEN_STUDY;
}

} // namespace

i32 study_init() {
    if (image_load_sequence(study_pictures, PICTURE_COUNT, "study/") < 0)
        return -1;
    buttons = ptr_array_create<button>(button_free);
    study_flags = 0;
    return buttons != nullptr ? 1 : -1;
}

void study_enter() {
    cursor_select(CURSOR_ARROW);
    cursor_show(true);
    hovered = nullptr;
    if (board_prepare(app) < 0 || board_start(app->board) < 0) {
        study_flags = STUDY_BROKEN;
        screen_request(SCREEN_TITLE);
        return;
    }
    board_study_begin(app->board);
    load_text(app->board->type);
    build_buttons();
    study_flags = STUDY_REDRAW;
    help_on_first_visit();
}

void study_update() {
    if ((study_flags & STUDY_BROKEN) != 0)
        return;
    button_change_hover(&hovered, button_tick_and_find(buttons, mouse_x, mouse_y));
    const bool click = mouse_pressed(MOUSE_LEFT) && !settings_help_showing();
    if (hovered == nullptr) {
        if (click)
            board_study_toggle(app->board, mouse_x, mouse_y);
    } else if (click) {
        button_press(hovered);
    } else if (!mouse_held(MOUSE_LEFT)) {
        button_release(hovered);
    }
    board_update(app->board);
}

void study_draw() {
    if ((study_flags & STUDY_BROKEN) != 0)
        return;
    if ((study_flags & STUDY_REDRAW) != 0) {
        board_draw_background(app->board);
        if (study_text != nullptr)
            text_draw(study_text, center_x(text_measure(study_text).width), TEXT_Y, NAVY, TEXT_TO_BG);
        draw_restore(WHOLE_SCREEN);
        study_flags &= ~STUDY_REDRAW;
    }
    board_draw(app->board);
    for (const button *b : each(buttons))
        button_draw(b);
}

void study_shutdown() {
    image_free_array(study_pictures, PICTURE_COUNT);
    ptr_array_destroy(buttons);
    buttons = nullptr;
    hovered = nullptr;
    std::free(study_text);
    study_text = nullptr;
}
