// play.cpp: mouse and keys on the board, and the end of a run.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/play.h"

#include "core/base/app_state.h"
#include "core/base/puzzle_info.h"
#include "core/base/settings.h"
#include "core/base/strings.h"
#include "core/ui/screen.h"
#include "graphics/draw_list.h"
#include "graphics/render.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "puzzles/board.h"
#include "puzzles/board_draw.h"
#include "puzzles/board_update.h"
#include "puzzles/debug_actions.h"
#include "puzzles/deck.h"
#include "puzzles/placement.h"
#include "screens/common.h"
#include "screens/dialog.h"
#include "screens/title_pictures.h"
#include "sound/sound.h"
#include "sprites/sprite.h"

#include <SDL.h>
#include <algorithm>

namespace {

constexpr u32 PLAY_REDRAW = 0x1;       // draw the background layer again
constexpr u32 PLAY_DRAGGING = 0x2;     // the hovered piece is being dragged
constexpr u32 PLAY_NEW_RUN = 0x4;      // start a new run on enter
constexpr u32 PLAY_COMPLETED = 0x8;    // the completion dialog was opened; keep the finished board once
constexpr u32 PLAY_FIRST_FRAME = 0x10; // of a run; note the visit on the next update
constexpr u32 PLAY_BROKEN = 0x20;      // the board could not be loaded; on the way back to the title screen

constexpr rgb HOVER_A = {128, 128, 128}, HOVER_B = BLACK; // the hovered piece pulses between these
constexpr i32 SEND_HOME_SPEED = 700;                      // hundredths of a pixel a frame
constexpr i32 CLOCK_X = 760, CLOCK_Y = 550;
constexpr i32 BEGIN_BOTTOM = 595;

struct play_state {
    u32 play_flags;
    sprite *play_hover_piece; // under the mouse, or being dragged
    sprite *play_last_piece;  // dragged last
    button *play_hover_button;
    i32 play_drag_dx, play_drag_dy; // piece less mouse at the moment it was taken
};
play_state play;

void ask_return(button *, std::intptr_t, std::intptr_t) {
    dialog_ask_return_to_title();
    screen_request(SCREEN_DIALOG);
}

// --- Enter ---------------------------------------------------------------------------------------

bool start_new_run(board *b) {
    if (board_start(b, ask_return) < 0)
        return false;
    const image *web = title_image_web(BUTTON_LOOK_NORMAL);
    add_web_button(b->buttons, {COLUMN_RIGHT - web->width, COLUMN_BOTTOM - web->height});
    play.play_flags &= ~PLAY_NEW_RUN;
    play.play_flags |= PLAY_FIRST_FRAME;
    return true;
}

// --- Update --------------------------------------------------------------------------------------

void hover_piece(sprite *piece) {
    if (piece == play.play_hover_piece)
        return;
    if (play.play_hover_piece != nullptr)
        sprite_pulse_stop(play.play_hover_piece);
    play.play_hover_piece = piece;
    if (piece != nullptr)
        sprite_pulse(piece, HOVER_A, HOVER_B, 0);
}

void take_piece(const board *b, sprite *piece) {
    play.play_flags |= PLAY_DRAGGING;
    play.play_drag_dx = piece->x - mouse_x;
    play.play_drag_dy = piece->y - mouse_y;
    sprite_raise(piece);
    piece->flags |= SPRITE_HELD;
    piece->flags &= ~SPRITE_FOLLOW; // dragged, it would move twice as far as the mouse, and out of the window
    if (play.play_last_piece != nullptr && play.play_last_piece != piece && !board_has(b, BOARD_KEEP_DROPPED))
        sprite_send_home(play.play_last_piece, SEND_HOME_SPEED);
    play.play_last_piece = piece;
}

// A dragged piece that the deck has taken back, or that a shortcut has placed, is no longer the player's to move.
void let_go_of_inert_piece() {
    if ((play.play_flags & PLAY_DRAGGING) == 0 || (play.play_hover_piece->flags & SPRITE_INERT) == 0)
        return;
    play.play_flags &= ~PLAY_DRAGGING;
    hover_piece(nullptr);
}

// Whatever the grip, enough of the piece stays in the window to take it again.
i32 keep_in_view(i32 at, i32 size, i32 window) {
    const i32 seen = (size + 3) / 4;
    return std::clamp(at, seen - size, window - seen);
}

void drag(sprite *piece) {
    piece->x = keep_in_view(mouse_x + play.play_drag_dx, piece->w, SCREEN_WIDTH);
    piece->y = keep_in_view(mouse_y + play.play_drag_dy, piece->h, SCREEN_HEIGHT);
}

// Hovers, takes, drags and drops pieces; returns the cursor to show.
i32 update_pieces(board *b) {
    let_go_of_inert_piece();
    // A piece is taken only where the mouse is now: one that a fast mouse has left would be dragged from afar, out of
    // the window. One that is let go is dropped below, even when the mouse has left it in the meantime.
    if ((play.play_flags & PLAY_DRAGGING) == 0)
        hover_piece(board_piece_at(b, mouse_x, mouse_y));
    if (play.play_hover_piece == nullptr)
        return CURSOR_ARROW;
    if (!mouse_held(MOUSE_LEFT) || settings_help_showing()) {
        if ((play.play_flags & PLAY_DRAGGING) != 0)
            board_drop_piece(b, play.play_hover_piece);
        play.play_flags &= ~PLAY_DRAGGING;
        return CURSOR_OPEN_HAND;
    }
    if ((play.play_flags & PLAY_DRAGGING) == 0)
        take_piece(b, play.play_hover_piece);
    drag(play.play_hover_piece);
    return CURSOR_CLOSED_HAND;
}

void update_buttons(board *b) {
    buttons_follow_mouse(&play.play_hover_button, board_button_at(b, mouse_x, mouse_y));
    if (play.play_hover_button == nullptr && clicked())
        board_take_top_card(b, mouse_x, mouse_y);
}

struct debug_action {
    i32 key;
    void (*run)(board *b);
};

constexpr debug_action DEBUG_ACTIONS[] = {
    {SDLK_a, board_debug_reveal},
    {SDLK_w, board_debug_place_one},
    {SDLK_d, board_debug_place_most},
    {SDLK_c, board_debug_finish},
};

void update_debug(board *b) {
    if (!app_has(APP_DEBUG) || !ctrl_held())
        return;
    for (const debug_action &action : DEBUG_ACTIONS)
        if (key_pressed(action.key))
            action.run(b);
}

void complete(const board *b) {
    char *message = nullptr;
    string_printf(&message, "You have completed the %s puzzle.", puzzle_title(b->type));
    sound_play(SOUND_PUZZLE_COMPLETE);
    play.play_flags |= PLAY_COMPLETED;
    dialog_completed(board_master_rank(b), message);
    screen_request(SCREEN_DIALOG);
    std::free(message);
    render_wait_until_played(); // else this frame might be left out, and the dialog lie over a board without pieces
}

} // namespace

