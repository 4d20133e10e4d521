// app_state.cpp: the few operations on the global record. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/app_state.h"

#include "core/base/log.h"
#include "core/base/strings.h"

i32 app_state_set_name(app_state *state, const char *name) {
    if (string_set(&state->player_name, name) < 0) {
        log_out_of_memory();
        return -1;
    }
    state->flags |= APP_NAME_SET;
    return 1;
}

void app_state_select_puzzle(app_state *state, i32 index) {
    state->puzzle = index;
}

void app_request_quit() {
    app->flags |= APP_QUIT;
}

void app_quit_to_web_page() {
    app->flags |= APP_QUIT | APP_OPEN_WEB_PAGE;
}
