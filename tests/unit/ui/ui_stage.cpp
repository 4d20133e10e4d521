// ui_stage.cpp: the stage, and the sound module's stand-in.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "unit/ui/ui_stage.h"

#include "core/log.h"
#include "graphics/draw_queue.h"
#include "input/input.h"
#include "sound/sound.h"

std::vector<i32> sounds_played;
int sound_updates;

void sound_play(i32 number) {
    sounds_played.push_back(number);
}

void sound_update() {
    ++sound_updates;
}

ui_stage::ui_stage() {
    log_set_mode(0);
    fake_keys_up();
    EXPECT_EQ(input_init(), 1);
    app = &state;
    settings = 0;
    sounds_played.clear();
    sound_updates = 0;
    draw_queue.idle = true;
}

ui_stage::~ui_stage() {
    draw_queue_free();
    app = nullptr;
    input_shutdown();
    log_set_mode(LOG_STDERR);
}

static std::vector<recorded_command> read_back(const draw_block &list) {
    std::vector<recorded_command> commands;
    for (i32 at = 0; at < list.length;) {
        const draw_command &command = DRAW_COMMANDS[list.bytes[at]];
        const u8 *operands = list.bytes + at + 1;
        commands.push_back({command.id, {operands, operands + command.size}});
        at += 1 + command.size;
    }
    return commands;
}

std::vector<recorded_command> ui_stage::now() {
    return read_back(draw_queue.lists[draw_queue.recording]);
}

std::vector<recorded_command> ui_stage::next() {
    return read_back(draw_queue.lists[draw_queue.recording ^ 1]);
}

void ui_stage::forget() {
    draw_queue.lists[0].length = draw_queue.lists[1].length = 0;
}
