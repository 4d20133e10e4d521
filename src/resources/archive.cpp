// archive.cpp: the archive's directory and the way to an entry's bytes.
//
// Everything in the directory is checked against the file's length while it is read, so whoever opens an
// entry may trust its size. Damage is logged: an entry that points outside is left out, a directory that
// cannot be followed any further ends there, and a directory longer than the file is no archive at all.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "resources/archive.h"

#include "core/base/hash.h"
#include "core/base/strings.h"
#include "platform/platform.h"
#include "resources/archive_format.h"
#include "resources/file_reader.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

static constexpr i32 BUCKETS = 128;
static constexpr int NOT_OPEN = -1;

struct file_archive_entry {
    char *name; // owned
    i32 offset; // bytes from the start of the data area
    i32 size;   // bytes
};

struct file_archive {
    hash<file_archive_entry, char> *by_name; // owned
    file_archive_entry *current;             // borrowed from by_name; null before the first seek
    i32 data_base;                           // file offset of the data area
    int descriptor;                          // NOT_OPEN until an entry is asked for
    char *path;                              // owned
};

// --- directory -----------------------------------------------------------------------------------

static const char *entry_key(const file_archive_entry *entry) {
    return entry->name;
}

static u32 name_hash(const char *name) {
    u32 sum = 0;
    for (; *name != '\0'; ++name)
        sum += static_cast<u32>(static_cast<i8>(*name));
    return sum;
}

static int name_compare(const char *a, const char *b) {
    const int order = std::strcmp(a, b);
    return (order > 0) - (order < 0);
}

static void entry_free(file_archive_entry *entry) {
    std::free(entry->name);
    std::free(entry);
}

// The stored name, restored; null when memory is short (logged).
static char *read_name(file_reader *reader, i32 length) {
    auto *name = static_cast<char *>(std::calloc(static_cast<std::size_t>(length) + 1, 1));
    if (name == nullptr) {
        log_out_of_memory();
        return nullptr;
    }
    file_reader_read(reader, name, length);
    string_shift(name, ARCHIVE_NAME_SHIFT);
    return name;
}

// Reads what follows the name length. Null when memory is short.
static file_archive_entry *read_entry(file_reader *reader, i32 name_length) {
    auto *entry = static_cast<file_archive_entry *>(std::calloc(1, sizeof(file_archive_entry)));
    if (entry == nullptr) {
        log_out_of_memory();
        return nullptr;
    }
    entry->name = read_name(reader, name_length);
    if (entry->name == nullptr) {
        entry_free(entry);
        return nullptr;
    }
    entry->offset = file_reader_i32(reader);
    entry->size = file_reader_i32(reader);
    return entry;
}

// Takes the entry over: into the table, or away when it is damaged. False when memory is short.
static bool keep_entry(file_archive *archive, file_archive_entry *entry, i32 file_size) {
    const i32 data_size = file_size - archive->data_base;
    const bool named = entry->name[0] != '\0';
    if (!named || entry->offset < 0 || entry->size < 0 || entry->size > data_size - entry->offset) {
        log_error("Warning: %s: entry \"%s\" lies outside the file or has no name\n", archive->path, entry->name);
        entry_free(entry);
        return true;
    }
    if (hash_insert(archive->by_name, entry) >= 0)
        return true;
    entry_free(entry);
    return false;
}

static bool read_entries(file_archive *archive, file_reader *reader, i32 file_size) {
    if (archive->data_base <= ARCHIVE_HEADER_BYTES)
        return true;
    i32 left = archive->data_base - ARCHIVE_HEADER_BYTES; // bytes of the directory not read yet
    while (left > 0) {
        const i32 name_length = left >= ARCHIVE_ENTRY_BYTES ? file_reader_i32(reader) : -1;
        if (name_length < 0 || name_length > left - ARCHIVE_ENTRY_BYTES) {
            log_error("Warning: %s: the directory is damaged %i bytes before its end\n", archive->path, left);
            return true;
        }
        file_archive_entry *entry = read_entry(reader, name_length);
        if (entry == nullptr || !keep_entry(archive, entry, file_size))
            return false;
        left -= name_length + ARCHIVE_ENTRY_BYTES;
    }
    return true;
}

