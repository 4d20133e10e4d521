// title.cpp: choosing from the list, the picture slide and the column of buttons.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/title.h"

#include "core/base/app_state.h"
#include "core/base/puzzle_info.h"
#include "core/base/screen_id.h"
#include "core/base/settings.h"
#include "core/ui/button.h"
#include "core/ui/help.h"
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

constexpr u32 TITLE_REBUILD = 0x1;    // rebuild the background at the next draw
constexpr u32 TITLE_SLIDING = 0x2;    // a picture slide is running
constexpr u32 TITLE_FROM_LEFT = 0x4;  // direction of the next slide
constexpr u32 TITLE_SKIP_DRAW = 0x10; // the wipe's last picture stands until the study screen comes

constexpr help_row HELP_ROWS[] = {
    {"Click to select a puzzle.", 210, 115, 0, 1, {{217, 120, 186, 140}}},
    {"Use these buttons to study or play.", 476, 461, 100, 1, {{708, 458, 730, 484}}},
};

// List positions 0..10, NONE for none.
i32 selected = NONE; // chosen by the player
i32 shown = NONE;    // its picture stands in the picture area
i32 pending = NONE;  // its picture is sliding in
u32 title_flags = 0;
glyph_mover slide_out, slide_in;
rect clip_out, clip_in; // the picture area that each mover is clipped to
ptr_array<button> *buttons = nullptr;
button *hovered = nullptr;
button *escape_button = nullptr;
u32 mastered = 0;     // bit t: the current player has a master's score in puzzle type t
u8 pulse = PULSE_LOW; // red and green of the selected name
i32 pulse_dir = 1;

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
    if (selected < 0 || selected >= PUZZLE_COUNT)
        return;
    app_state_select_puzzle(app, PUZZLE_LIST_ORDER[selected]);
    wipe_to_study();
    title_flags |= TITLE_SKIP_DRAW;
    screen_request(SCREEN_STUDY);
}

void show_scores(button *, std::intptr_t, std::intptr_t) {
    if (selected < 0 || selected >= PUZZLE_COUNT)
        return;
    sound_play(SOUND_SCORE_LOG);
    score_log_show(PUZZLE_LIST_ORDER[selected]);
    screen_request(SCREEN_SCORE_LOG);
}

// The column's buttons: the place of the normal, hover and pressed pictures, and the nth from the bottom.
struct column_button {
    i32 pictures[BUTTON_LOOK_COUNT];
    i32 n;
    bool needs_selection;
    button_callback callback;
    std::intptr_t arg;
};

constexpr i32 EXIT_PLACE = 1; // n of the exit button
constexpr column_button COLUMN[] = {
    {{43, 44, 45}, 3, false, request_screen, SCREEN_CREDITS},
    {{26, 32, 38}, 4, false, ask_name, 0},
    {{27, 33, 39}, 2, false, show_help, 0},
    {{28, 34, 40}, EXIT_PLACE, false, ask_exit, 0},
    {{55, 56, 57}, 6, true, study_selected, 0},
    {{25, 31, 37}, 5, true, show_scores, 0},
};
constexpr i32 SIZE_PICTURE = 26; // its size sets that of the whole column

void build_buttons() {
    ptr_array_clear(buttons);
    hovered = nullptr;
    escape_button = nullptr;
    add_web_button(buttons, WEB_X, WEB_Y);
    const i32 w = title_image(SIZE_PICTURE)->width, h = title_image(SIZE_PICTURE)->height;
    for (const column_button &row : COLUMN) {
        if (row.needs_selection && selected < 0)
            continue;
        const image *const pictures[] = {title_image(row.pictures[0]), title_image(row.pictures[1]),
                                         title_image(row.pictures[2])};
        button *b = button_add(buttons, pictures, COLUMN_RIGHT - w, column_top(row.n, h), row.callback, row.arg);
        if (row.n == EXIT_PLACE)
            escape_button = b;
    }
    mastered = app_has(APP_NAME_SET) ? player_mastered(app->player_name) : 0;
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
        return selected < 0 ? 0 : std::min(selected + 1, PUZZLE_COUNT - 1);
    if (key_pressed(SDLK_UP))
        return selected < 0 ? PUZZLE_COUNT - 1 : std::max(selected - 1, 0);
    return NONE;
}

void choose() {
    const i32 row = candidate();
    if (row == NONE || settings_help_showing() || row == selected)
        return;
    selected = row;
    sound_play(SOUND_BOARD_SLIDE);
}

const image *puzzle_picture(i32 position) {
    return title_image_picture(PUZZLE_LIST_ORDER[position]);
}

