// The table of entries against what the whole program asks for, and the program with archives that keep to the rules.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "check.h"
#include "core/puzzle_info.h"
#include "picture.h"
#include "program/player.h"
#include "puzzles/board.h"
#include "puzzles/cells.h"
#include "resources/archive.h"
#include "screens/common.h"
#include "sound/sound_bank.h"
#include "sprites/sprite.h"
#include "tools/sample.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <set>
#include <sstream>

extern "C" {
int real_open_entry(const char *name) asm("__real__Z23data_archive_open_entryPKc");
i32 real_read_text(char **text, const char *name) asm("__real__Z22data_archive_read_textPPcPKc");
int wrap_open_entry(const char *name) asm("__wrap__Z23data_archive_open_entryPKc");
i32 wrap_read_text(char **text, const char *name) asm("__wrap__Z22data_archive_read_textPPcPKc");
void real_sound_play(i32 number) asm("__real__Z10sound_playi");
void wrap_sound_play(i32 number) asm("__wrap__Z10sound_playi");
}

namespace {

std::FILE *asked = nullptr; // the names that the program asks for, a line each; null: nobody listens

void note(const char *folder, const char *name) {
    if (asked != nullptr)
        std::fprintf(asked, "%s%s\n", folder, name);
}

} // namespace

int wrap_open_entry(const char *name) {
    note("", name);
    return real_open_entry(name);
}

i32 wrap_read_text(char **text, const char *name) {
    note("txt/", name);
    return real_read_text(text, name);
}

// In virtual time sounds are asked for faster than they end, and a sound that finds no free channel is never opened.
void wrap_sound_play(i32 number) {
    note("ogg/", SOUND_TABLE[number].name);
    real_sound_play(number);
}

namespace {

constexpr int BACK_X = 720, BACK_Y = 579;
constexpr int COIN_POSITION = 3, KEYPAD_POSITION = 4; // in the list of puzzles

void study_every_puzzle() {
    for (int position = 0; position < PUZZLE_COUNT; ++position) {
        select_puzzle(position);
        study_selected();
        const board *b = the_board();
        const sprite *cell = b->cells->items[0];
        for (int i = 0; i < 2; ++i) // out, and in again
            click(b->x + cell->x + cell->w / 2, b->y + cell->y + cell->h / 2);
        wait_frames(60);
        click(BACK_X, BACK_Y);
        until_screen(SCREEN_TITLE);
        wait_frames(2);
    }
}

void answer_wrongly_then_rightly() {
    select_puzzle(KEYPAD_POSITION);
    study_selected();
    start_playing("ann");
    close_help();
    press(SDLK_SPACE);
    until_deck_rests();
    for (const bool rightly : {false, true}) {
        type_on_keypad(rightly ? the_board()->slot[0]->answer : 999);
        press_keypad(KEYPAD_ENTER);
        wait_frames(100);
    }
    leave_run();
}

void sort_coins_to_the_end() {
    std::srand(1); // all six notes sound
    select_puzzle(COIN_POSITION);
    study_selected();
    close_help();
    start_playing(nullptr);
    close_help();
    type_text("qzkvxhwnyrt"); // and again, for the sound
    wait_frames(250);
    type_text("qzkvxhwnyrt");
    for (sprite *piece = loose_piece(); piece != nullptr; piece = loose_piece())
        place_piece(piece);
    finish_dialog_and_score_log();
}

TEST(entries, are_what_the_program_asks_for) {
    const game_folder folder;
    const std::filesystem::path names = folder.file("names");
    asked = std::fopen(names.c_str(), "w");
    const game_result result = play_game(folder, 16, [] {
        leave_splash();
        study_every_puzzle();
        visit_credits();
        answer_wrongly_then_rightly();
        sort_coins_to_the_end();
        leave_program();
    });
    std::fclose(asked);
    asked = nullptr;
    ASSERT_EQ(result.exit_code, 0) << result.said;
    std::set<std::string> wanted;
    std::istringstream lines(folder.text("names"));
    for (std::string line; std::getline(lines, line);) {
        wanted.insert(line);
        EXPECT_NE(kit_find(line), nullptr) << "missing in the table: " << line;
    }
    for (const kit_entry &entry : kit_entries())
        EXPECT_TRUE(wanted.contains(entry.name)) << "never asked for: " << entry.name;
}

TEST(entries, are_all_in_the_real_archive) {
    for (const finding &f : check_archive(archive_read(TAVIMO_DATA_FILE)))
        ADD_FAILURE() << finding_text(f);
}

// From the splash screen into a run of one puzzle, by way of its study screen, whose buttons have a size of their own.
void start_and_play(int position, const picture &study_button) {
    leave_splash();
    select_puzzle(position);
    study_selected();
    click(COLUMN_RIGHT - study_button.width / 2, column_top(2, study_button.height) + study_button.height / 2);
    until_screen(SCREEN_DIALOG);
    wait_frames(40);
    type_text("ann");
    press(SDLK_RETURN);
    until_screen(SCREEN_PLAY);
    for (int i = 0; i < 6; ++i) { // through the help bubbles to the first cards
        press(SDLK_SPACE);
        wait_frames(12);
    }
    std::raise(SIGTERM);
    wait_frames(50);
    check(false, "the signal ends the program");
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr unsigned VARIATIONS = 11; // each puzzle once
#else
constexpr unsigned VARIATIONS = 100;
#endif

TEST(variations, that_pass_the_check_start_and_play) {
    for (unsigned seed = 1; seed <= VARIATIONS; ++seed) {
        SCOPED_TRACE(seed);
        const archive_file archive = make_sample(seed);
        for (const finding &f : check_archive(archive))
            ADD_FAILURE() << finding_text(f);
        const game_folder folder;
        archive_write(folder.file("data/data.dar"), archive.entries);
        const picture button = *archive_picture(archive, "xpm/study/001.xpm").result;
        const int depth = seed % 2 == 0 ? 16 : 32, position = static_cast<int>(seed % PUZZLE_COUNT);
        const game_result result = play_game(folder, depth, [=] { start_and_play(position, button); });
        EXPECT_EQ(result.exit_code, 0) << result.said;
        EXPECT_EQ(result.log.find("Error"), std::string::npos) << result.log;
        EXPECT_EQ(result.log.find("Warning"), std::string::npos) << result.log;
    }
}

} // namespace
