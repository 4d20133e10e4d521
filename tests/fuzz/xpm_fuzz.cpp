// Pictures: any text, decoded at either depth, gets a run table that covers each row exactly, or is refused.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "resources/pixel.h"
#include "resources/xpm.h"

static void check_runs(const image &picture) {
    const i32 *entry = picture.runs;
    for (i32 y = 0; y < picture.height; ++y, ++entry) {
        i32 bytes = 0;
        for (; *entry >= 0; ++entry)
            bytes += *entry;
        must(*entry == RUN_END_ROW && bytes == picture.width << video_format.shift);
    }
    must(*entry == RUN_END_PICTURE && entry + 1 == picture.runs + picture.run_count);
}

int LLVMFuzzerTestOneInput(const u8 *data, std::size_t size) {
    if (size == 0)
        return 0;
    fuzz_use_screen(data[0] % 2 != 0);
    const std::vector<char> text(data + 1, data + size); // a block of its own, so that reading beyond it is seen
    xpm source;
    image *picture = nullptr;
    if (xpm_open(&source, text))
        picture = image_create(source.width, source.height);
    if (picture != nullptr && xpm_read_pixels(&source, picture->pixels)) {
        must(image_build_runs(picture));
        check_runs(*picture);
    }
    image_free(picture);
    xpm_close(&source);
    return 0;
}
