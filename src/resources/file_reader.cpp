// file_reader.cpp: the buffered reader.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "resources/file_reader.h"

#include "core/base/log.h"
#include "platform/platform.h"
#include "resources/archive_format.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

file_reader *file_reader_create(int descriptor) {
    auto *reader = static_cast<file_reader *>(std::calloc(1, sizeof(file_reader)));
    auto *bytes = static_cast<u8 *>(std::malloc(FILE_READER_CAPACITY));
    if (reader == nullptr || bytes == nullptr) {
        log_out_of_memory();
        std::free(reader);
        std::free(bytes);
        return nullptr;
    }
    reader->descriptor = descriptor;
    reader->capacity = FILE_READER_CAPACITY;
    reader->buffer = bytes;
    return reader;
}

file_reader *file_reader_open(const char *path) {
    const int descriptor = platform_open_read(path);
    if (descriptor < 0) {
        log_error("Could not open %s for reading\n", path);
        return nullptr;
    }
    file_reader *reader = file_reader_create(descriptor);
    if (reader == nullptr)
        platform_close(descriptor);
    else
        reader->owns_descriptor = true;
    return reader;
}

static void close_owned(file_reader *reader) {
    if (reader->owns_descriptor)
        platform_close(reader->descriptor);
    reader->owns_descriptor = false;
}

void file_reader_destroy(file_reader *reader) {
    if (reader == nullptr)
        return;
    close_owned(reader);
    std::free(reader->buffer);
    std::free(reader);
}

// Copies at most count bytes that are already in the buffer; how many.
static i32 take_buffered(file_reader *reader, u8 *destination, i32 count) {
    const i32 n = std::min(count, reader->filled - reader->position);
    std::memcpy(destination, reader->buffer + reader->position, static_cast<std::size_t>(n));
    reader->position += n;
    return n;
}

// Fills the buffer anew; the source's end is final.
static void refill(file_reader *reader) {
    const std::ptrdiff_t n =
        platform_read(reader->descriptor, reader->buffer, static_cast<std::size_t>(reader->capacity));
    reader->position = 0;
    reader->filled = static_cast<i32>(std::max<std::ptrdiff_t>(n, 0));
    if (reader->filled == 0) {
        reader->ended = true;
        close_owned(reader);
    }
}

// Serves a read that reaches the end of what is buffered: the rest, then what one refill brings. Only a read
// longer than the whole buffer refills again.
static i32 read_through_refill(file_reader *reader, u8 *out, i32 count) {
    i32 done = take_buffered(reader, out, count);
    do {
        refill(reader);
        done += take_buffered(reader, out + done, count - done);
    } while (done < count && reader->filled == reader->capacity);
    return done;
}

i32 file_reader_read(file_reader *reader, void *destination, i32 count) {
    auto *out = static_cast<u8 *>(destination);
    i32 done = 0;
    if (!reader->ended)
        done = count < reader->filled - reader->position ? take_buffered(reader, out, count)
                                                         : read_through_refill(reader, out, count);
    if (done < count) {
        reader->cut = true;
        std::memset(out + done, 0, static_cast<std::size_t>(count - done));
    }
    return reader->ended ? FILE_READER_ENDED : FILE_READER_OK;
}

i32 file_reader_i32(file_reader *reader) {
    u8 bytes[ARCHIVE_INT_BYTES];
    file_reader_read(reader, bytes, ARCHIVE_INT_BYTES);
    return big_endian_i32(bytes);
}
