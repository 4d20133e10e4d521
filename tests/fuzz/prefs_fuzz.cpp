// The preferences: a file of any bytes can be loaded; what is saved after that loads as the same, and a damaged file
// has been kept.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "core/app_state.h"
#include "core/settings.h"
#include "persist/prefs.h"

#include <cstdlib>
#include <filesystem>
#include <utility>

static std::string loaded() {
    settings = 0;
    app->flags = 0;
    std::free(std::exchange(app->player_name, nullptr));
    must(prefs_load() == 1);
    const std::string name = app->player_name != nullptr ? app->player_name : "";
    return std::to_string(settings) + name.substr(0, name.find('\x80')); // a saved name ends there
}

int LLVMFuzzerTestOneInput(const u8 *data, std::size_t size) {
    static app_state state;
    app = &state;
    const std::filesystem::path kept = fuzz_folder().data("prefs.bad");
    std::filesystem::remove(kept);
    fuzz_write("prefs", data, size);
    const std::string before = loaded();
    must(prefs_save() == 1);
    if (std::filesystem::exists(kept))
        must(read_file(kept) == file_bytes(data, data + size));
    must(loaded() == before);
    must(prefs_save() == 1);
    return 0;
}
