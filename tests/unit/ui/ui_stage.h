// ui_stage.h: buttons, help and screens without a window: scripted input, sounds written down, commands read back.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/app_state.h"
#include "core/settings.h"
#include "graphics/draw_ops.h"
#include "support/fake_sdl.h"

#include <gtest/gtest.h>

#include <vector>

// What the ui asked of the sound module.
extern std::vector<i32> sounds_played;
extern int sound_updates;

struct recorded_command {
    draw_opcode id;
    std::vector<u8> operands;
};

// One a test: an idle render thread, input and the global record.
struct ui_stage {
    fake_scope fakes;
    app_state state = {};

    ui_stage();
    ~ui_stage();

    // The commands of this frame and of the next one, since the last forget.
    static std::vector<recorded_command> now();
    static std::vector<recorded_command> next();
    static void forget();
};

// The operands of all commands of one kind, in order.
template <draw_opcode id> auto all_of(const std::vector<recorded_command> &commands) {
    std::vector<typename operands_of<id>::type> found;
    for (const recorded_command &command : commands)
        if (command.id == id)
            std::memcpy(&found.emplace_back(), command.operands.data(), command.operands.size());
    return found;
}

inline bool operator==(const rect &a, const rect &b) {
    return a.x == b.x && a.y == b.y && a.w == b.w && a.h == b.h;
}
