// sound_bank.cpp: reads sound files from the archive, once each.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sound/sound_bank.h"

#include "core/base/log.h"
#include "platform/platform.h"
#include "resources/archive.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr std::size_t PATH_BYTES = 64;

sound_file files[SOUND_COUNT];

bool load(sound_file *file, const char *path) {
    const int descriptor = data_archive_open_entry(path);
    const i32 size = data_archive_current_size();
    if (descriptor < 0 || size <= 0) {
        log_error("Warning: Could not open sound file %s\n", path);
        return false;
    }
    const auto bytes = static_cast<std::size_t>(size);
    auto *data = static_cast<u8 *>(std::malloc(bytes));
    if (data == nullptr) {
        log_out_of_memory();
        return false;
    }
    if (platform_read(descriptor, data, bytes) != size) {
        log_error("Warning: Could not read sound file %s\n", path);
        std::free(data);
        return false;
    }
    *file = {.data = data, .size = size};
    return true;
}

} // namespace

const sound_file *sound_bank_get(i32 number) {
    sound_file *file = &files[number];
    char path[PATH_BYTES];
    std::snprintf(path, sizeof path, "%s%s", SOUND_FOLDER, SOUND_TABLE[number].name);
    return file->data != nullptr || load(file, path) ? file : nullptr;
}

void sound_bank_free() {
    for (sound_file &file : files) {
        std::free(file.data);
        file = {};
    }
}
