// help.cpp: the bubbles' frame schedule and drawing, and the debug mode's key sequence.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/ui/help.h"

#include "core/base/app_state.h"
#include "core/base/settings.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/cursor.h"
#include "input/input.h"
#include "sound/sound.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

constexpr i32 FULL_BRIGHTNESS = 255;
constexpr i32 PULSE_STEP = -4; // colour change a frame
constexpr i32 PULSE_LOW = 185; // beyond these two the pulse turns
constexpr i32 PULSE_HIGH = 252;
constexpr i32 PULSE_FRAMES = 100;      // then a bubble stands still
constexpr i32 CLICK_DEAF_FRAMES = 10;  // clicks are ignored for so long
constexpr i32 RIGHT_EDGE = 775;        // pixels
constexpr i32 BOX_MARGIN = 2;          // pixels around a text, as text_draw makes its box
constexpr i32 DEBUG_KEY_TIMEOUT = 200; // frames between two keys of the sequence

constexpr char DEBUG_KEYS[] = {'q', 'z', 'k', 'v', 'x', 'h', 'w', 'n', 'y', 'r', 't'}; // SDL key codes

struct help_bubble {
    help_row row;     // its x resolved
    i32 grey;         // of the text
    i32 pulse_step;   // change of it a frame
    u32 bubble_flags; // HELP_STEADY
};
constexpr u32 HELP_STEADY = 0x1; // pulsing has stopped

struct help_state {
    help_bubble help_list[HELP_BUBBLES];
    i32 help_count;
    i32 help_frame;      // frames since the help started
    i32 help_last_start; // largest start_frame in the list
    i32 debug_index;     // the next key expected
    i32 debug_timeout;   // frames until the progress is forgotten
};
help_state help;

std::span<help_bubble> bubbles() {
    return {help.help_list, static_cast<std::size_t>(help.help_count)};
}

void add(const help_row &row) {
    if (help.help_count == HELP_BUBBLES)
        return;
    help_bubble &bubble = help.help_list[help.help_count++];
    bubble = {row, FULL_BRIGHTNESS, PULSE_STEP, 0};
    const i32 width = text_measure(row.text).width;
    if (row.x == HELP_CENTRED)
        bubble.row.x = center_x(width);
    else if (row.x == HELP_RIGHT_ALIGNED)
        bubble.row.x = RIGHT_EDGE - width;
    help.help_last_start = std::max(help.help_last_start, row.start_frame);
}

void bubble_pulse(help_bubble *bubble) {
    if ((bubble->bubble_flags & HELP_STEADY) != 0)
        return;
    bubble->grey += bubble->pulse_step;
    if (bubble->grey < PULSE_LOW || bubble->grey > PULSE_HIGH)
        bubble->pulse_step = -bubble->pulse_step;
}

void bubble_settle(help_bubble *bubble) {
    bubble->grey = FULL_BRIGHTNESS;
    bubble->bubble_flags |= HELP_STEADY;
}

// Brings the next bubble at once, or ends the help after the last.
void help_advance() {
    if (help.help_frame >= help.help_last_start) {
        help_stop();
        return;
    }
    i32 next = help.help_last_start;
    for (const help_bubble &bubble : bubbles())
        if (bubble.row.start_frame >= help.help_frame)
            next = std::min(next, bubble.row.start_frame);
    help.help_frame = next;
}

void help_step_bubbles() {
    ++help.help_frame;
    for (help_bubble &bubble : bubbles()) {
        bubble_pulse(&bubble);
        if (help.help_frame == bubble.row.start_frame + 1)
            sound_play(SOUND_SCORE_SHOW);
        if (help.help_frame >= bubble.row.start_frame + PULSE_FRAMES)
            bubble_settle(&bubble);
    }
    if (help.help_frame > CLICK_DEAF_FRAMES && click_or_key_pressed())
        help_advance();
}

// Other keys in between do not matter; only a pause starts the sequence over.
void debug_step() {
    if (key_pressed(DEBUG_KEYS[help.debug_index])) {
        help.debug_timeout = DEBUG_KEY_TIMEOUT;
        if (++help.debug_index == static_cast<i32>(std::size(DEBUG_KEYS))) {
            help.debug_index = 0;
            app->flags ^= APP_DEBUG;
            sound_play(SOUND_PIECE_DISAPPEAR);
        }
    } else if (help.debug_timeout > 0 && --help.debug_timeout == 0) {
        help.debug_index = 0;
    }
}

void bubble_draw(const help_bubble &bubble) {
    const help_row &row = bubble.row;
    const u8 grey = static_cast<u8>(bubble.grey);
    text_draw(row.text, row.x, row.y, {grey, grey, grey}, TEXT_TRANSIENT | TEXT_DARKEN_TWICE);
    const text_size size = text_measure(row.text);
    draw_frame({row.x - BOX_MARGIN, row.y - size.height - BOX_MARGIN, size.width + 2 * BOX_MARGIN,
                size.height + size.top + 2 * BOX_MARGIN},
               WHITE, false);
    for (i32 i = 0; i < row.line_count; ++i) {
        const auto &[x0, y0, x1, y1] = row.lines[i];
        draw_line(x0, y0, x1, y1, NAVY, true);
        draw_restore_next({std::min(x0, x1), std::min(y0, y1), std::abs(x1 - x0) + 1, std::abs(y1 - y0) + 1});
    }
}

} // namespace

i32 help_init() {
    settings = 0;
    help = {};
    return 1;
}

void help_show(std::span<const help_row> rows) {
    if (settings_help_showing())
        return;
    help.help_count = help.help_frame = help.help_last_start = 0;
    for (const help_row &row : rows)
        add(row);
    settings |= SETTINGS_HELP;
}

void help_stop() {
    settings &= ~SETTINGS_HELP;
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
    for (const help_bubble &bubble : bubbles())
        if (bubble.row.start_frame <= help.help_frame)
            bubble_draw(bubble);
}