void start_slide() {
    const bool from_left = (title_flags & TITLE_FROM_LEFT) != 0;
    if (shown >= 0) {
        const image *old = puzzle_picture(shown);
        const i32 y = PICTURE_CENTRE_Y - half(old->height);
        const i32 end = from_left ? PICTURE_X + old->width : PICTURE_X - old->width;
        glyph_mover_start(&slide_out, old, PICTURE_X, y, end, y, SLIDE_STEPS);
        clip_out = {PICTURE_X, y, old->width, old->height};
    }
    const image *fresh = puzzle_picture(selected);
    const i32 y = PICTURE_CENTRE_Y - half(fresh->height);
    const i32 start = from_left ? PICTURE_X - fresh->width : PICTURE_X + fresh->width;
    glyph_mover_start(&slide_in, fresh, start, y, PICTURE_X, y, SLIDE_STEPS);
    clip_in = {PICTURE_X, y, fresh->width, fresh->height};
    title_flags |= TITLE_SLIDING;
    title_flags ^= TITLE_FROM_LEFT;
    pending = selected;
    build_buttons();
}

void slide() {
    if ((title_flags & TITLE_SLIDING) == 0) {
        if (selected != shown)
            start_slide();
        return;
    }
    bool moved = false;
    for (glyph_mover *mover : {&slide_out, &slide_in}) {
        if (!glyph_mover_arrived(mover)) {
            glyph_mover_step(mover);
            moved = true;
        }
    }
    if (!moved) {
        title_flags &= ~TITLE_SLIDING;
        shown = pending;
    }
}

void update_buttons() {
    button_change_hover(&hovered, button_tick_and_find(buttons, mouse_x, mouse_y));
    if (hovered != nullptr && mouse_pressed(MOUSE_LEFT) && !settings_help_showing()) {
        button_press(hovered);
        return;
    }
    if (hovered != nullptr && !mouse_held(MOUSE_LEFT))
        button_release(hovered);
    if (key_pressed(SDLK_ESCAPE)) {
        help_stop();
        if (escape_button != nullptr)
            button_press(escape_button);
    }
}

void pulse_highlight() {
    pulse = static_cast<u8>(pulse + pulse_dir);
    if (pulse >= PULSE_HIGH)
        pulse_dir = -1;
    else if (pulse <= PULSE_LOW)
        pulse_dir = 1;
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
        const rgb colour = row == selected ? rgb{pulse, pulse, PULSE_BLUE} : LIGHT_GREY;
        text_draw(puzzle_title(type), LIST_TEXT_X, LIST_TEXT_Y + LIST_PITCH * row, colour, TEXT_TRANSIENT);
        if ((mastered >> type & 1) != 0)
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
    const bool sliding = (title_flags & TITLE_SLIDING) != 0;
    if (shown < 0 && !sliding) {
        text_draw("Choose a puzzle", HINT_X, HINT_Y, LIGHT_GREY, TEXT_TRANSIENT);
        return;
    }
    draw_mover(slide_out, clip_out);
    draw_mover(slide_in, clip_in);
    if (sliding)
        return;
    const char *title = puzzle_title(PUZZLE_LIST_ORDER[shown]);
    const i32 x = slide_in.x + half(slide_in.glyph->width) - half(text_measure(title).width);
    text_draw(title, x, slide_in.y - TITLE_ABOVE, LIGHT_GREY, TEXT_TRANSIENT);
}

} // namespace

i32 title_init() {
    if (title_pictures_load() < 0)
        return -1;
    slide_out = slide_in = {};
    slide_out.flags = slide_in.flags = GLYPH_ARRIVED;
    clip_out = clip_in = {};
    selected = shown = NONE;
    title_flags = 0;
    buttons = ptr_array_create<button>(button_free);
    return buttons != nullptr ? 1 : -1;
}

void title_enter() {
    cursor_select(CURSOR_ARROW);
    cursor_show(true);
    title_flags |= TITLE_REBUILD;
    pending = shown;
    build_buttons();
    pulse = PULSE_LOW;
    pulse_dir = 1;
}

void title_update() {
    choose();
    slide();
    update_buttons();
    pulse_highlight();
}

void title_draw() {
    if ((title_flags & TITLE_SKIP_DRAW) != 0) {
        title_flags &= ~TITLE_SKIP_DRAW;
        return;
    }
    if ((title_flags & TITLE_REBUILD) != 0) {
        draw_background();
        title_flags &= ~TITLE_REBUILD;
    }
    const image *heading = title_image_heading();
    const image *subheading = title_image(TITLE_SUBHEADING);
    draw_image(heading, HEADING_X, HEADING_Y, true);
    draw_image(subheading, HEADING_X + half(heading->width) - half(subheading->width), SUBHEADING_Y, true);
    draw_list_rows();
    draw_picture_area();
    for (const button *b : each(buttons))
        button_draw(b);
    if (app_has(APP_NAME_SET))
        text_draw(app->player_name, PLAYER_NAME_X, PLAYER_NAME_Y, YELLOW, TEXT_TRANSIENT);
}

// A slide cut short is complete when the screen comes back.
void title_leave() {
    glyph_mover_finish(&slide_out);
    glyph_mover_finish(&slide_in);
    title_flags &= ~TITLE_SLIDING;
    shown = pending;
}

void title_shutdown() {
    title_pictures_free();
    ptr_array_destroy(buttons);
    buttons = nullptr;
    hovered = escape_button = nullptr;
}
