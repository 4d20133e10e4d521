// The real archive, and the whole program with made-up archives that keep to the rules.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "check.h"
#include "core/base/puzzle_info.h"
#include "picture_png.h"
#include "program/player.h"
#include "screens/common.h"
#include "tools/sample.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <csignal>

namespace {

TEST(entries, are_all_in_the_real_archive) {
    for (const finding &f : check_archive(archive_read(TAVIMO_DATA_FILE)))
        ADD_FAILURE() << finding_text(f);
}

// From the splash screen into a run of one puzzle, by way of its study screen, whose buttons have a size of their own.
void start_and_play(int position, const raster &study_button) {
    leave_splash();
    select_puzzle(position);
    study_selected();
    click(COLUMN_RIGHT - study_button.width / 2, column_top(2, study_button.height) + study_button.height / 2);
    until_screen(SCREEN_DIALOG);
    wait_frames(DIALOG_ENTRANCE);
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
        const raster button = *archive_picture(archive, "xpm/study/001.xpm").result;
        const int depth = seed % 2 == 0 ? 16 : 32, position = static_cast<int>(seed % PUZZLE_COUNT);
        const game_result result = play_game(folder, depth, [=] { start_and_play(position, button); });
        EXPECT_EQ(result.exit_code, 0) << result.said;
        EXPECT_EQ(result.log.find("Error"), std::string::npos) << result.log;
        EXPECT_EQ(result.log.find("Warning"), std::string::npos) << result.log;
    }
}

} // namespace
