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

using operation = void (*)();

// Main thread only.
screen_id current = SCREEN_NONE;
screen_id next = SCREEN_NONE;
bool full_redraw = false; // the next recorded frame first restores the whole window

const screen_operations *screens = nullptr; // borrowed from screen_init_all

// The current screen's per-frame operations.
operation current_update, current_draw, current_tick, current_late;

void run(operation step) {
    if (step != nullptr)
        step();
}

} // namespace

void screen_request(screen_id id) {
    next = id;
}

void screen_request_redraw() {
    full_redraw = true;
}

screen_id screen_current() {
    return current;
}

i32 screen_init_all(const screen_operations &table) {
    screens = &table;
    for (auto *init : screens->init)
        if (init != nullptr && init() < 0)
            return -1;
    screen_request(SCREEN_SPLASH);
    screen_activate(SCREEN_SPLASH);
    current = SCREEN_SPLASH;
    return 1;
}

void screen_activate(screen_id id) {
    current_update = screens->update[id];
    current_draw = screens->draw[id];
    current_tick = screens->tick[id];
    current_late = screens->late[id];
    run(screens->enter[id]);
    full_redraw = true;
}

void screen_tick() {
    run(current_tick);
}

void screen_update() {
    input_poll();
    run(current_update);
    help_step();
}

void screen_draw() {
    if (render_begin_frame()) {
        if (full_redraw) {
            draw_restore(WHOLE_SCREEN);
            full_redraw = false;
        }
        run(current_draw);
        help_draw();
    }
    render_end_frame();
}

void screen_end_frame() {
    run(current_late);
    if (next != current) {
        help_stop();
        run(screens->leave[current]);
        current = next;
        screen_activate(current);
    }
    sound_update();
}

void screen_shutdown_all() {
    if (screens == nullptr)
        return;
    for (auto *shutdown : screens->shutdown)
        run(shutdown);
    screens = nullptr;
    current = next = SCREEN_NONE;
    current_update = current_draw = current_tick = current_late = nullptr;
}
