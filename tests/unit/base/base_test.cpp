// base_test.cpp: lists, growing strings, and opening web pages.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/containers.h"
#include "core/base/strings.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(joined(list), "abdec") << "the walk passes over the hole";
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

// What a process of its own is told.
bool another_claims_the_folder() {
    const pid_t other = fork();
    if (other == 0)
        _exit(platform_claim_folder("..\\data") ? 1 : 0);
    int status = 0;
    waitpid(other, &status, 0);
    return WEXITSTATUS(status) == 1;
}

TEST(platform, one_process_has_a_folder_at_a_time) {
    const temp_game game;
    EXPECT_TRUE(another_claims_the_folder()) << "and gives it up by ending";
    EXPECT_TRUE(platform_claim_folder("..\\data"));
    EXPECT_TRUE(platform_claim_folder("..\\data")) << "the same process again";
    EXPECT_FALSE(another_claims_the_folder());
    EXPECT_TRUE(platform_claim_folder("..\\nowhere")) << "nobody is kept out of what is not there";
    EXPECT_TRUE(another_claims_the_folder());
}

TEST(strings, printf_grows_to_its_limit) {
    constexpr std::size_t step = 2048, limit = 2 * 1024 * 1024;
    for (const std::size_t length : {step - 1, step, limit - 1, limit}) {
        const std::string source(length, 'x');
        char *text = nullptr;
        string_set(&text, "before");
        EXPECT_EQ(string_printf(&text, "%s", source.c_str()), length < limit ? static_cast<i32>(length) : -1);
        EXPECT_STREQ(text, length < limit ? source.c_str() : nullptr) << length;
        std::free(text);
    }
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
