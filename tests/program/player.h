// player.h: plays the whole program, from start-up to exit, in a child process with a scripted player in virtual
// time. The script runs in a thread of its own that takes turns with the main loop: exactly one of the two runs,
// so the script may look at the game's state and set the fake devices without a lock.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/screen_id.h"
#include "core/types.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <functional>
#include <string>

struct board;
struct sprite;

// A temporary game folder with the real archive in data/; bin/ is the working directory while it lives.
struct game_folder {
    game_folder();
    temp_game game;
    std::filesystem::path file(const std::string &name) const { return game.root / name; }
};

std::string file_text(const std::filesystem::path &path);                     // empty when there is none
void write_text(const std::filesystem::path &path, const std::string &bytes); // in place of what is there

// What the child process ended with.
struct game_result {
    int exit_code;    // -1: killed by a signal
    std::string said; // standard error
    std::string log;  // errorlog.log, of all runs in this folder
};

inline constexpr int SCRIPT_FAILED = 99; // exit code; the reason is in `said`

using script = std::function<void()>;
game_result play_game(const game_folder &folder, int depth, const script &player);

// --- For scripts ---------------------------------------------------------------------------------

void wait_frames(int count);                                                        // lets the game run
void until(const char *what, const std::function<bool()> &holds, int limit = 3000); // frames until it holds
void check(bool holds, const std::string &what);                                    // ends the game when it does not

void click(int x, int y);
void press(int key);
void mouse_down_at(int x, int y);
void mouse_up();
void move_mouse(int x, int y);
void type_text(const std::string &letters);
void hold_key(int key, bool down);
void drag(int from_x, int from_y, int to_x, int to_y);
void until_screen(screen_id id);

// --- The usual road, step by step ----------------------------------------------------------------

void leave_splash();                   // through the continue button to the title screen
void select_puzzle(int list_position); // on the title screen, until its picture stands
void study_selected();                 // to the study screen, help bubbles closed
void start_playing(const char *name);  // from the study screen through the name dialog; null keeps the name
void close_help();
void place_piece(sprite *piece);    // by dragging it from where it lies into its cell
void carry_to_cell(sprite *piece);  // moves the mouse, which holds the piece, to its cell and lets go
sprite *loose_piece(int skip = 0);  // the first piece that is not fixed yet, after skipping some; null for none
void finish_dialog_and_score_log(); // from the completion dialog to the title screen
void leave_program();               // from the title screen, through the exit dialog and the closing splash

board *the_board();
