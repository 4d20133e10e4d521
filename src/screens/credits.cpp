// credits.cpp: the heading's way down and up, and the rows that it uncovers.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/credits.h"

#include "core/ui/screen.h"
#include "graphics/draw_list.h"
#include "graphics/text.h"
#include "input/input.h"
#include "screens/common.h"
#include "screens/title_pictures.h"
#include "sprites/glyph_mover.h"

#include <initializer_list>
#include <iterator>

namespace {

constexpr i32 STACK_BOTTOM = 597, STACK_GAP = 5;
constexpr i32 PLATES_WIDTH = 506, PLATES_BOTTOM = 550, PLATE_GAP = 10;
constexpr i32 DEVELOPED_Y = 543; // less the plates' height
constexpr i32 VERSION_Y = 194;

constexpr i32 LOW_Y = 500, HIGH_Y = 100; // bottom of the lowered heading, top of the risen one
constexpr i32 SINK_STEPS = 25, RISE_STEPS = 40, BACK_STEPS = 10, PAUSE = 40; // frames
constexpr i32 ROLE_OUTDENT = 40, NAME_OUTDENT = 40;                          // beyond the heading's right and left edge

constexpr u32 CREDITS_REDRAW = 0x1; // draw the background again
constexpr u32 CREDITS_RISING = 0x2; // or risen
constexpr u32 CREDITS_LEAVING = 0x4;

constexpr u8 GREEN_MAX = 128; // the names run between red and orange
constexpr rgb NAME_START[] = {{255, 0, 0}, {255, GREEN_MAX, 0}};

enum credited : i32 { NOBODY = -1, DEVELOPERS = 0, DESIGNERS = 1 };
constexpr const char *NAMES[] = {"The Tavimo developers", "The Tavimo designers"};

struct credit_row {
    const char *role;
    i32 y;
    credited person;
};
constexpr credit_row ROWS[] = {
    {"Art", 360, NOBODY},
    {"Sound", 340, NOBODY},
    {"Programming", 320, DEVELOPERS},
    {"Art", 280, NOBODY},
    {"Concept / Design", 260, DESIGNERS},
};

struct credits_state {
    image *credits_pictures[CREDITS_SET.count]; // owned
    glyph_mover heading_mover;
    u32 credits_flags;
    i32 pause; // frames left before rising
    i32 pulse; // of the colours, a frame
    rgb name_colours[std::size(NAMES)];
};
credits_state credits;

i32 heading_centre_x() {
    return center_x(title_image_heading()->width);
}

void rise() {
    glyph_mover_send(&credits.heading_mover, {heading_centre_x(), HIGH_Y}, RISE_STEPS);
    credits.credits_flags |= CREDITS_RISING;
}

bool risen() {
    return (credits.credits_flags & CREDITS_RISING) != 0 && glyph_mover_arrived(&credits.heading_mover);
}

void pulse_names() {
    credits.name_colours[0].g = static_cast<u8>(credits.name_colours[0].g + credits.pulse);
    credits.name_colours[1].g = static_cast<u8>(credits.name_colours[1].g - credits.pulse);
    if (credits.name_colours[0].g == GREEN_MAX || credits.name_colours[1].g == GREEN_MAX)
        credits.pulse = -credits.pulse;
}

void skip_or_leave() {
    if (risen()) {
        glyph_mover_send(&credits.heading_mover, {HEADING_X, HEADING_Y}, BACK_STEPS);
        credits.credits_flags &= ~CREDITS_RISING;
        credits.credits_flags |= CREDITS_LEAVING;
    } else {
        rise();
        glyph_mover_finish(&credits.heading_mover);
    }
}

void draw_rows() {
    const image *heading = title_image_heading();
    for (const credit_row &row : ROWS) {
        if (credits.heading_mover.y + heading->height >= row.y)
            continue;
        const i32 right = credits.heading_mover.x + heading->width + ROLE_OUTDENT;
        text_draw(row.role, right - text_measure(row.role).width, row.y, LIGHT_GREY, TEXT_TRANSIENT);
        if (row.person != NOBODY)
            text_draw(NAMES[row.person], credits.heading_mover.x - NAME_OUTDENT, row.y,
                      credits.name_colours[row.person], TEXT_TRANSIENT);
    }
}

void draw_stack() {
    i32 bottom = STACK_BOTTOM;
    for (const i32 k : {CREDITS_LOWEST_LINE, CREDITS_MIDDLE_LINE, CREDITS_UPPER_LINE}) {
        const image *line = credits.credits_pictures[k];
        draw_image(line, center_x(line->width), bottom - line->height, true);
        bottom -= line->height + STACK_GAP;
    }
}

void draw_plates() {
    i32 x = center_x(PLATES_WIDTH);
    i32 height = 0; // of the last one
    for (i32 k = 0; k < CREDITS_PLATES.count; ++k) {
        const image *plate = credits.credits_pictures[CREDITS_PLATES[k]];
        height = plate->height;
        draw_image(plate, x, PLATES_BOTTOM - height, true);
        x += plate->width + PLATE_GAP;
    }
    text_draw("Developed using", 0, DEVELOPED_Y - height, WHITE, TEXT_TRANSIENT | TEXT_CENTER_X);
}

} // namespace

i32 credits_init() {
    return image_load_sequence(credits.credits_pictures, CREDITS_SET.count, CREDITS_SET.prefix);
}

void credits_enter() {
    const image *heading = title_image_heading();
    glyph_mover_start(&credits.heading_mover, heading, {HEADING_X, HEADING_Y},
                      {heading_centre_x(), LOW_Y - heading->height}, SINK_STEPS);
    credits.credits_flags = CREDITS_REDRAW;
    credits.pause = PAUSE;
    credits.pulse = 1;
    credits.name_colours[0] = NAME_START[0];
    credits.name_colours[1] = NAME_START[1];
}

void credits_update() {
    glyph_mover_step(&credits.heading_mover);
    if ((credits.credits_flags & CREDITS_RISING) == 0 && glyph_mover_arrived(&credits.heading_mover)) {
        if ((credits.credits_flags & CREDITS_LEAVING) != 0)
            screen_request(SCREEN_TITLE);
        else if (--credits.pause == 0)
            rise();
    }
    if ((credits.credits_flags & CREDITS_LEAVING) != 0)
        return;
    pulse_names();
    if (click_or_key_pressed())
        skip_or_leave();
}

void credits_draw() {
    if (take_flag(&credits.credits_flags, CREDITS_REDRAW)) {
        draw_image_bg(title_image_background(), 0, 0);
        draw_restore(WHOLE_SCREEN);
    }
    draw_image(title_image_heading(), credits.heading_mover.x, credits.heading_mover.y, true);
    if ((credits.credits_flags & CREDITS_RISING) == 0)
        return;
    draw_rows();
    if (!risen())
        return;
    text_draw("Version " TAVIMO_VERSION, 0, VERSION_Y, LIGHT_GREY, TEXT_TRANSIENT | TEXT_CENTER_X);
    draw_stack();
    draw_plates();
}

void credits_shutdown() {
    image_free_array(credits.credits_pictures, CREDITS_SET.count);
}