i32 play_init() {
    play = {};
    return 1;
}

void play_request_new_run() {
    play.play_flags |= PLAY_NEW_RUN;
}

void play_enter() {
    const u32 new_run = play.play_flags & PLAY_NEW_RUN;
    play = {};
    play.play_flags = new_run | PLAY_REDRAW;
    cursor_select(CURSOR_ARROW);
    cursor_show(true);
    board *b = app->board;
    if (board_prepare(app) < 0 || (new_run != 0 && !start_new_run(b))) {
        play.play_flags = PLAY_BROKEN;
        screen_request(SCREEN_TITLE);
        return;
    }
    // Nothing is hovered any more, also not what was when the screen was left.
    for (sprite *piece : each(b->pieces))
        sprite_pulse_stop(piece);
    for (button *each_button : each(b->buttons)) {
        button_release(each_button);
        button_unhover(each_button);
    }
}

void play_update() {
    if ((play.play_flags & PLAY_BROKEN) != 0)
        return;
    board *b = app->board;
    if (take_flag(&play.play_flags, PLAY_FIRST_FRAME) && first_visit(1u << b->type))
        board_show_help(b);
    cursor_select(update_pieces(b));
    if (play.play_hover_piece == nullptr)
        update_buttons(b);
    update_debug(b);
    board_update(b);
    if (board_is(b, BOARD_COMPLETE))
        complete(b);
}

void play_draw() {
    if ((play.play_flags & PLAY_BROKEN) != 0)
        return;
    const board *b = app->board;
    if (take_flag(&play.play_flags, PLAY_REDRAW)) {
        board_draw_background(b);
        draw_restore(WHOLE_SCREEN);
    }
    board_draw(b);
    draw_player_name(BLACK);
    if (take_flag(&play.play_flags, PLAY_COMPLETED)) {
        draw_store_bg(WHOLE_SCREEN);
        draw_restore(WHOLE_SCREEN);
    }
    if (app_has(APP_DEBUG))
        text_draw(b->clock.text, CLOCK_X, CLOCK_Y, BLACK, TEXT_TRANSIENT);
    if (!board_is(b, BOARD_CLOCK) && !settings_help_showing())
        draw_image(b->pictures.begin, center_x(b->pictures.begin->width), BEGIN_BOTTOM - b->pictures.begin->height,
                   true);
}
