// The archive: a file of any bytes opens or is refused, and each entry that it lists can be read whole.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "core/strings.h"
#include "platform/platform.h"
#include "resources/archive.h"
#include "resources/archive_format.h"
#include "resources/image.h"

#include <cstdlib>
#include <cstring>

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
static void read_listed(const u8 *data, std::size_t size) {
    std::size_t at = ARCHIVE_HEADER_BYTES;
    while (at + ARCHIVE_ENTRY_BYTES <= size) {
        const auto length = static_cast<std::size_t>(big_endian_i32(data + at));
        if (length > size - at - ARCHIVE_ENTRY_BYTES)
            return;
        std::string name(reinterpret_cast<const char *>(data + at + ARCHIVE_INT_BYTES), length);
        string_shift(name.data(), ARCHIVE_NAME_SHIFT);
        read_entry(name.c_str());
        at += length + ARCHIVE_ENTRY_BYTES;
    }
}

int LLVMFuzzerTestOneInput(const u8 *data, std::size_t size) {
    fuzz_write("data.dar", data, size);
    if (data_archive_open() > 0) {
        read_listed(data, size);
        image_free(image_load("a.xpm"));
        char *text = nullptr;
        const i32 length = data_archive_read_text(&text, "a");
        must(length < 0 || (text != nullptr && std::strlen(text) <= static_cast<std::size_t>(length)));
        std::free(text);
    }
    data_archive_close();
    return 0;
}
