// wipes.cpp: opening a picture from the centre, drawn directly.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/wipes.h"

#include "graphics/direct.h"
#include "graphics/dirty.h"
#include "graphics/render.h"
#include "screens/title_pictures.h"
#include "sound/sound.h"

#include <SDL.h>
#include <algorithm>

namespace {

constexpr i32 ALL_SHOWN = 2;                    // for render_pause: wait until all that was recorded is on the screen
constexpr u32 TABLE_PASS_MS = 20, PASS_MS = 10; // slower passes make wider steps
constexpr rect CENTRE = {SCREEN_WIDTH / 2, SCREEN_HEIGHT / 2, 1, 1};
constexpr rect CENTRE_LINE = {SCREEN_WIDTH / 2, 0, 0, SCREEN_HEIGHT};

struct wipe_scope {
    wipe_scope() {
        sound_update(); // the click that led here is heard during the wipe
        render_pause(ALL_SHOWN);
    }
    ~wipe_scope() { render_resume(); }
    wipe_scope(const wipe_scope &) = delete;
    wipe_scope &operator=(const wipe_scope &) = delete;
};

// Whether the pass that began at *start took longer than `limit` ms; the next pass begins now.
bool pass_took_longer(u32 *start, u32 limit) {
    const u32 now = SDL_GetTicks();
    const bool longer = now - *start > limit;
    *start = now;
    return longer;
}

// Grows one axis of the opening by `step` on both sides; false when it fills the window already.
bool open_axis(i32 *start, i32 *length, i32 limit, i32 step) {
    if (*start <= 0)
        return false;
    *start = std::max(*start - step, 0);
    *length = std::min(*length + 2 * step, limit);
    return true;
}

// Shows what has been drawn on the screen through an opening that grows to the window: in each pass the edges that it
// gains.
void reveal(rect opening, u32 pass_limit) {
    i32 step = 1;
    u32 pass_start = SDL_GetTicks();
    for (;;) {
        const bool wider = open_axis(&opening.x, &opening.w, SCREEN_WIDTH, step);
        const bool higher = open_axis(&opening.y, &opening.h, SCREEN_HEIGHT, step);
        if (!wider && !higher)
            return;
        if (pass_took_longer(&pass_start, pass_limit))
            ++step;
        if (higher) {
            dirty_add(opening.x, opening.y, opening.w, step);
            dirty_add(opening.x, opening.y + opening.h - step, opening.w, step);
        }
        if (wider) {
            dirty_add(opening.x, opening.y, step, opening.h);
            dirty_add(opening.x + opening.w - step, opening.y, step, opening.h);
        }
        dirty_flush();
    }
}

} // namespace

void wipe_to_study() {
    const wipe_scope wipe;
    direct_image(title_image(TITLE_TABLE), 0, 0);
    reveal(CENTRE, TABLE_PASS_MS);
    direct_image(title_image_background(), 0, 0);
    reveal(CENTRE, PASS_MS);
}

void wipe_to_black() {
    const wipe_scope wipe;
    direct_store_background(WHOLE_SCREEN);
    screen_show_background(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
    dirty_add(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
    dirty_flush();
    direct_fill(WHOLE_SCREEN, BLACK);
    reveal(CENTRE_LINE, PASS_MS);
}
