// score_log.cpp: the show of best times, step by step.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/score_log.h"

#include "core/base/puzzle_info.h"
#include "core/base/screen_id.h"
#include "core/base/strings.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "persist/best_times.h"
#include "screens/title_pictures.h"
#include "sound/sound.h"
#include "sprites/glyph_mover.h"

#include <cstdio>
#include <iterator>

namespace {

constexpr rgb GREY = {200, 200, 200}, ORANGE = {230, 190, 0};
constexpr i32 HEADING_COLUMN = 375, NAME_COLUMN = 520, TIME_COLUMN = 745;
constexpr i32 ROW_PITCH = 20;
constexpr i32 HEADING_TEXT_Y = 30, MASTER_Y = 60, LOG_Y = 175;
constexpr i32 MASTER_SHOWN_BAR_Y = 40, LOG_SHOWN_BAR_Y = 155; // the bar has uncovered the first row
constexpr i32 GLIDE_STEPS = 20;                               // frames
constexpr i32 LEFT_X = 10, LEFT_RISE = 40, LEFT_TEXT_RISE = 20;
constexpr i32 SECONDS_A_MINUTE = 60;
constexpr std::size_t TIME_SIZE = 32; // bytes of a time as text

// Steps of the show at which something appears.
constexpr i32 STEP_HEADING = 2, STEP_FIRST_PLACE = 3, STEP_BAR = 7, STEP_LOG = 14;
constexpr i32 STEP_SKIPPABLE = 2;    // from here on a click or key shows everything
constexpr i32 STEP_MASTERS_END = 11; // an empty log ends the show here
constexpr i32 STEP_FINISHED = 16, STEP_NO_LOG = 17, STEP_SKIPPED = 99;
constexpr i32 BAR_DONE_Y = 599; // everything is uncovered

constexpr u32 LOG_FIRST_FRAME = 0x1;
constexpr u32 LOG_SHOW_FINISHED = 0x2;
constexpr u32 LOG_LEAVING = 0x4;

// The bar picture is drawn at (x, y), shown only inside (x, clip_y, clip_w, clip_h).
struct highlight_bar {
    i32 x, clip_y, clip_w, clip_h, y;
};
constexpr highlight_bar MASTER_BAR = {520, 45, 260, 0, 45};
constexpr highlight_bar LOG_BAR = {370, 155, 410, 0, 155};

// What a step of the show does: the bar uncovers itself, sweeps down, and closes.
struct show_step {
    i32 clip_y, bar_y, clip_h; // pixels a frame
    i32 next_length;           // frames of the next step, or BY_LOG
    const highlight_bar *bar;  // starts with the next step; null for none
};
constexpr i32 BY_LOG = -1;            // as long as the bar takes from the first to the last log entry
constexpr i32 FIRST_STEP_LENGTH = 20; // frames
constexpr i32 FRAMES_A_ROW = 10;      // that the bar takes from row to row
// clang-format off
constexpr show_step SHOW[] = {
    // clip_y bar_y clip_h  next    bar
    {0,      0,     0,     20,     nullptr},
    {0,      0,     0,     20,     nullptr},
    {0,      0,     0,     10,     nullptr},
    {0,      0,     0,     10,     nullptr},
    {0,      0,     0,     10,     nullptr},
    {0,      0,     0,     10,     nullptr},
    {0,      0,     0,     10,     &MASTER_BAR},
    {0,      0,     2,     10,     nullptr},
    {2,      2,     0,     10,     nullptr},
    {2,      2,     0,     10,     nullptr},
    {2,      2,     0,     10,     nullptr},
    {2,      0,    -2,     40,     nullptr},
    {0,      0,     0,     10,     &LOG_BAR},
    {0,      0,     2,     BY_LOG, nullptr},
    {2,      2,     0,     10,     nullptr},
    {2,      0,    -2,     0,      nullptr},
};
// clang-format on
static_assert(std::size(SHOW) == STEP_FINISHED);

image *panel[1];
highlight_bar bar;
glyph_mover picture_mover, title_mover;
i32 shown_puzzle = 0;
i32 step = 0;
i32 countdown = 0; // frames left in this step
u32 log_flags = 0;

// Where the puzzle's picture and title stand on the title screen.
struct places {
    i32 picture_x, picture_y, title_x, title_y;
};

// The title keeps its distance from the picture's left edge, so that it stays centred under it.
i32 title_indent() {
    return title_image_picture(shown_puzzle)->width / 2 - text_measure(puzzle_title(shown_puzzle)).width / 2;
}

places title_screen_places() {
    const i32 half_height = title_image_picture(shown_puzzle)->height / 2;
    const i32 top = PICTURE_CENTRE_Y - half_height;
    return {PICTURE_X, top, PICTURE_X + title_indent(), top - TITLE_ABOVE};
}

i32 log_entries() {
    return best_times_for_puzzle(shown_puzzle)->log->count;
}

void score_log_leave() {
    const places there = title_screen_places();
    glyph_mover_start(&picture_mover, picture_mover.glyph, picture_mover.x, picture_mover.y, there.picture_x,
                      there.picture_y, GLIDE_STEPS);
    glyph_mover_start(&title_mover, title_mover.glyph, title_mover.x, title_mover.y, there.title_x, there.title_y,
                      GLIDE_STEPS);
    log_flags |= LOG_LEAVING;
    sound_play(SOUND_SCORE_LOG);
}

void skip_or_leave() {
    if ((log_flags & LOG_SHOW_FINISHED) != 0) {
        score_log_leave();
        return;
    }
    step = STEP_SKIPPED;
    bar.y = BAR_DONE_Y;
    bar.clip_h = 0;
    log_flags |= LOG_SHOW_FINISHED;
}

void end_step() {
    if (step == STEP_MASTERS_END && log_entries() == 0) {
        step = STEP_NO_LOG;
        log_flags |= LOG_SHOW_FINISHED;
        return;
    }
    const show_step &ended = SHOW[step];
    countdown = ended.next_length == BY_LOG ? FRAMES_A_ROW * (log_entries() - 1) : ended.next_length;
    if (ended.bar != nullptr) {
        bar = *ended.bar;
        sound_play(SOUND_SCORE_SHOW);
    }
    ++step;
}

void advance_show() {
    if (step >= STEP_FINISHED) {
        log_flags |= LOG_SHOW_FINISHED;
        return;
    }
    bar.clip_y += SHOW[step].clip_y;
    bar.y += SHOW[step].bar_y;
    bar.clip_h += SHOW[step].clip_h;
    if (--countdown <= 0)
        end_step();
}

void draw_time(i32 seconds, i32 y) {
    char text[TIME_SIZE];
    std::snprintf(text, sizeof text, "%i:%.2i", seconds / SECONDS_A_MINUTE, seconds % SECONDS_A_MINUTE);
    text_draw(text, TIME_COLUMN, y, WHITE, TEXT_TRANSIENT);
}

void draw_headings() {
    constexpr const char *PLACES[] = {"1st Place", "2nd Place", "3rd Place", "Master Time"};
    if (step >= STEP_HEADING)
        text_draw("Score Log", HEADING_COLUMN, HEADING_TEXT_Y, GREY, TEXT_TRANSIENT);
    for (i32 k = 0; k < MASTER_TIME_COUNT; ++k)
        if (step >= STEP_FIRST_PLACE + k)
            text_draw(PLACES[k], HEADING_COLUMN, MASTER_Y + ROW_PITCH * k, GREY, TEXT_TRANSIENT);
}

void draw_masters(const puzzle_scores *scores) {
    for (i32 k = 0; k < MASTER_PLACES; ++k) {
        if (bar.y >= MASTER_SHOWN_BAR_Y + ROW_PITCH * k) {
            text_draw(scores->master_name[k], NAME_COLUMN, MASTER_Y + ROW_PITCH * k, ORANGE, TEXT_TRANSIENT);
            draw_time(scores->master_time[k], MASTER_Y + ROW_PITCH * k);
        }
    }
    if (bar.y >= MASTER_SHOWN_BAR_Y + ROW_PITCH * MASTER_PLACES)
        draw_time(puzzle_master_time(shown_puzzle, MASTER_PLACES), MASTER_Y + ROW_PITCH * MASTER_PLACES);
}

void draw_log(const puzzle_scores *scores) {
    for (i32 i = 0; i < scores->log->count; ++i) {
        if (bar.y < LOG_SHOWN_BAR_Y + ROW_PITCH * i)
            return;
        const score_entry *entry = scores->log->items[i];
        const i32 y = LOG_Y + ROW_PITCH * i;
        text_draw(entry->date, HEADING_COLUMN, y, GREY, TEXT_TRANSIENT);
        text_draw(entry->name, NAME_COLUMN, y, ORANGE, TEXT_TRANSIENT);
        draw_time(entry->seconds, y);
    }
}

void draw_bar() {
    const rect area = {bar.x, bar.clip_y, bar.clip_w, bar.clip_h};
    draw_image_clipped(panel[0], bar.x, bar.y, area);
    draw_restore_next(area);
}

} // namespace

