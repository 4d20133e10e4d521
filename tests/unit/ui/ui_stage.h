// ui_stage.h: buttons, help and screens without a window: scripted input, sounds written down, commands read back.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/app_state.h"
#include "core/help.h"
#include "core/log.h"
#include "core/settings.h"
#include "input/input.h"
#include "support/fake_sdl.h"
#include "support/recording.h"

#include <gtest/gtest.h>

// One a test: an idle render thread, input, the global record and no help.
struct ui_stage {
    fake_scope fakes;
    app_state state = {};

    ui_stage() {
        log_set_mode(0);
        fake_keys_up();
        app = &state;
        EXPECT_TRUE(input_init() == 1 && help_init() == 1);
        sounds_played.clear();
        draw_queue.idle = true;
    }
    ~ui_stage() {
        help_shutdown();
        draw_queue_free();
        app = nullptr;
        input_shutdown();
        log_set_mode(LOG_STDERR);
    }
};
