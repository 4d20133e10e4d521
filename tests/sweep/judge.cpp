// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sweep/judge.h"

#include "support/archive_builder.h"

#include <sys/wait.h>

#include <algorithm>

namespace fs = std::filesystem;

namespace {

constexpr int PUZZLES = 11, PLACES = 3;
constexpr int EXIT_NO_SDL = 1, EXIT_NO_START = 255;
constexpr double LONGEST_START = 2.0; // seconds
const std::string KEEPER = "Keeper";

void put_string(file_bytes *bytes, const std::string &text) {
    append_i32(bytes, static_cast<int>(text.size()));
    for (const char c : text)
        bytes->push_back(static_cast<unsigned char>(c + 128));
}

file_bytes old_prefs() {
    file_bytes bytes;
    append_i32(&bytes, 1);
    put_string(&bytes, KEEPER);
    append_i32(&bytes, 0);
    return bytes;
}

file_bytes old_scores() {
    file_bytes bytes;
    for (int puzzle = 0; puzzle < PUZZLES; ++puzzle) {
        for (int place = 0; place < PLACES; ++place) {
            append_i32(&bytes, 1);
            put_string(&bytes, KEEPER);
        }
        append_i32(&bytes, 1);
        put_string(&bytes, "2004-03-07 14:05");
        append_i32(&bytes, 1);
        put_string(&bytes, KEEPER);
    }
    append_i32(&bytes, 1);
    put_string(&bytes, KEEPER);
    append_i32(&bytes, 0x7FF);
    append_i32(&bytes, 0xFFF);
    return bytes;
}

struct fields {
    const file_bytes &bytes;
    std::size_t at = 0;
    bool whole = true;

    int number() {
        unsigned value = 0;
        for (int i = 0; i < 4; ++i)
            value = value << 8 | (at < bytes.size() ? bytes[at++] : (whole = false, 0u));
        return static_cast<int>(value);
    }
    std::string text() {
        const auto length = static_cast<std::size_t>(number());
        std::string text;
        for (std::size_t i = 0; i < length && whole; ++i)
            whole = at < bytes.size() && (text += static_cast<char>(bytes[at++] - 128), true);
        return text;
    }
};

// Whole, with everything that Keeper had.
bool scores_good(const file_bytes &bytes) {
    fields in{bytes};
    bool kept = true;
    for (int puzzle = 0; puzzle < PUZZLES && in.whole; ++puzzle) {
        for (int place = 0; place < PLACES; ++place) {
            in.number();
            in.text();
        }
        bool logged = false;
        for (int runs = in.number(); runs > 0 && in.whole; --runs) {
            in.text();
            in.number();
            logged = in.text() == KEEPER || logged;
        }
        kept = kept && logged;
    }
    bool known = false;
    for (int players = in.number(); players > 0 && in.whole; --players) {
        known = in.text() == KEEPER || known;
        in.number();
        in.number();
    }
    return in.whole && kept && known;
}

bool prefs_good(const file_bytes &bytes) {
    fields in{bytes};
    const bool version = in.number() == 1;
    const std::string name = in.text();
    in.number();
    return in.whole && version && (name == KEEPER || name == "a");
}

// Good, or what was there is kept beside it.
template <class Good> bool file_good(const fs::path &file, const file_bytes &old, Good good) {
    return good(read_file(file)) || read_file(file.string() + ".bad") == old;
}

std::string text_of(const fs::path &file) {
    const file_bytes bytes = read_file(file);
    return {bytes.begin(), bytes.end()};
}

bool is_harmless(failure what) {
    return what == NO_FAILURE || what == READ_SHORT || what == READ_INTERRUPTED || what == WRITE_SHORT || what == WRITE_INTERRUPTED ||
           what == CLOSE_FAILS;
}

bool has_any(const std::string &text, std::initializer_list<const char *> words) {
    return std::ranges::any_of(words, [&](const char *word) { return text.find(word) != std::string::npos; });
}

bool complains(const std::string &text) {
    return has_any(text, {"rror", "ut of memory", "ould not", "arning", "damaged", "cut short", "nsupported", "lseek"});
}

} // namespace

void put_old_files(const fs::path &game) {
    write_file(game / "data/prefs", old_prefs());
    write_file(game / "data/scores", old_scores());
}

std::string fault_of(const ending &end, const failing &cause) {
    const std::string said = text_of(end.game / "said") + text_of(end.game / "bin/errorlog.log");
    const fs::path scores = end.game / "data/scores", prefs = end.game / "data/prefs";
    const int code = WIFEXITED(end.status) ? WEXITSTATUS(end.status) : -1;
    std::string fault;
    if (code < 0)
        fault = WTERMSIG(end.status) == SIGALRM ? "does not end" : "crashes";
    else if (has_any(said, {"Sanitizer", "runtime error", "Assertion"}))
        fault = "is caught by a sanitizer";
    else if (code != 0 && code != EXIT_NO_SDL && code != EXIT_NO_START)
        fault = "ends with code " + std::to_string(code);
    else if (code != 0 && !complains(said))
        fault = "ends without a word";
    else if (code != 0 && (read_file(scores) != old_scores() || read_file(prefs) != old_prefs()))
        fault = "changes files though it could not start";
    else if (is_harmless(cause.what) && (code != 0 || complains(said)))
        fault = "takes something harmless for a failure";
    else if (end.cpu_seconds > LONGEST_START && (cause.what == ARCHIVE_CUT || cause.what == ARCHIVE_FLIPPED))
        fault = "takes " + std::to_string(end.cpu_seconds) + " s";
    else if (cause.what == WRITE_CUT && has_any(said, {"Could not write file"}))
        return "";
    else if (!file_good(scores, old_scores(), scores_good))
        fault = "loses scores";
    else if (!file_good(prefs, old_prefs(), prefs_good))
        fault = "loses the name";
    return fault.empty() ? "" : fault + "\n" + said;
}