i32 score_log_init() {
    picture_mover = title_mover = {};
    return image_load_sequence(panel, 1, "score/");
}

void score_log_show(i32 puzzle) {
    shown_puzzle = puzzle;
    const image *picture = title_image_picture(puzzle);
    const places from = title_screen_places();
    const i32 y = center_y(picture->height);
    glyph_mover_start(&picture_mover, picture, from.picture_x, from.picture_y, LEFT_X, y - LEFT_RISE, GLIDE_STEPS);
    // The title is text; its mover borrows the picture only so that the slot counts as filled.
    glyph_mover_start(&title_mover, picture, from.title_x, from.title_y, LEFT_X + title_indent(),
                      y + picture->height - LEFT_TEXT_RISE, GLIDE_STEPS);
}

void score_log_enter() {
    cursor_select(CURSOR_ARROW);
    log_flags = LOG_FIRST_FRAME;
    step = 0;
    countdown = FIRST_STEP_LENGTH;
}

void score_log_update() {
    if (step >= STEP_SKIPPABLE && (mouse_pressed(MOUSE_LEFT) || first_pressed_key() != 0))
        skip_or_leave();
    glyph_mover_step(&picture_mover);
    glyph_mover_step(&title_mover);
    if ((log_flags & LOG_LEAVING) != 0 && glyph_mover_arrived(&picture_mover) && glyph_mover_arrived(&title_mover))
        screen_request(SCREEN_TITLE);
    if ((log_flags & LOG_SHOW_FINISHED) == 0)
        advance_show();
}

void score_log_draw() {
    if ((log_flags & LOG_FIRST_FRAME) != 0) {
        draw_image_bg(title_image_background(), 0, 0);
        draw_restore(WHOLE_SCREEN);
        log_flags &= ~LOG_FIRST_FRAME;
    }
    draw_image(picture_mover.glyph, picture_mover.x, picture_mover.y, true);
    text_draw(puzzle_title(shown_puzzle), title_mover.x, title_mover.y, GREY, TEXT_TRANSIENT);
    if ((log_flags & LOG_LEAVING) != 0)
        return;
    draw_headings();
    const puzzle_scores *scores = best_times_for_puzzle(shown_puzzle);
    if (step >= STEP_BAR) {
        draw_bar();
        draw_masters(scores);
    }
    if (step >= STEP_LOG)
        draw_log(scores);
}

void score_log_shutdown() {
    image_free_array(panel, 1);
}
