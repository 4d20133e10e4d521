// app_state.h: the one global record: program-wide flags, the selected puzzle, the player's name, the board.
//
// The main thread owns it; the flags alone are also read by the render thread. The record is made and freed
// by start-up and exit (core/app/app.cpp), which also make and free the board.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <atomic>

struct board;

inline constexpr u32 APP_QUIT = 0x1;          // the main loop ends after this frame, the render thread after its pass
inline constexpr u32 APP_NAME_SET = 0x4;      // a player name exists
inline constexpr u32 APP_OPEN_WEB_PAGE = 0x8; // after shutdown the maker's web page is opened
inline constexpr u32 APP_DEBUG = 0x10;        // hidden debug mode

struct app_state {
    std::atomic<u32> flags;
    i32 puzzle;          // selected puzzle type, -1 none
    char *player_name;   // owned, may be null
    struct board *board; // owned
};

// The record; null before start-up has made it and after exit has freed it.
inline app_state *app = nullptr;

// Whether the flag is set; false while there is no record. Any thread.
inline bool app_has(u32 flag) {
    return app != nullptr && (app->flags.load() & flag) != 0;
}

i32 app_state_set_name(app_state *state, const char *name); // copies it, sets APP_NAME_SET; 1, or -1 (logged)
void app_state_select_puzzle(app_state *state, i32 index);  // a puzzle type
void app_request_quit();                                    // the program ends after this frame
void app_quit_to_web_page();                                // likewise, and then opens the maker's web page
