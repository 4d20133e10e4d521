// base_test.cpp: lists, growing strings, the log, and what the platform layer does to files and web pages.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/containers.h"
#include "core/strings.h"
#include "platform/platform.h"
#include "support/fake_sdl.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

using text_list = ptr_array<const char>;

std::string joined(const text_list *list) {
    std::string all;
    for (const char *item : each(list))
        all += item;
    return all;
}

TEST(ptr_array, inserts_at_both_ends_and_keeps_holes_until_compacted) {
    const char *const a = "a", *const b = "b", *const c = "c", *const d = "d", *const e = "e";
    text_list *list = ptr_array_create<const char>();
    EXPECT_EQ(ptr_array_prepend(list, b), 0);
    EXPECT_EQ(ptr_array_append(list, c), 1);
    EXPECT_EQ(ptr_array_prepend(list, a), 2);
    for (const char *item : {d, e, c})
        ptr_array_append(list, item);
    EXPECT_EQ(joined(list), "abcdec");
    std::string backwards;
    i32 at = ptr_array_last(list);
    while (const char *item = ptr_array_prev(list, &at))
        backwards += item;
    EXPECT_EQ(backwards, "cedcba");
    EXPECT_EQ(ptr_array_remove(list, c), 1) << "the first one only";
    EXPECT_EQ(joined(list), "ab") << "a hole ends the walk";
    ptr_array_compact(list);
    EXPECT_EQ(joined(list), "abcde") << "the last one fills the hole";
    ptr_array_remove(list, a);
    ptr_array_remove(list, e);
    EXPECT_EQ(ptr_array_remove(list, "z"), 0);
    ptr_array_compact_ordered(list);
    EXPECT_EQ(joined(list), "bcd");
    for (const char *item : {d, c, b})
        ptr_array_remove(list, item);
    ptr_array_compact(list);
    EXPECT_EQ(list->count, 0) << "trailing holes go too";
    ptr_array_destroy(list);
}

TEST(strings, printf_grows_to_its_limit_and_to_that_of_memory) {
    const fake_scope fakes;
    constexpr std::size_t step = 2048, limit = 2 * 1024 * 1024;
    const struct {
        std::size_t length;
        bool fits;
        int failing;      // allocation: the first block, a larger one, the exact one
        const char *left; // after a failure
    } ROWS[] = {{step - 1, true, 0, ""},    {step, true, 0, ""},        {limit - 1, true, 0, ""},
                {limit, false, 0, nullptr}, {5000, false, 1, "before"}, {5000, false, 2, nullptr},
                {5000, false, 3, nullptr}};
    for (const auto &r : ROWS) {
        const std::string source(r.length, 'x');
        char *text = nullptr;
        string_set(&text, "before");
        fake_fail_allocation(r.failing);
        EXPECT_EQ(string_printf(&text, "%s", source.c_str()), r.fits ? static_cast<i32>(r.length) : -1);
        fake_fail_allocation(0);
        EXPECT_STREQ(text, r.fits ? source.c_str() : r.left) << r.length << " " << r.failing;
        std::free(text);
    }
}

TEST(log, goes_to_standard_error_then_to_the_file_then_nowhere) {
    const temp_game game;
    const std::string prefix = "[" + std::to_string(platform_process_id()) + "]";
    testing::internal::CaptureStderr();
    log_error("early %i\n", 1);
    game.log_to_file();
    log_error("first %s\n", "message");
    errno = EACCES;
    log_errno("open");
    log_set_mode(0);
    log_error("dropped\n");
    log_set_file(("none/" + std::string(200, 'n')).c_str());
    log_set_mode(LOG_FILE);
    log_error("lost\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), prefix + "early 1\n" + prefix +
                                                          " Warning: Could not open error log file none/" +
                                                          std::string(122, 'n') + " for writing\n");
    const std::string log = masked_digits(game.log_text()), month = log.substr(log.find('/') + 1, 3);
    EXPECT_EQ(log, "first message\n00/" + month + "/0000 00:00:00 +0000 open - Permission denied\n");
}

TEST(platform, takes_either_separator_and_does_not_truncate) {
    const temp_game game;
    write_file(game.data("f"), to_bytes("0123456789"));
    const int out = platform_open_write("..\\data\\f");
    ASSERT_GE(out, 0);
    EXPECT_EQ(platform_write(out, "abc", 3), 3);
    platform_close(out);
    EXPECT_EQ(read_file(game.data("f")), to_bytes("abc3456789"));
    EXPECT_EQ(platform_open_read("../data\\none"), -1);
    EXPECT_EQ(platform_open_read(std::string(10000, 'x').c_str()), -1);
}

// A stand-in opener notes its arguments; nothing may pass through a shell, and nothing of the game may stay behind.
TEST(platform, opens_a_web_page_without_shell_or_zombie) {
    const std::string page = "https://example.test/?a=1&b=$(touch bad) c", path = std::getenv("PATH");
    for (const auto &[opener, arguments] :
         {std::pair{"xdg-open", "/|1|"}, {"gio", "/|2|open|"}, {"www-browser", "/|1|"}}) {
        SCOPED_TRACE(opener);
        const temp_game game;
        const std::string here = fs::current_path().string();
        write_file(opener, to_bytes("#!/bin/sh\n[ -e /proc/self/fd/9 ] && set -- kept 9\n"
                                    "note=$(printf '%s|' \"$PWD\" $# \"$@\")\nprintf %s \"$note\" > '" +
                                    here + "/note'\n"));
        fs::permissions(opener, fs::perms::owner_all);
        setenv("PATH", here.c_str(), 1);
        dup2(STDERR_FILENO, 9); // as the program's starter may have left one
        platform_open_web_page(page.c_str());
        close(9);
        setenv("PATH", path.c_str(), 1);
        for (int tries = 0; tries < 500 && (!fs::exists("note") || fs::file_size("note") == 0); ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_EQ(read_file("note"), to_bytes(arguments + page + "|"));
        EXPECT_FALSE(fs::exists("bad"));
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "no child is left";
    }
}

} // namespace
