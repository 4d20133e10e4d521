// file_reader.h: a buffered stream of bytes over a file descriptor. Main thread.
//
// Nothing reports a failure while reading: bytes that the source could not supply are zero and set `cut`,
// so that a parser may read a whole record and ask once.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline constexpr i32 FILE_READER_CAPACITY = 204800; // bytes

// Results of file_reader_read.
inline constexpr i32 FILE_READER_ENDED = 1;
inline constexpr i32 FILE_READER_OK = 2;

struct file_reader {
    int descriptor;
    i32 capacity;         // bytes of the buffer
    u8 *buffer;           // owned
    i32 position;         // index of the next unread byte
    i32 filled;           // valid bytes in the buffer
    bool ended;           // a refill has delivered nothing
    bool cut;             // some read asked for more than there was
    bool owns_descriptor; // closes it at the end
};

// A reader that owns its descriptor; null when the file cannot be opened (logged) or memory is short.
[[nodiscard]] file_reader *file_reader_open(const char *path);

// A reader over a borrowed descriptor, from where it stands; null when memory is short (logged).
[[nodiscard]] file_reader *file_reader_create(int descriptor);

void file_reader_destroy(file_reader *reader); // accepts null

// Copies the next bytes. FILE_READER_ENDED once a refill has brought nothing, which happens too when a read
// empties the buffer at the end of the source; the sticky `cut` tells whether bytes are missing.
i32 file_reader_read(file_reader *reader, void *destination, i32 count);

// The next four bytes as a big-endian integer, 0 when they are not there.
i32 file_reader_i32(file_reader *reader);
