// player.h: plays the whole program, from start-up to exit, in a child process with a scripted player in virtual
// time. The script runs in a thread of its own that takes turns with the main loop: exactly one of the two runs,
// so the script may look at the game's state and set the fake devices without a lock.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/screen_id.h"
#include "core/base/types.h"
#include "support/whole_program/places.h"
#include "support/whole_program/whole_program.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

struct board;
struct sprite;

// A temporary game folder with the real archive in data/; bin/ is the working directory while it lives.
struct game_folder {
    whole_game game;
    std::filesystem::path file(const std::string &name) const { return game.root / name; }
    std::string text(const std::string &name) const; // empty when there is no such file
    void write(const std::string &name, const std::string &text) const;
};

// What the child process ended with.
struct game_result {
    int exit_code;    // -1: killed by a signal
    std::string said; // standard error; its last line is "released" or "kept", what became of the game's memory
    std::string log;  // errorlog.log, of all runs in this folder
};

using script = std::function<void()>;
void take_turns(); // the script's turn in a frame
inline constexpr harness_calls WITH_RENDER_THREAD = {
    .frame = take_turns, .render_turn = nullptr, .render_thread = true};
game_result play_game(const game_folder &folder, int depth, const script &player,
                      const harness_calls &calls = WITH_RENDER_THREAD);

// --- For scripts ---------------------------------------------------------------------------------

void wait_frames(int count);                                                        // lets the game run
void until(const char *what, const std::function<bool()> &holds, int limit = 3000); // frames until it holds
void until_screen(screen_id id);
void check(bool holds, const std::string &what);   // ends the game when it does not hold
void exit_main_loop(int code);                     // the main thread calls exit in the middle of its next frame
std::vector<std::string> drawn_by(void (*draw)()); // the commands that the screen's or the help's drawing records

void move_mouse(int x, int y);
void mouse_down_at(int x, int y);
void mouse_up();
void click(int x, int y);
void drag(int from_x, int from_y, int to_x, int to_y);
void hold_key(int key, bool down);
void press(int key);
void type_text(const std::string &letters);

// --- The usual road, step by step ----------------------------------------------------------------

void leave_splash();                   // through the continue button to the title screen
void click_column(int n);              // the nth button from the bottom of the column on the title and study screen
void press_column(int n);              // likewise, without letting go
void select_puzzle(int list_position); // on the title screen, until its picture stands
void study_selected();                 // to the study screen
void start_playing(const char *name);  // from the study screen through the name dialog; null keeps the name
void close_help();                     // the bubbles one by one, each checked to stand whole on the screen
void visit_credits();                  // from the title screen and back
void leave_run();                      // by Escape and "yes", back to the title screen
void finish_dialog_and_score_log();    // from the completion dialog to the title screen
void leave_program();                  // from the title screen, through the exit dialog and the closing splash

sprite *loose_piece(int skip = 0); // the first piece that is not fixed yet, after skipping some; null for none
void place_piece(sprite *piece);   // by dragging it from where it lies into the cell that asks for it
void carry_to_cell(sprite *piece); // moves the mouse, which holds the piece, to that cell and lets go

void until_deck_rests();
void press_keypad(int place); // a keypad_place
void type_on_keypad(int number);

board *the_board();

// answers.cpp: whether what the piece's picture shows is what the cell under it asks. From the pictures and the
// mathematics, not from what the board knows; always true in a build without the programs that make the pictures.
bool answers_its_cell(const board &b, const sprite &piece);
