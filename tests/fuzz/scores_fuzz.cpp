// The scores: a file of any bytes can be loaded; after recording a run, what is saved loads as the same table, and a
// damaged file has been kept.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "persist/best_times.h"

#include <filesystem>

// What is saved of the table, from an empty place on, so that nothing of an older file is left behind.
static file_bytes saved() {
    const std::filesystem::path scores = fuzz_folder().data("scores");
    std::filesystem::remove(scores);
    must(best_times_save() == 1);
    return read_file(scores);
}

static void load() {
    best_times_destroy();
    must(best_times_create() == 1 && best_times_load() == 1);
}

int LLVMFuzzerTestOneInput(const u8 *data, std::size_t size) {
    const std::filesystem::path kept = fuzz_folder().data("scores.bad");
    std::filesystem::remove(kept);
    fuzz_write("scores", data, size);
    load();
    if (size > 0)
        best_times_record(data[0] % 16 - 1, "Ann Lee", data[size - 1]);
    must(best_times_save() == 1);
    if (std::filesystem::exists(kept))
        must(read_file(kept) == file_bytes(data, data + size));
    load();
    const file_bytes first = saved();
    load();
    must(saved() == first);
    best_times_destroy();
    return 0;
}
