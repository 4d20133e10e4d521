// title_wipe.cpp: opening two pictures from the centre, drawn directly.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/title_wipe.h"

#include "graphics/direct.h"
#include "graphics/dirty.h"
#include "graphics/render.h"
#include "screens/common.h"
#include "screens/title_pictures.h"
#include "sound/sound.h"

#include <SDL.h>
#include <algorithm>

namespace {

constexpr u32 TABLE_PASS_MS = 20, BACKGROUND_PASS_MS = 10; // slower passes make wider steps

// Grows one axis of the opening by `step` on both sides; false when it fills the window already.
bool open_axis(i32 *start, i32 *length, i32 limit, i32 step) {
    if (*start <= 0)
        return false;
    *start = std::max(*start - step, 0);
    *length = std::min(*length + 2 * step, limit);
    return true;
}

// Shows what has been drawn on the screen through a rectangle that opens from the centre: the four edges that
// it gains in each pass.
void reveal_from_centre(u32 pass_limit) {
    rect area = {SCREEN_WIDTH / 2, SCREEN_HEIGHT / 2, 1, 1};
    i32 step = 1;
    u32 pass_start = SDL_GetTicks();
    for (;;) {
        const bool wider = open_axis(&area.x, &area.w, SCREEN_WIDTH, step);
        const bool higher = open_axis(&area.y, &area.h, SCREEN_HEIGHT, step);
        if (!wider && !higher)
            return;
        if (pass_took_longer(&pass_start, pass_limit))
            ++step;
        dirty_add(area.x, area.y, area.w, step);
        dirty_add(area.x, area.y + area.h - step, area.w, step);
        dirty_add(area.x, area.y, step, area.h);
        dirty_add(area.x + area.w - step, area.y, step, area.h);
        dirty_flush();
    }
}

} // namespace

void title_wipe_to_study() {
    sound_update();
    render_pause(RENDER_ALL_SHOWN);
    direct_image(title_image(TITLE_TABLE), 0, 0);
    reveal_from_centre(TABLE_PASS_MS);
    direct_image(title_image_background(), 0, 0);
    reveal_from_centre(BACKGROUND_PASS_MS);
    render_resume();
}
