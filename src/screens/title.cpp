// title.cpp: choosing from the list, the picture slide and the column of buttons.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/title.h"

#include "core/base/app_state.h"
#include "core/base/puzzle_info.h"
#include "core/base/settings.h"
#include "core/ui/help.h"
#include "core/ui/screen.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "persist/best_times.h"
#include "screens/common.h"
#include "screens/dialog.h"
#include "screens/score_log.h"
#include "screens/title_pictures.h"
#include "screens/wipes.h"
#include "sound/sound.h"
#include "sprites/glyph_mover.h"

#include <SDL.h>
#include <algorithm>

namespace {

constexpr i32 NONE = -1;
constexpr i32 LIST_HIT_LEFT = 29, LIST_HIT_RIGHT = 211; // the list reacts between these two
constexpr i32 WEB_X = 227, WEB_Y = 121;
constexpr i32 SLIDE_STEPS = 10; // frames
constexpr i32 HINT_X = 450, HINT_Y = 200;
constexpr i32 MARK_X = 22, MARK_Y = 135;
constexpr i32 SUBHEADING_Y = 97;
constexpr u8 PULSE_LOW = 180, PULSE_HIGH = 250, PULSE_BLUE = 64;

constexpr u32 TITLE_REDRAW = 0x1;     // draw the background again
constexpr u32 TITLE_SLIDING = 0x2;    // a picture slide is running
constexpr u32 TITLE_FROM_LEFT = 0x4;  // direction of the next slide
constexpr u32 TITLE_SKIP_DRAW = 0x10; // the wipe's last picture stands until the study screen comes

constexpr help_row HELP_ROWS[] = {
    {"Click to select a puzzle.", 210, 115, 0, 1, {{217, 120, 186, 140}}},
    {"Use these buttons to study or play.", 476, 461, 100, 1, {{708, 458, 730, 484}}},
};

struct title_state {
    // List positions 0..10, NONE for none.
    i32 selected; // chosen by the player
    i32 shown;    // its picture stands in the picture area
    i32 pending;  // its picture is sliding in
    u32 title_flags;
    glyph_mover slide_out, slide_in;
    rect clip_out, clip_in;     // the picture area that each mover is clipped to
    ptr_array<button> *buttons; // owned
    button *hovered;
    button *escape_button;
    u32 mastered;  // bit t: the current player has a master's score in puzzle type t
    u8 pulse;      // red and green of the selected name
    i32 pulse_dir; // a frame
};
title_state title;

// --- Buttons -------------------------------------------------------------------------------------

void ask_name(button *, std::intptr_t, std::intptr_t) {
    dialog_enter_name(false);
    screen_request(SCREEN_DIALOG);
}

void ask_exit(button *, std::intptr_t, std::intptr_t) {
    dialog_ask_exit();
    screen_request(SCREEN_DIALOG);
}

void show_help(button *, std::intptr_t, std::intptr_t) {
    help_show(HELP_ROWS);
}

void study_selected(button *, std::intptr_t, std::intptr_t) {
    app_state_select_puzzle(app, PUZZLE_LIST_ORDER[title.selected]);
    wipe_to_study();
    title.title_flags |= TITLE_SKIP_DRAW;
    screen_request(SCREEN_STUDY);
}

void show_scores(button *, std::intptr_t, std::intptr_t) {
    sound_play(SOUND_SCORE_LOG);
    score_log_show(PUZZLE_LIST_ORDER[title.selected]);
    screen_request(SCREEN_SCORE_LOG);
}

constexpr column_button COLUMN[] = {
    {TITLE_CREDITS_BUTTON, 3, request_screen, SCREEN_CREDITS},
    {TITLE_NAME_BUTTON, 4, ask_name, 0},
    {TITLE_HELP_BUTTON, 2, show_help, 0},
    {TITLE_EXIT_BUTTON, 1, ask_exit, 0},
};
// Only while something is selected.
constexpr column_button SELECTION_COLUMN[] = {
    {TITLE_STUDY_BUTTON, 6, study_selected, 0},
    {TITLE_SCORES_BUTTON, 5, show_scores, 0},
};

void build_buttons() {
    ptr_array_clear(title.buttons);
    title.hovered = nullptr;
    add_web_button(title.buttons, {WEB_X, WEB_Y});
    title.escape_button = add_column(title.buttons, title_pictures(), TITLE_NAME_BUTTON.first, COLUMN);
    if (title.selected >= 0)
        add_column(title.buttons, title_pictures(), TITLE_NAME_BUTTON.first, SELECTION_COLUMN);
    title.mastered = app_has(APP_NAME_SET) ? player_mastered(app->player_name) : 0;
}

// --- Update --------------------------------------------------------------------------------------

// The list position asked for by mouse or arrow keys in this frame, NONE for none.
i32 candidate() {
    if (mouse_pressed(MOUSE_LEFT)) {
        const bool inside = mouse_x > LIST_HIT_LEFT && mouse_x < LIST_HIT_RIGHT && mouse_y >= LIST_Y;
        const i32 row = (mouse_y - LIST_Y) / LIST_PITCH;
        return inside && row < PUZZLE_COUNT ? row : NONE;
    }
    if (key_pressed(SDLK_DOWN))
        return title.selected < 0 ? 0 : std::min(title.selected + 1, PUZZLE_COUNT - 1);
    if (key_pressed(SDLK_UP))
        return title.selected < 0 ? PUZZLE_COUNT - 1 : std::max(title.selected - 1, 0);
    return NONE;
}

void choose() {
    const i32 row = candidate();
    if (row == NONE || settings_help_showing() || row == title.selected)
        return;
    title.selected = row;
    sound_play(SOUND_BOARD_SLIDE);
}

// Starts one picture's part of a slide; it begins and ends left of the picture area (-1), in it (0) or right of it (1).
void start_mover(glyph_mover *mover, rect *clip, i32 position, i32 from, i32 to) {
    const image *picture = title_image_picture(PUZZLE_LIST_ORDER[position]);
    const i32 w = picture->width, y = PICTURE_CENTRE_Y - half(picture->height);
    glyph_mover_start(mover, picture, {PICTURE_X + from * w, y}, {PICTURE_X + to * w, y}, SLIDE_STEPS);
    *clip = {PICTURE_X, y, w, picture->height};
}

void start_slide() {
    const i32 side = (title.title_flags & TITLE_FROM_LEFT) != 0 ? -1 : 1;
    if (title.shown >= 0)
        start_mover(&title.slide_out, &title.clip_out, title.shown, 0, -side);
    start_mover(&title.slide_in, &title.clip_in, title.selected, side, 0);
    title.title_flags |= TITLE_SLIDING;
    title.title_flags ^= TITLE_FROM_LEFT;
    title.pending = title.selected;
    build_buttons();
}

void slide() {
    if ((title.title_flags & TITLE_SLIDING) == 0) {
        if (title.selected != title.shown)
            start_slide();
        return;
    }
    bool moved = false;
    for (glyph_mover *mover : {&title.slide_out, &title.slide_in}) {
        if (!glyph_mover_arrived(mover)) {
            glyph_mover_step(mover);
            moved = true;
        }
    }
    if (!moved) {
        title.title_flags &= ~TITLE_SLIDING;
        title.shown = title.pending;
    }
}

void update_buttons() {
    if (buttons_follow_mouse(&title.hovered, button_tick_and_find(title.buttons, mouse_x, mouse_y)))
        return;
    if (key_pressed(SDLK_ESCAPE)) {
        help_stop();
        if (title.escape_button != nullptr)
            button_press(title.escape_button);
    }
}

void pulse_highlight() {
    title.pulse = static_cast<u8>(title.pulse + title.pulse_dir);
    if (title.pulse >= PULSE_HIGH)
        title.pulse_dir = -1;
    else if (title.pulse <= PULSE_LOW)
        title.pulse_dir = 1;
}

// --- Draw ----------------------------------------------------------------------------------------

void draw_background() {
    draw_image_bg(title_image_background(), 0, 0);
    for (i32 row = 0; row < PUZZLE_COUNT; ++row)
        draw_image_bg(title_image_plate(PUZZLE_LIST_ORDER[row]), LIST_X, LIST_Y + LIST_PITCH * row);
    const image *footer = title_image(TITLE_FOOTER);
    draw_image_bg(footer, center_x(footer->width), FOOTER_BOTTOM - footer->height);
    draw_restore(WHOLE_SCREEN);
}

void draw_list_rows() {
    for (i32 row = 0; row < PUZZLE_COUNT; ++row) {
        const i32 type = PUZZLE_LIST_ORDER[row];
        const rgb colour = row == title.selected ? rgb{title.pulse, title.pulse, PULSE_BLUE} : LIGHT_GREY;
        text_draw(puzzle_title(type), LIST_TEXT_X, LIST_TEXT_Y + LIST_PITCH * row, colour, TEXT_TRANSIENT);
        if ((title.mastered >> type & 1) != 0)
            draw_image(title_image(TITLE_MASTER_MARK), MARK_X, MARK_Y + LIST_PITCH * row, true);
    }
}

void draw_mover(const glyph_mover &mover, const rect &clip) {
    if (mover.glyph == nullptr)
        return;
    draw_image_clipped(mover.glyph, mover.x, mover.y, clip);
    draw_restore_next(clip);
}

void draw_picture_area() {
    const bool sliding = (title.title_flags & TITLE_SLIDING) != 0;
    if (title.shown < 0 && !sliding) {
        text_draw("Choose a puzzle", HINT_X, HINT_Y, LIGHT_GREY, TEXT_TRANSIENT);
        return;
    }
    draw_mover(title.slide_out, title.clip_out);
    draw_mover(title.slide_in, title.clip_in);
    if (sliding)
        return;
    const char *name = puzzle_title(PUZZLE_LIST_ORDER[title.shown]);
    const i32 x = centre_in(title.slide_in.x, title.slide_in.glyph->width, text_measure(name).width);
    text_draw(name, x, title.slide_in.y - TITLE_ABOVE, LIGHT_GREY, TEXT_TRANSIENT);
}

} // namespace

