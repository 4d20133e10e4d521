// title_test.cpp: the ways from the title screen that the roads do not take, by keys and by buttons.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#include "core/base/app_state.h"
#include "core/base/settings.h"
#include "core/ui/screen.h"
#include "graphics/locks.h"
#include "graphics/render.h"
#include "input/input.h"
#include "puzzles/board.h"
#include "screens/play.h"
#include "screens/title.h"
#include "support/recording.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

constexpr int BACK = 1, HELP = 2, NAME = 4, SCORES = 5; // of the column, from the bottom
constexpr int FIRST = 0, FRACTIONS = 7, FACTORS = 8;    // types at the list's ends

// The help button, by a press that leaves it; the click after that comes too early for the bubbles.
void call_for_help() {
    move_mouse(0, 0);
    const lines untouched = drawn_by(title_draw);
    press_column(HELP);
    check(settings_help_showing() && drawn_by(title_draw) != untouched, "a pressed button");
    move_mouse(0, 0);
    check(drawn_by(title_draw) == untouched, "a button that the mouse leaves is up again");
    mouse_up();
    click_column(NAME);
    check(screen_current() == SCREEN_TITLE && settings_help_showing(), "no button takes a click while help shows");
}

// What the player is called after these keys in the name dialog.
std::string named_by(const std::function<void()> &keys) {
    click_column(NAME);
    until_screen(SCREEN_DIALOG);
    wait_frames(DIALOG_ENTRANCE);
    keys();
    hold_key(SDLK_KP_ENTER, true);
    check(screen_current() == SCREEN_TITLE, "the name dialog leads back where it was asked for");
    hold_key(SDLK_KP_ENTER, false);
    wait_frames(2);
    return app->player_name;
}

void choose_a_name() {
    check(named_by([] {}) == "Anonymous", "a name for those who give none");
    check(named_by([] { type_text("beny\b"); }) == "ben", "typing replaces the old name");
    check(named_by([] {}) == "ben", "the old name stands when nothing is typed");
    const std::string name = named_by([] {
        type_text("xy\b\b\b");
        hold_key(SDLK_LSHIFT, true);
        press(SDLK_a);
        hold_key(SDLK_LSHIFT, false);
        type_text("bcdefghijklmnopqrs");
    });
    check(name == "Abcdefghijklmnop", "sixteen characters, capital with shift");
}

// The picture of the chosen puzzle and the one before, with their places.
lines pictures_shown() {
    lines all = drawn_by(title_draw);
    std::erase_if(all, [](const std::string &line) { return !line.starts_with("clipped"); });
    return all;
}

void see_scores() {
    click_column(SCORES);
    until_screen(SCREEN_SCORE_LOG);
    wait_frames(100);
    press(SDLK_SPACE); // shows all at once
    press(SDLK_SPACE);
    until_screen(SCREEN_TITLE);
    wait_frames(2);
}

void leave_in_the_middle_of_a_slide() {
    press(SDLK_UP);
    const lines sliding = pictures_shown();
    see_scores(); // of a puzzle that nobody has played
    const lines stand = pictures_shown();
    wait_frames(2);
    check(stand != sliding && stand == pictures_shown(), "a slide cut short is not played again");
}

void choose_by_keys() {
    press(SDLK_UP);
    for (const auto &[key, presses, type] :
         {std::tuple{SDLK_DOWN, 3, FACTORS}, {SDLK_UP, 1, FRACTIONS}, {SDLK_UP, 10, FIRST}}) {
        for (int i = 0; i < presses; ++i)
            press(key);
        wait_frames(20);
        study_selected();
        check(the_board()->type == type, "the arrow keys stop at the list's ends");
        close_help();
        click_column(BACK);
        until_screen(SCREEN_TITLE);
        wait_frames(2);
    }
}

void leave_a_run() {
    study_selected();
    start_playing(nullptr);
    check(settings_help_showing(), "help at the first attempt");
    close_help();
    leave_run();
}

// The render thread does not come to its end for a while.
void hold_up_rendering() {
    using namespace std::chrono_literals;
    std::thread([] {
        const lock_scope hold(surface_lock);
        std::this_thread::sleep_for(200ms);
    }).detach();
    std::this_thread::sleep_for(20ms);
    until("the render thread waits", [] {
        std::this_thread::sleep_for(1ms);
        const bool waits = !render_begin_frame();
        render_end_frame();
        return waits;
    });
}

void play_in_debug_mode() {
    study_selected();
    start_playing(nullptr);
    check(!settings_help_showing(), "no help at the second attempt");
    const board *b = the_board();
    press(SDLK_SPACE);
    type_text("qzkvxhwnyrt");
    check(app_has(APP_DEBUG), "the debug mode");
    press(SDLK_d);
    check(b->placed == 0, "nothing without Ctrl");
    hold_key(SDLK_LCTRL, true);
    press(SDLK_w);
    check(b->placed == 1, "one piece is placed");
    press(SDLK_d);
    check(b->placed == b->pieces->count - 3, "all but three pieces are placed");
    hold_up_rendering();
    press(SDLK_c);
    check(screen_current() == SCREEN_DIALOG, "the run is complete");
    const lines left = drawn_by(play_draw);
    check(std::ranges::count(left, "restore 0 0 800 600") == 0, "the finished board was drawn before");
    hold_key(SDLK_LCTRL, false);
    finish_dialog_and_score_log();
}

TEST(title, takes_names_and_keys_and_leads_everywhere) {
    const game_folder folder;
    const game_result result = play_game(folder, 16, [] {
        leave_splash();
        call_for_help();
        close_help();
        visit_credits();
        choose_a_name();
        leave_in_the_middle_of_a_slide();
        choose_by_keys();
        leave_a_run();
        play_in_debug_mode();
        see_scores();
        leave_program();
    });
    EXPECT_EQ(result.exit_code, 0) << result.said;
}

} // namespace
