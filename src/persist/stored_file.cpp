// stored_file.cpp: reading and writing the fields of the two small files.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "persist/stored_file.h"

#include "platform/platform.h"
#include "resources/archive_format.h"
#include "resources/file_reader.h"

#include <cerrno>

static constexpr i32 STORED_SHIFT = 128; // added to each byte of a string
static_assert(STORED_INT_BYTES == ARCHIVE_INT_BYTES, "one integer layout for all files");

// --- reading -------------------------------------------------------------------------------------

static bool mark_damaged(stored_reader *reader) {
    reader->ended = reader->damaged = true;
    return false;
}

bool stored_open(stored_reader *reader, const char *path) {
    *reader = {};
    const int descriptor = platform_open_read(path);
    if (descriptor < 0) {
        reader->damaged = errno != ENOENT; // it is there, though it cannot be read now
        return false;
    }
    const i32 size = platform_size(descriptor);
    if (size > 0)
        reader->file = file_reader_create(descriptor);
    if (reader->file == nullptr) {
        reader->damaged = size != 0;
        platform_close(descriptor);
        return false;
    }
    reader->descriptor = descriptor;
    reader->left = size;
    return true;
}

void stored_close(stored_reader *reader) {
    file_reader_destroy(reader->file);
    platform_close(reader->descriptor);
}

bool stored_read_i32(stored_reader *reader, i32 *value) {
    if (reader->ended)
        return false;
    const i32 read = file_reader_i32(reader->file);
    if (reader->file->cut)
        return mark_damaged(reader);
    reader->left -= STORED_INT_BYTES;
    *value = read;
    return true;
}

bool stored_read_u32(stored_reader *reader, u32 *value) {
    i32 bits = 0;
    const bool there = stored_read_i32(reader, &bits);
    if (there)
        *value = static_cast<u32>(bits);
    return there;
}

bool stored_read_count(stored_reader *reader, i32 *count, i32 record_bytes) {
    i32 n = 0;
    if (!stored_read_i32(reader, &n))
        return false;
    if (n < 0 || n > reader->left / record_bytes)
        return mark_damaged(reader);
    *count = n;
    return true;
}

void stored_give_up(stored_reader *reader) {
    log_out_of_memory();
    mark_damaged(reader);
}

bool stored_read_string(stored_reader *reader, char **text) {
    i32 n = 0;
    if (!stored_read_count(reader, &n, 1))
        return false;
    if (n == 0)
        return true;
    auto *bytes = static_cast<char *>(std::malloc(static_cast<std::size_t>(n) + 1));
    if (bytes == nullptr) {
        stored_give_up(reader);
        return false;
    }
    file_reader_read(reader->file, bytes, n);
    reader->left -= n;
    if (reader->file->cut) {
        std::free(bytes);
        return mark_damaged(reader);
    }
    for (i32 i = 0; i < n; ++i)
        bytes[i] = static_cast<char>(static_cast<u8>(bytes[i]) - STORED_SHIFT);
    bytes[n] = '\0';
    std::free(*text);
    *text = bytes;
    return true;
}

// --- writing -------------------------------------------------------------------------------------

void stored_begin(stored_writer *writer) {
    writer->content = buffer_create();
    writer->failed = writer->content == nullptr;
}

static void put_bytes(stored_writer *writer, const void *bytes, i32 n) {
    if (!writer->failed)
        writer->failed = buffer_add(writer->content, bytes, n) < 0;
}

void stored_put_i32(stored_writer *writer, i32 value) {
    u8 bytes[STORED_INT_BYTES];
    put_big_endian_i32(bytes, value);
    put_bytes(writer, bytes, STORED_INT_BYTES);
}

void stored_put_string(stored_writer *writer, const char *text, i32 n) {
    stored_put_i32(writer, n);
    put_bytes(writer, text, n);
    if (writer->failed)
        return;
    u8 *stored = writer->content->data + writer->content->size - n;
    for (i32 i = 0; i < n; ++i)
        stored[i] = static_cast<u8>(stored[i] + STORED_SHIFT);
}

void stored_put_string(stored_writer *writer, const char *text) {
    stored_put_string(writer, text, text != nullptr ? static_cast<i32>(std::strlen(text)) : 0);
}

// The only file that holds the lost part must not be overwritten before its copy is safe on the disk.
static bool keep_copy(const char *path, const char *kept_path) {
    if (platform_copy_file(path, kept_path) == 0) {
        log_error("Warning: %s was damaged, a copy is kept in %s\n", path, kept_path);
        return true;
    }
    log_errno("copy");
    log_error("Could not keep damaged file %s as %s, nothing is written\n", path, kept_path);
    return false;
}

static bool opens(const char *path) {
    if (platform_may_write(path) == 0)
        return true;
    log_errno("open");
    log_error("Could not open file %s for writing\n", path);
    return false;
}

static bool replace(const buffer *content, const char *path) {
    if (platform_replace(path, content->data, static_cast<std::size_t>(content->size)) == 0)
        return true;
    log_errno("write");
    log_error("Could not write file %s\n", path);
    return false;
}

i32 stored_finish(stored_writer *writer, const char *path, const char *kept_path, bool *damaged) {
    bool written = false;
    if (!writer->failed && opens(path) && (!*damaged || keep_copy(path, kept_path))) {
        *damaged = false;
        written = replace(writer->content, path);
    }
    buffer_free(writer->content);
    *writer = {};
    return written ? 1 : -1;
}
