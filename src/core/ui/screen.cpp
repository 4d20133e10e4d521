// screen.cpp: the current screen: its frame, and the change to the next one.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/ui/screen.h"

#include "core/ui/help.h"
#include "graphics/draw_list.h"
#include "graphics/render.h"
#include "input/input.h"
#include "sound/sound.h"

namespace {

struct screen_state {
    const screen_operations *table; // borrowed from screen_init_all
    screen_id current, next;
    bool full_redraw; // the next recorded frame first restores the whole window
};
constexpr screen_state NO_SCREEN = {nullptr, SCREEN_NONE, SCREEN_NONE, false};
screen_state screens = NO_SCREEN;

void run(void (*const operations[SCREEN_COUNT])()) {
    if (operations[screens.current] != nullptr)
        operations[screens.current]();
}

// Enters a screen at once, without leaving the current one.
void screen_activate(screen_id id) {
    screens.current = id;
    run(screens.table->enter);
    screens.full_redraw = true;
}

} // namespace

void screen_request(screen_id id) {
    screens.next = id;
}

void screen_request_redraw() {
    screens.full_redraw = true;
}

screen_id screen_current() {
    return screens.current;
}

i32 screen_init_all(const screen_operations &table) {
    screens.table = &table;
    for (auto *init : table.init)
        if (init != nullptr && init() < 0)
            return -1;
    screen_request(SCREEN_SPLASH);
    screen_activate(SCREEN_SPLASH);
    return 1;
}

void screen_tick() {
    run(screens.table->tick);
}

void screen_update() {
    input_poll();
    run(screens.table->update);
    help_step();
}

void screen_draw() {
    if (render_begin_frame()) {
        if (screens.full_redraw)
            draw_restore(WHOLE_SCREEN);
        screens.full_redraw = false;
        run(screens.table->draw);
        help_draw();
    }
    render_end_frame();
}

void screen_end_frame() {
    run(screens.table->late);
    if (screens.next != screens.current) {
        help_stop();
        run(screens.table->leave);
        screen_activate(screens.next);
    }
    sound_update();
}

void screen_shutdown_all() {
    if (screens.table == nullptr)
        return;
    for (auto *shutdown : screens.table->shutdown)
        if (shutdown != nullptr)
            shutdown();
    screens = NO_SCREEN;
}
