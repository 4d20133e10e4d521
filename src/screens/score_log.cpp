// score_log.cpp: the show of best times, step by step.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/score_log.h"

#include "core/base/puzzle_info.h"
#include "core/ui/screen.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "persist/best_times.h"
#include "screens/common.h"
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

constexpr u32 LOG_REDRAW = 0x1; // draw the background again
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

struct score_log_state {
    image *panel[SCORE_SET.count]; // owned; what the bar shows
    highlight_bar bar;
    glyph_mover picture_mover, title_mover;
    i32 shown_puzzle; // a type
    i32 step;
    i32 countdown; // frames left in this step
    u32 log_flags;
};
score_log_state show;

// Where the puzzle's picture and, centred under it, its title stand.
struct places {
    point picture, title;
};

const image *shown_picture() {
    return title_image_picture(show.shown_puzzle);
}

places places_at(point corner, i32 title_y) {
    const i32 title_width = text_measure(puzzle_title(show.shown_puzzle)).width;
    return {corner, {centre_in(corner.x, shown_picture()->width, title_width), title_y}};
}

places title_screen_places() {
    const i32 top = PICTURE_CENTRE_Y - half(shown_picture()->height);
    return places_at({PICTURE_X, top}, top - TITLE_ABOVE);
}

places score_log_places() {
    const i32 height = shown_picture()->height, y = center_y(height);
    return places_at({LEFT_X, y - LEFT_RISE}, y + height - LEFT_TEXT_RISE);
}

i32 log_entries() {
    return best_times_for_puzzle(show.shown_puzzle)->log->count;
}

void score_log_leave() {
    const places there = title_screen_places();
    glyph_mover_send(&show.picture_mover, there.picture, GLIDE_STEPS);
    glyph_mover_send(&show.title_mover, there.title, GLIDE_STEPS);
    show.log_flags |= LOG_LEAVING;
    sound_play(SOUND_SCORE_LOG);
}

void skip_or_leave() {
    if ((show.log_flags & LOG_SHOW_FINISHED) != 0) {
        score_log_leave();
        return;
    }
    show.step = STEP_SKIPPED;
    show.bar.y = BAR_DONE_Y;
    show.bar.clip_h = 0;
    show.log_flags |= LOG_SHOW_FINISHED;
}

void end_step() {
    if (show.step == STEP_MASTERS_END && log_entries() == 0) {
        show.step = STEP_NO_LOG;
        show.log_flags |= LOG_SHOW_FINISHED;
        return;
    }
    const show_step &ended = SHOW[show.step];
    show.countdown = ended.next_length == BY_LOG ? FRAMES_A_ROW * (log_entries() - 1) : ended.next_length;
    if (ended.bar != nullptr) {
        show.bar = *ended.bar;
        sound_play(SOUND_SCORE_SHOW);
    }
    ++show.step;
}

void advance_show() {
    if (show.step >= STEP_FINISHED) {
        show.log_flags |= LOG_SHOW_FINISHED;
        return;
    }
    show.bar.clip_y += SHOW[show.step].clip_y;
    show.bar.y += SHOW[show.step].bar_y;
    show.bar.clip_h += SHOW[show.step].clip_h;
    if (--show.countdown <= 0)
        end_step();
}

void draw_time(i32 seconds, i32 y) {
    char text[TIME_SIZE];
    std::snprintf(text, sizeof text, "%i:%.2i", seconds / SECONDS_A_MINUTE, seconds % SECONDS_A_MINUTE);
    text_draw(text, TIME_COLUMN, y, WHITE, TEXT_TRANSIENT);
}

void draw_headings() {
    constexpr const char *PLACES[] = {"1st Place", "2nd Place", "3rd Place", "Master Time"};
    if (show.step >= STEP_HEADING)
        text_draw("Score Log", HEADING_COLUMN, HEADING_TEXT_Y, GREY, TEXT_TRANSIENT);
    for (i32 k = 0; k < MASTER_TIME_COUNT; ++k)
        if (show.step >= STEP_FIRST_PLACE + k)
            text_draw(PLACES[k], HEADING_COLUMN, MASTER_Y + ROW_PITCH * k, GREY, TEXT_TRANSIENT);
}