i32 title_init() {
    title = {};
    title.selected = title.shown = NONE;
    title.slide_out.flags = title.slide_in.flags = GLYPH_ARRIVED;
    title.buttons = ptr_array_create<button>(button_free);
    return title.buttons != nullptr ? title_pictures_load() : -1;
}

void title_enter() {
    cursor_select(CURSOR_ARROW);
    cursor_show(true);
    title.title_flags |= TITLE_REDRAW;
    title.pending = title.shown;
    build_buttons();
    title.pulse = PULSE_LOW;
    title.pulse_dir = 1;
}

void title_update() {
    choose();
    slide();
    update_buttons();
    pulse_highlight();
}

void title_draw() {
    if (take_flag(&title.title_flags, TITLE_SKIP_DRAW))
        return;
    if (take_flag(&title.title_flags, TITLE_REDRAW))
        draw_background();
    const image *heading = title_image_heading();
    const image *subheading = title_image(TITLE_SUBHEADING);
    draw_image(heading, HEADING_X, HEADING_Y, true);
    draw_image(subheading, centre_in(HEADING_X, heading->width, subheading->width), SUBHEADING_Y, true);
    draw_list_rows();
    draw_picture_area();
    draw_buttons(title.buttons);
    if (app_has(APP_NAME_SET))
        draw_player_name(YELLOW);
}

// A slide cut short is complete when the screen comes back.
void title_leave() {
    glyph_mover_finish(&title.slide_out);
    glyph_mover_finish(&title.slide_in);
    title.title_flags &= ~TITLE_SLIDING;
    title.shown = title.pending;
}

void title_shutdown() {
    title_pictures_free();
    ptr_array_destroy(title.buttons);
    title = {};
}