static bool read_directory(file_archive *archive) {
    file_reader *reader = file_reader_open(archive->path);
    if (reader == nullptr)
        return false;
    hash_clear(archive->by_name);
    const i32 file_size = platform_size(reader->descriptor);
    archive->data_base = file_reader_i32(reader);
    const bool whole = !reader->cut && archive->data_base <= file_size;
    if (!whole)
        log_error("%s is cut short: its directory is not whole\n", archive->path);
    const bool read = whole && read_entries(archive, reader, file_size);
    file_reader_destroy(reader);
    return read;
}

file_archive *file_archive_create(const char *path) {
    auto *archive = static_cast<file_archive *>(std::calloc(1, sizeof(file_archive)));
    if (archive == nullptr) {
        log_error("file_archive_create () - Out of memory\n");
        return nullptr;
    }
    archive->descriptor = NOT_OPEN;
    archive->by_name = hash_create(BUCKETS, entry_key, name_hash, name_compare);
    if (archive->by_name != nullptr) {
        hash_set_free(archive->by_name, entry_free);
        if (string_set(&archive->path, path) < 0)
            log_out_of_memory();
        else if (read_directory(archive))
            return archive;
    }
    file_archive_destroy(archive);
    return nullptr;
}

int file_archive_seek(file_archive *archive, const char *name) {
    if (archive->descriptor == NOT_OPEN)
        return -1;
    file_archive_entry *entry = hash_find(archive->by_name, name);
    if (entry == nullptr)
        return -1;
    if (platform_seek(archive->descriptor, archive->data_base + entry->offset) < 0) {
        std::perror("lseek ()");
        return -1;
    }
    archive->current = entry;
    return archive->descriptor;
}

void file_archive_destroy(file_archive *archive) {
    if (archive == nullptr)
        return;
    hash_destroy(archive->by_name);
    if (archive->descriptor != NOT_OPEN)
        platform_close(archive->descriptor);
    std::free(archive->path);
    std::free(archive);
}

// --- the program's one archive -------------------------------------------------------------------

static file_archive *data_archive = nullptr;

i32 data_archive_open() {
    data_archive = file_archive_create("..\\data\\data.dar");
    return data_archive != nullptr ? 1 : -1;
}

void data_archive_close() {
    file_archive_destroy(data_archive);
    data_archive = nullptr;
}

int data_archive_open_entry(const char *name) {
    if (data_archive == nullptr)
        return -1;
    if (data_archive->descriptor == NOT_OPEN) {
        data_archive->descriptor = platform_open_read(data_archive->path);
        if (data_archive->descriptor < 0) {
            data_archive->descriptor = NOT_OPEN;
            log_error("Could not open %s for reading\n", data_archive->path);
        }
    }
    return file_archive_seek(data_archive, name);
}

i32 data_archive_entry_size(const char *name) {
    const file_archive_entry *entry = data_archive != nullptr ? hash_find(data_archive->by_name, name) : nullptr;
    return entry != nullptr ? entry->size : -1;
}

i32 data_archive_current_size() {
    return data_archive != nullptr && data_archive->current != nullptr ? data_archive->current->size : -1;
}

// Gives *text size + 1 zero bytes; false when memory is short (logged, block untouched).
static bool resize_text(char **text, i32 size) {
    const std::size_t bytes = static_cast<std::size_t>(size) + 1;
    // NOLINTNEXTLINE(clang-analyzer-optin.portability.UnixAPI): no entry has a size of -1
    auto *block = static_cast<char *>(std::realloc(*text, bytes));
    if (block == nullptr) {
        log_out_of_memory();
        return false;
    }
    std::memset(block, 0, bytes);
    *text = block;
    return true;
}

i32 data_archive_read_text(char **text, const char *name) {
    char *path = nullptr;
    if (name == nullptr || string_printf(&path, "%s%s", TEXT_FOLDER, name) < 0)
        return -1;
    const int descriptor = data_archive_open_entry(path);
    std::free(path);
    if (descriptor < 0)
        return -1;
    const i32 size = data_archive_current_size();
    if (!resize_text(text, size))
        return -1;
    const std::ptrdiff_t n = platform_read(descriptor, *text, static_cast<std::size_t>(size));
    return n == size ? size : -2;
}