void draw_masters(const puzzle_scores *scores) {
    for (i32 k = 0; k < MASTER_PLACES; ++k) {
        if (show.bar.y >= MASTER_SHOWN_BAR_Y + ROW_PITCH * k) {
            text_draw(scores->master_name[k], NAME_COLUMN, MASTER_Y + ROW_PITCH * k, ORANGE, TEXT_TRANSIENT);
            draw_time(scores->master_time[k], MASTER_Y + ROW_PITCH * k);
        }
    }
    if (show.bar.y >= MASTER_SHOWN_BAR_Y + ROW_PITCH * MASTER_PLACES)
        draw_time(puzzle_mastered_time(show.shown_puzzle), MASTER_Y + ROW_PITCH * MASTER_PLACES);
}

void draw_log(const puzzle_scores *scores) {
    for (i32 i = 0; i < scores->log->count; ++i) {
        if (show.bar.y < LOG_SHOWN_BAR_Y + ROW_PITCH * i)
            return;
        const score_entry *entry = scores->log->items[i];
        const i32 y = LOG_Y + ROW_PITCH * i;
        text_draw(entry->date, HEADING_COLUMN, y, GREY, TEXT_TRANSIENT);
        text_draw(entry->name, NAME_COLUMN, y, ORANGE, TEXT_TRANSIENT);
        draw_time(entry->seconds, y);
    }
}

void draw_bar() {
    const rect area = {show.bar.x, show.bar.clip_y, show.bar.clip_w, show.bar.clip_h};
    draw_image_clipped(show.panel[0], show.bar.x, show.bar.y, area);
    draw_restore_next(area);
}

} // namespace

i32 score_log_init() {
    return image_load_sequence(show.panel, SCORE_SET.count, SCORE_SET.prefix);
}

void score_log_show(i32 puzzle) {
    show.shown_puzzle = puzzle;
    const places from = title_screen_places(), to = score_log_places();
    glyph_mover_start(&show.picture_mover, shown_picture(), from.picture, to.picture, GLIDE_STEPS);
    // The title is text; its mover borrows the picture only so that the slot counts as filled.
    glyph_mover_start(&show.title_mover, shown_picture(), from.title, to.title, GLIDE_STEPS);
}

void score_log_enter() {
    cursor_select(CURSOR_ARROW);
    show.log_flags = LOG_REDRAW;
    show.step = 0;
    show.countdown = FIRST_STEP_LENGTH;
}

void score_log_update() {
    if (show.step >= STEP_SKIPPABLE && click_or_key_pressed())
        skip_or_leave();
    glyph_mover_step(&show.picture_mover);
    glyph_mover_step(&show.title_mover);
    if ((show.log_flags & LOG_LEAVING) != 0 && glyph_mover_arrived(&show.picture_mover) &&
        glyph_mover_arrived(&show.title_mover))
        screen_request(SCREEN_TITLE);
    if ((show.log_flags & LOG_SHOW_FINISHED) == 0)
        advance_show();
}

void score_log_draw() {
    if (take_flag(&show.log_flags, LOG_REDRAW)) {
        draw_image_bg(title_image_background(), 0, 0);
        draw_restore(WHOLE_SCREEN);
    }
    draw_image(show.picture_mover.glyph, show.picture_mover.x, show.picture_mover.y, true);
    text_draw(puzzle_title(show.shown_puzzle), show.title_mover.x, show.title_mover.y, GREY, TEXT_TRANSIENT);
    if ((show.log_flags & LOG_LEAVING) != 0)
        return;
    draw_headings();
    const puzzle_scores *scores = best_times_for_puzzle(show.shown_puzzle);
    if (show.step >= STEP_BAR) {
        draw_bar();
        draw_masters(scores);
    }
    if (show.step >= STEP_LOG)
        draw_log(scores);
}

void score_log_shutdown() {
    image_free_array(show.panel, SCORE_SET.count);
}
