// prefs_test.cpp: the preferences file, byte for byte.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app_state.h"
#include "core/settings.h"
#include "persist/prefs.h"
#include "support/fake_sdl.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

class Prefs : public testing::Test {
protected:
    Prefs() {
        app = &state;
        game.log_to_file();
    }
    ~Prefs() override {
        std::free(state.player_name);
        app = nullptr;
        settings = 0;
    }

    // Forgets everything, reads the file, and says what came of it: result, name (or -), completion flag.
    std::string load() {
        std::free(state.player_name);
        state.player_name = nullptr;
        state.flags = 0;
        settings = SETTINGS_HELP;
        const std::string result = std::to_string(prefs_load());
        EXPECT_EQ(settings & ~SETTINGS_COMPLETED, SETTINGS_HELP);
        const std::string name = app_has(APP_NAME_SET) ? state.player_name : "-";
        return result + " " + name + ((settings & SETTINGS_COMPLETED) != 0 ? " 1" : " 0");
    }
    file_bytes stored(const char *name = "prefs") const { return read_file(game.data(name)); }

    const temp_game game;
    app_state state = {};
};

static const file_bytes NOBODY = {0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0};
static const file_bytes ANN = {0, 0, 0, 1, 0, 0, 0, 3, 0xC1, 0xEE, 0xEE, 0, 0, 0, 1};

TEST_F(Prefs, SavesAndLoads) {
    EXPECT_EQ(load(), "-1 - 0");
    EXPECT_EQ(prefs_save(), 1);
    EXPECT_EQ(stored(), NOBODY);
    EXPECT_EQ(load(), "1 - 0");
    settings |= SETTINGS_COMPLETED;
    EXPECT_EQ(prefs_load(), 1);
    EXPECT_EQ(settings, SETTINGS_HELP) << "a stored zero clears the flag";
    settings |= SETTINGS_COMPLETED;
    app_state_set_name(app, "A\xE4 \x80x"); // the byte that would be stored as a zero ends the name
    EXPECT_EQ(prefs_save(), 1);
    EXPECT_EQ(load(), "1 A\xE4  1");
    app_state_set_name(app, "0123456789");
    EXPECT_EQ(prefs_save(), 1);
    file_bytes expected = stored();
    app_state_set_name(app, "Ann");
    EXPECT_EQ(prefs_save(), 1);
    std::copy(ANN.begin(), ANN.end(), expected.begin());
    EXPECT_EQ(stored(), expected) << "stale bytes stay behind";
    EXPECT_EQ(load(), "1 Ann 1");
    EXPECT_EQ(prefs_save(), 1);
    EXPECT_FALSE(fs::exists(game.data("prefs.bad"))) << "stale bytes are no damage";
    EXPECT_EQ(game.log_text(), "");
}

TEST_F(Prefs, DamagedFileIsKeptBeforeItIsWrittenOver) {
    std::vector<std::tuple<file_bytes, const char *, bool>> rows = {
        {{0, 0, 0, 1, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 1}, "1 - 0", true}, // a negative length
        {{0, 0, 0, 1, 0x7F, 0xFF, 0xFF, 0xFF, 0, 0, 0, 1}, "1 - 0", true}, // the largest one
        {{0, 0, 0, 1, 0, 0, 0, 5, 0, 0, 0, 1}, "1 - 0", true},             // one byte too long
        {{9, 9, 9, 9, 0, 0, 0, 1, 0xC1, 0, 0, 2, 0}, "1 A 1", false},      // any version, any flag
        {{}, "1 - 0", false},
    };
    for (std::size_t size = 1; size < ANN.size(); ++size)
        rows.push_back({file_bytes(ANN.data(), ANN.data() + size), size < 11 ? "1 - 0" : "1 Ann 0", true});
    for (const auto &[bytes, loads, damaged] : rows) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        write_file(game.data("prefs"), bytes);
        EXPECT_EQ(load(), loads);
        EXPECT_EQ(prefs_save(), 1);
        EXPECT_EQ(fs::exists(game.data("prefs.bad")), damaged);
        EXPECT_EQ(stored("prefs.bad"), damaged ? bytes : file_bytes());
        EXPECT_EQ(load(), loads) << "what was read is kept";
        fs::remove(game.data("prefs.bad"));
        EXPECT_EQ(prefs_save(), 1);
        EXPECT_FALSE(fs::exists(game.data("prefs.bad"))) << "sound again";
    }
}

TEST_F(Prefs, FailedSavesAreLoggedAndSpareTheFile) {
    fs::create_directory(game.data("prefs.bad")); // no copy can be made
    const file_bytes damaged = {1, 2, 3};
    write_file(game.data("prefs"), damaged);
    load();
    EXPECT_EQ(prefs_save(), -1);
    EXPECT_EQ(stored(), damaged);
    fs::remove(game.data("prefs.bad"));
    EXPECT_EQ(prefs_save(), 1) << "next time it works";
    fs::remove(game.data("prefs"));
    fs::create_directory(game.data("prefs"));
    EXPECT_EQ(prefs_save(), -1);
    const std::string log = game.log_text();
    EXPECT_NE(log.find(" open - Is a directory\nCould not open file ..\\data\\prefs for writing\n"), std::string::npos)
        << log;
}

TEST_F(Prefs, FullDiskAndUnreadableFileSpareWhatIsThere) {
    write_file(game.data("prefs"), ANN);
    load();
    app_state_set_name(app, std::string(4000, 'a').c_str());
    rlimit usual = {};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit small = {2000, usual.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_EQ(prefs_save(), -1);
    setrlimit(RLIMIT_FSIZE, &usual);
    EXPECT_EQ(stored(), ANN);
    EXPECT_NE(game.log_text().find("Could not write file ..\\data\\prefs"), std::string::npos);

    fs::rename(game.data("prefs"), game.data("ann"));
    fs::create_symlink("prefs", game.data("prefs")); // leads to itself: there, but not to be opened
    EXPECT_EQ(load(), "-1 - 0");
    fs::remove(game.data("prefs"));
    fs::rename(game.data("ann"), game.data("prefs")); // readable again before the program ends
    EXPECT_EQ(prefs_save(), 1);
    EXPECT_EQ(stored("prefs.bad"), ANN);
}

TEST_F(Prefs, ShortMemoryWritesNothing) {
    fake_scope fakes;
    write_file(game.data("prefs"), ANN);
    load();
    EXPECT_GE(fake_fail_each_allocation([&] {
                  const bool saved = prefs_save() == 1;
                  EXPECT_EQ(stored(), ANN);
                  return saved;
              }),
              4);
}
