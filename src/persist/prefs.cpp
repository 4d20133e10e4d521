// prefs.cpp: the file ..\data\prefs: a version, the player's name, the completion flag.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "persist/prefs.h"

#include "core/base/app_state.h"
#include "core/base/settings.h"
#include "persist/stored_file.h"

static constexpr const char *PREFS_PATH = "..\\data\\prefs";
static constexpr const char *KEPT_PATH = "..\\data\\prefs.bad";
static constexpr i32 PREFS_VERSION = 1;

// The byte that is stored as a zero; in this file the name ends before it.
static constexpr const char *NAME_END = "\x80";

static bool damaged = false; // the file on the disk holds something that could not be read

static void read_fields(stored_reader *reader) {
    i32 version = 0, completed = 0;
    char *name = nullptr;
    if (stored_read_i32(reader, &version) && stored_read_string(reader, &name) && name != nullptr) {
        if (app_state_set_name(app, name) < 0)
            stored_give_up(reader);
    }
    std::free(name);
    if (stored_read_i32(reader, &completed))
        settings = completed != 0 ? settings | SETTINGS_COMPLETED : settings & ~SETTINGS_COMPLETED;
}

i32 prefs_load() {
    stored_reader reader;
    const bool opened = stored_open(&reader, PREFS_PATH);
    if (opened) {
        read_fields(&reader);
        stored_close(&reader);
    }
    damaged = reader.damaged;
    return opened ? 1 : -1;
}

i32 prefs_save() {
    const char *name = app_has(APP_NAME_SET) ? app->player_name : "";
    stored_writer writer;
    stored_begin(&writer);
    stored_put_i32(&writer, PREFS_VERSION);
    stored_put_string(&writer, name, static_cast<i32>(std::strcspn(name, NAME_END)));
    stored_put_i32(&writer, (settings & SETTINGS_COMPLETED) != 0 ? 1 : 0);
    return stored_finish(&writer, PREFS_PATH, KEPT_PATH, &damaged);
}
