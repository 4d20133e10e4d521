// stored_file.h: what the preferences and the best times have in common: integers and strings in a small file.
//
// Integers are 32-bit big-endian. A string is its length in bytes, then the bytes with 128 added to each.
// Main thread. Reading never fails loudly: from the first field that is not there or makes no sense every
// further field is refused, and the reader remembers that the file is damaged. Bytes behind the last field are no
// damage: they are what a longer file left over. An empty file counts as none.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/containers.h"
#include "core/base/types.h"

struct file_reader;

inline constexpr i32 STORED_INT_BYTES = 4;

struct stored_reader {
    file_reader *file; // owned
    int descriptor;
    i32 left;     // bytes not read yet
    bool ended;   // no further field is given
    bool damaged; // the file ended within its fields, or a field makes no sense
};

// False when there is no file, it cannot be opened or memory is short (logged); nothing is to be closed then. A file
// that is there but could not be read counts as damaged.
[[nodiscard]] bool stored_open(stored_reader *reader, const char *path);
void stored_close(stored_reader *reader); // after stored_open was true

// Each returns whether the field was there; *value is left as it was when not.
bool stored_read_i32(stored_reader *reader, i32 *value);
bool stored_read_u32(stored_reader *reader, u32 *value);

// A number of records of at least this many bytes each: one that is negative, or more than can follow, is damage.
bool stored_read_count(stored_reader *reader, i32 *count, i32 record_bytes);

// Replaces the owned string; an empty one leaves it as it was.
bool stored_read_string(stored_reader *reader, char **text);

// Ends the reading because memory is short (logged): what follows is lost to us, so the file counts as damaged.
void stored_give_up(stored_reader *reader);

// The content in the making; failed once memory was short (logged).
struct stored_writer {
    buffer *content; // owned
    bool failed;
};

// The fields in their order; a failure is remembered until stored_finish, which must follow.
void stored_begin(stored_writer *writer);
void stored_put_i32(stored_writer *writer, i32 value);
void stored_put_string(stored_writer *writer, const char *text);        // null as ""
void stored_put_string(stored_writer *writer, const char *text, i32 n); // the first n bytes

// Writes the content over the start of the file, whole or not at all, and frees it. With *damaged set, what is there is
// first kept under kept_path, else nothing is written; then the flag is cleared. 1, or -1 (logged).
i32 stored_finish(stored_writer *writer, const char *path, const char *kept_path, bool *damaged);
