// The program's files: any bytes can be loaded or are refused, and no saved name or score is lost.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "core/base/app_state.h"
#include "core/base/settings.h"
#include "core/base/strings.h"
#include "persist/best_times.h"
#include "persist/best_times_file.h"
#include "persist/prefs.h"
#include "platform/platform.h"
#include "resources/archive.h"
#include "resources/archive_format.h"

#include <cstdlib>
#include <cstring>
#include <utility>

// --- The archive: each entry that it lists can be read whole -------------------------------------

static void read_entry(const char *name) {
    const int descriptor = data_archive_open_entry(name);
    const i32 size = data_archive_entry_size(name);
    must((descriptor >= 0) == (size >= 0));
    if (descriptor < 0)
        return;
    must(data_archive_current_size() == size);
    std::vector<u8> bytes(static_cast<std::size_t>(size));
    must(platform_read(descriptor, bytes.data(), bytes.size()) == size);
}

// The names as they stand in the file, for as long as they can be followed.
static void read_listed(fuzz_input input) {
    std::size_t at = ARCHIVE_HEADER_BYTES;
    while (at + ARCHIVE_ENTRY_BYTES <= input.size()) {
        const auto length = static_cast<std::size_t>(big_endian_i32(&input[at]));
        if (length > input.size() - at - ARCHIVE_ENTRY_BYTES)
            return;
        std::string name(reinterpret_cast<const char *>(&input[at + ARCHIVE_INT_BYTES]), length);
        string_shift(name.data(), ARCHIVE_NAME_SHIFT);
        read_entry(name.c_str());
        at += length + ARCHIVE_ENTRY_BYTES;
    }
}

void fuzz_archive(fuzz_input input) {
    fuzz_write("data.dar", input);
    if (data_archive_open() > 0) {
        read_listed(input);
        image_free(image_load("a.xpm"));
        char *text = nullptr;
        const i32 length = data_archive_read_text(&text, "a");
        must(length < 0 || (text != nullptr && std::strlen(text) <= static_cast<std::size_t>(length)));
        std::free(text);
    }
    data_archive_close();
}

// --- What is saved after loading loads as the same, and a damaged file has been kept -------------

static std::filesystem::path kept_file(const std::string &name) {
    return fuzz_folder().data(name + ".bad");
}

static void put_in_place(const char *name, fuzz_input input) {
    std::filesystem::remove(kept_file(name));
    fuzz_write(name, input);
}

static void must_be_kept(const char *name, fuzz_input input) {
    must(!std::filesystem::exists(kept_file(name)) ||
         read_file(kept_file(name)) == file_bytes(input.begin(), input.end()));
}

constexpr i32 LOADED = 1, NO_FILE = -1;

static i32 loaded_from(fuzz_input input) {
    return input.empty() ? NO_FILE : LOADED; // an empty file counts as none
}

static std::string loaded_prefs(i32 expected) {
    settings = 0;
    app->flags = 0;
    std::free(std::exchange(app->player_name, nullptr));
    must(prefs_load() == expected);
    const std::string name = app->player_name != nullptr ? app->player_name : "";
    return std::to_string(settings) + name.substr(0, name.find('\x80')); // a saved name ends there
}

void fuzz_prefs(fuzz_input input) {
    static app_state state;
    app = &state;
    put_in_place("prefs", input);
    const std::string before = loaded_prefs(loaded_from(input));
    must(prefs_save() == 1);
    must_be_kept("prefs", input);
    must(loaded_prefs(LOADED) == before);
    must(prefs_save() == 1);
}

static void load_scores(i32 expected) {
    best_times_destroy();
    must(best_times_create() == 1 && best_times_load() == expected);
}

// From an empty place on, so that nothing of an older file is left behind.
static file_bytes saved_scores() {
    const std::filesystem::path scores = fuzz_folder().data("scores");
    std::filesystem::remove(scores);
    must(best_times_save() == 1);
    return read_file(scores);
}

void fuzz_scores(fuzz_input input) {
    put_in_place("scores", input);
    load_scores(loaded_from(input));
    if (!input.empty())
        best_times_record(input.front() % 16 - 1, "Ann Lee", input.back());
    must(best_times_save() == 1);
    must_be_kept("scores", input);
    load_scores(LOADED);
    const file_bytes first = saved_scores();
    load_scores(LOADED);
    must(saved_scores() == first);
    best_times_destroy();
}
