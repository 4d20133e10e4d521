// score.cpp: draws the bar that sweeps down the score log and uncovers its rows.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "save.h"
#include "screens/picture_sets.h"
#include "sets.h"

namespace art {

// The screen clips the bar to its own rows and, over the upper table, to the left part of it, so the ends
// stay plain and only the line along the top fades out to both sides.
void make_score() {
    constexpr int WIDTH = 410, HEIGHT = 20;
    constexpr rgb TOP = hex(0x1A315B), LOW = hex(0x15284B), LINE = hex(0x6F92CC);
    constexpr double FADE = 0.12; // of the width, at each end
    canvas bar(WIDTH, HEIGHT);
    rounded_rect(bar, 0, 0, WIDTH, HEIGHT, 3);
    fill_gradient(bar, 0, 0, TOP, 0, HEIGHT, LOW);
    cairo_pattern_t *line = cairo_pattern_create_linear(0, 0, WIDTH, 0);
    for (const auto &[at, alpha] : {std::pair{0.0, 0.3}, {FADE, 1.0}, {1 - FADE, 1.0}, {1.0, 0.3}})
        cairo_pattern_add_color_stop_rgba(line, at, LINE.r, LINE.g, LINE.b, alpha);
    cairo_rectangle(bar, 2, 0, WIDTH - 4, 1);
    cairo_set_source(bar, line);
    cairo_fill(bar);
    cairo_pattern_destroy(line);
    save(bar, entry_of(SCORE_SET, 0), {.dither = true});
}

} // namespace art
