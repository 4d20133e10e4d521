// log_test.cpp: where messages go, and what the platform layer does to paths and files.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/log.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

TEST(Log, GoesToStandardErrorThenToTheFileThenNowhere) {
    const temp_game game;
    const std::string prefix = "[" + std::to_string(platform_process_id()) + "]";
    testing::internal::CaptureStderr();
    log_error("early %i\n", 1);
    game.log_to_file();
    log_error("first %s\n", "message");
    log_out_of_memory();
    errno = EACCES;
    log_errno("open");
    log_set_mode(0);
    log_error("dropped\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), prefix + "early 1\n");
    const std::string log = masked_digits(game.log_text());
    const std::string month = log.substr(log.find('/'), std::string("/Jan/").size());
    EXPECT_EQ(log, "first message\nOut of memory\n00" + month + "0000 00:00:00 +0000 open - Permission denied\n");
}

TEST(Log, UnwritableFileGivesOneWarningAMessage) {
    const temp_game game;
    const std::string name(200, 'n'); // cut to 127 characters
    const std::string path = "none/" + name;
    testing::internal::CaptureStderr();
    log_set_file(path.c_str());
    log_set_mode(LOG_FILE);
    log_error("lost\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "[" + std::to_string(platform_process_id()) +
                                                          "] Warning: Could not open error log file " +
                                                          path.substr(0, 127) + " for writing\n");
}

TEST(Platform, EitherSeparatorAndNoTruncation) {
    const temp_game game;
    write_file(game.data("f"), to_bytes("0123456789"));
    const int out = platform_open_write("..\\data\\f");
    ASSERT_GE(out, 0);
    EXPECT_EQ(platform_write(out, "abc", 3), 3);
    platform_close(out);
    EXPECT_EQ(read_file(game.data("f")), to_bytes("abc3456789"));
    const int in = platform_open_read("../data\\f");
    EXPECT_EQ(platform_size(in), 10);
    EXPECT_EQ(platform_seek(in, 8), 8);
    char bytes[5] = {};
    EXPECT_EQ(platform_read(in, bytes, sizeof bytes), 2);
    platform_close(in);
    EXPECT_EQ(platform_open_read("..\\data\\none"), -1);
    EXPECT_EQ(platform_open_read(std::string(10000, 'x').c_str()), -1);
    EXPECT_EQ(errno, ENAMETOOLONG);
}

TEST(Platform, CopyReplacesTheWholeFile) {
    const temp_game game;
    const file_bytes large(100000, 'y');
    write_file(game.data("from"), large);
    EXPECT_EQ(platform_copy_file("..\\data\\from", "..\\data\\to"), 0);
    EXPECT_EQ(read_file(game.data("to")), large);
    write_file(game.data("from"), to_bytes("short"));
    EXPECT_EQ(platform_copy_file("..\\data\\from", "..\\data\\to"), 0);
    EXPECT_EQ(read_file(game.data("to")), to_bytes("short"));
    EXPECT_EQ(platform_copy_file("..\\data\\none", "..\\data\\to"), -1);
    EXPECT_EQ(read_file(game.data("to")), to_bytes("short")) << "nothing to copy, nothing lost";
}

// A stand-in opener notes its arguments; nothing may pass through a shell, and nothing of the game may stay behind.
TEST(Platform, WebPageOpensWithoutShellOrZombie) {
    struct row {
        const char *opener, *noted;
    };
    const row rows[] = {
        {"xdg-open", "/|1|https://example.test/?a=1&b=$(touch bad) c|"},
        {"gio", "/|2|open|https://example.test/?a=1&b=$(touch bad) c|"},
        {"www-browser", "/|1|https://example.test/?a=1&b=$(touch bad) c|"},
    };
    const std::string path = std::getenv("PATH");
    for (const row &r : rows) {
        SCOPED_TRACE(r.opener);
        const temp_game game;
        const std::string here = fs::current_path().string();
        write_file(r.opener, to_bytes("#!/bin/sh\n[ -e /proc/self/fd/9 ] && set -- kept 9\n"
                                      "note=$(printf '%s|' \"$PWD\" $# \"$@\")\nprintf %s \"$note\" > '" +
                                      here + "/note'\n"));
        fs::permissions(r.opener, fs::perms::owner_all);
        setenv("PATH", here.c_str(), 1);
        dup2(STDERR_FILENO, 9); // as the program's starter may have left one
        platform_open_web_page("https://example.test/?a=1&b=$(touch bad) c");
        close(9);
        setenv("PATH", path.c_str(), 1);
        for (int tries = 0; tries < 500 && (!fs::exists("note") || fs::file_size("note") == 0); ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_EQ(read_file("note"), to_bytes(r.noted));
        EXPECT_FALSE(fs::exists("bad"));
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "no child is left";
        EXPECT_EQ(errno, ECHILD);
    }
}
