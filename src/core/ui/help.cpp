// help.cpp: the bubbles' frame schedule and drawing, and the debug mode's key sequence.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/ui/help.h"

#include "core/base/app_state.h"
#include "core/base/containers.h"
#include "core/base/settings.h"
#include "core/base/strings.h"
#include "graphics/draw_list.h"
#include "graphics/font.h"
#include "input/cursor.h"
#include "input/input.h"
#include "sound/sound.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr i32 FULL_BRIGHTNESS = 255;
constexpr i32 PULSE_STEP = -4; // colour change a frame
constexpr i32 PULSE_LOW = 185; // beyond these two the pulse turns
constexpr i32 PULSE_HIGH = 252;
constexpr i32 PULSE_FRAMES = 100;      // then a bubble stands still
constexpr i32 CLICK_DEAF_FRAMES = 10;  // clicks are ignored for so long
constexpr i32 BOX_MARGIN = 2;          // pixels around a text, as text_draw makes its box
constexpr i32 DEBUG_KEY_TIMEOUT = 200; // frames between two keys of the sequence

constexpr char DEBUG_KEYS[] = {'q', 'z', 'k', 'v', 'x', 'h', 'w', 'n', 'y', 'r', 't'}; // SDL key codes

// Main thread only.
ptr_array<help_bubble> *help_list = nullptr;
i32 help_frame = 0;      // frames since the help started
i32 help_last_start = 0; // largest start_frame in the list
i32 debug_index = 0;     // the next key expected
i32 debug_timeout = 0;   // frames until the progress is forgotten

void help_bubble_free(help_bubble *bubble) {
    std::free(bubble->text);
    std::free(bubble);
}

void bubble_pulse(help_bubble *bubble) {
    if ((bubble->bubble_flags & HELP_STEADY) != 0)
        return;
    bubble->red += bubble->pulse_step;
    bubble->green += bubble->pulse_step;
    bubble->blue += bubble->pulse_step;
    if (bubble->red < PULSE_LOW || bubble->red > PULSE_HIGH)
        bubble->pulse_step = -bubble->pulse_step;
}

void bubble_settle(help_bubble *bubble) {
    bubble->red = bubble->green = bubble->blue = FULL_BRIGHTNESS;
    bubble->pulse_step = PULSE_STEP;
    bubble->bubble_flags |= HELP_STEADY;
}

// Brings the next bubble at once, or ends the help after the last.
void help_advance() {
    if (help_frame >= help_last_start) {
        help_stop();
        return;
    }
    i32 next = help_last_start;
    for (const help_bubble *bubble : each(help_list))
        if (bubble->start_frame >= help_frame)
            next = std::min(next, bubble->start_frame);
    help_frame = next;
}

void help_step_bubbles() {
    ++help_frame;
    for (help_bubble *bubble : each(help_list)) {
        bubble_pulse(bubble);
        if (help_frame == bubble->start_frame + 1)
            sound_play(SOUND_SCORE_SHOW);
        if (help_frame >= bubble->start_frame + PULSE_FRAMES)
            bubble_settle(bubble);
    }
    if (help_frame > CLICK_DEAF_FRAMES && (mouse_pressed(MOUSE_LEFT) || first_pressed_key() != 0))
        help_advance();
}

// Other keys in between do not matter; only a pause starts the sequence over.
void debug_step() {
    if (key_pressed(DEBUG_KEYS[debug_index])) {
        debug_timeout = DEBUG_KEY_TIMEOUT;
        if (++debug_index == static_cast<i32>(std::size(DEBUG_KEYS))) {
            debug_index = 0;
            app->flags ^= APP_DEBUG;
            sound_play(SOUND_PIECE_DISAPPEAR);
        }
    } else if (debug_timeout > 0 && --debug_timeout == 0) {
        debug_index = 0;
    }
}

void bubble_draw(const help_bubble *bubble) {
    const rgb colour = {static_cast<u8>(bubble->red), static_cast<u8>(bubble->green), static_cast<u8>(bubble->blue)};
    text_draw(bubble->text, bubble->x, bubble->y, colour, TEXT_TRANSIENT | TEXT_DARKEN_TWICE);
    const text_size size = text_measure(bubble->text);
    draw_frame({bubble->x - BOX_MARGIN, bubble->y - size.height - BOX_MARGIN, size.width + 2 * BOX_MARGIN,
                size.height + size.top + 2 * BOX_MARGIN},
               WHITE, false);
    for (i32 i = 0; i < bubble->line_count; ++i) {
        const i32 x0 = bubble->line_from_x[i], y0 = bubble->line_from_y[i];
        const i32 x1 = bubble->line_to_x[i], y1 = bubble->line_to_y[i];
        draw_line(x0, y0, x1, y1, NAVY, true);
        draw_restore_next({std::min(x0, x1), std::min(y0, y1), std::abs(x1 - x0) + 1, std::abs(y1 - y0) + 1});
    }
}

} // namespace

i32 help_init() {
    settings = 0;
    help_frame = help_last_start = 0;
    debug_index = debug_timeout = 0;
    help_list = ptr_array_create<help_bubble>(help_bubble_free);
    return help_list != nullptr ? 1 : -1;
}

void help_shutdown() {
    ptr_array_destroy(help_list);
    help_list = nullptr;
}

help_bubble *help_bubble_create() {
    auto *bubble = static_cast<help_bubble *>(std::calloc(1, sizeof(help_bubble)));
    if (bubble == nullptr) {
        log_out_of_memory();
        return nullptr;
    }
    bubble->red = bubble->green = bubble->blue = FULL_BRIGHTNESS;
    bubble->pulse_step = PULSE_STEP;
    return bubble;
}

void help_clear() {
    help_frame = help_last_start = 0;
    ptr_array_clear(help_list);
    settings &= ~SETTINGS_HELP;
}

void help_add(help_bubble *bubble) {
    if (ptr_array_append(help_list, bubble) < 0) {
        help_bubble_free(bubble);
        return;
    }
    help_last_start = std::max(help_last_start, bubble->start_frame);
}

void help_start() {
    settings |= SETTINGS_HELP;
}

void help_stop() {
    settings &= ~SETTINGS_HELP;
}

void help_add_row(const help_row &row) {
    help_bubble *bubble = help_bubble_create();
    if (bubble == nullptr)
        return;
    if (string_set(&bubble->text, row.text) < 0) {
        log_out_of_memory();
        help_bubble_free(bubble);
        return;
    }
    bubble->x = row.x;
    bubble->y = row.y;
    bubble->start_frame = row.start_frame;
    bubble->line_count = row.line_count;
    for (i32 i = 0; i < row.line_count; ++i) {
        bubble->line_from_x[i] = row.lines[i].from_x;
        bubble->line_from_y[i] = row.lines[i].from_y;
        bubble->line_to_x[i] = row.lines[i].to_x;
        bubble->line_to_y[i] = row.lines[i].to_y;
    }
    help_add(bubble);
}

void help_step() {
    if (settings_help_showing())
        help_step_bubbles();
    debug_step();
}

void help_draw() {
    cursor_draw();
    if (!settings_help_showing())
        return;
    for (const help_bubble *bubble : each(help_list))
        if (bubble->start_frame <= help_frame)
            bubble_draw(bubble);
}
