// judge.cpp: what a program may do when something fails: go on, or say why it ends; and lose nothing.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/stored_files.h"
#include "sweep/sweep.h"

#include <sys/wait.h>

#include <algorithm>

namespace fs = std::filesystem;

static constexpr int EXIT_NO_SDL = 1, EXIT_NO_START = 255;

static std::string text_of(const fs::path &file) {
    const file_bytes bytes = read_file(file);
    return {bytes.begin(), bytes.end()};
}

static bool has_any(const std::string &text, std::initializer_list<const char *> words) {
    return std::ranges::any_of(words, [&](const char *word) { return text.find(word) != std::string::npos; });
}

static bool complains(const std::string &text) {
    return has_any(text, {"rror", "ut of memory", "ould not", "arning", "damaged", "cut short", "lseek"});
}

static bool is_harmless(failure what) {
    return what == NO_FAILURE || what == READ_SHORT || what == READ_INTERRUPTED || what == WRITE_SHORT ||
           what == WRITE_INTERRUPTED || what == CLOSE_FAILS;
}

static bool scores_kept(const fs::path &file) {
    const auto names = names_in_scores(read_file(file));
    return (names && names->contains(KEEPER)) || read_file(file.string() + ".bad") == stored_scores(KEEPER, 1);
}

static bool name_kept(const fs::path &file) {
    const auto name = name_in_prefs(read_file(file));
    return name == KEEPER || name == "a" || read_file(file.string() + ".bad") == stored_prefs(KEEPER);
}

std::string fault_of(int status, const fs::path &game, const failing &cause) {
    const std::string said = text_of(game / "said") + text_of(game / "bin/errorlog.log");
    const fs::path scores = game / "data/scores", prefs = game / "data/prefs";
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    const bool unchanged = read_file(scores) == stored_scores(KEEPER, 1) && read_file(prefs) == stored_prefs(KEEPER);
    const struct {
        bool holds;
        const char *fault;
    } FAULTS[] = {
        {code < 0 && (WTERMSIG(status) == SIGALRM || WTERMSIG(status) == SIGXCPU), "takes too long"},
        {code < 0, "crashes"},
        {has_any(said, {"Sanitizer", "runtime error", "Assertion"}), "is caught by a sanitizer"},
        {code > 0 && code != EXIT_NO_SDL && code != EXIT_NO_START, "ends with an unknown code"},
        {code > 0 && !complains(said), "ends without a word"},
        {code > 0 && !unchanged, "changes files though it could not start"},
        {is_harmless(cause.what) && (code > 0 || complains(said)), "takes something harmless for a failure"},
        {!scores_kept(scores), "loses scores"},
        {!name_kept(prefs), "loses the name"},
    };
    const auto *found = std::ranges::find_if(FAULTS, [](const auto &row) { return row.holds; });
    return found == std::end(FAULTS) ? "" : std::string(found->fault) + "\n" + said;
}
