// archive.h: the data archive, one file that holds every picture, sound and text.
//
// Main thread. One descriptor and its file position are shared by all readers: finish with an entry before
// opening the next. Failures return -1, -2 or null; see each function.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

struct file_archive; // an open archive and its directory

[[nodiscard]] file_archive *file_archive_create(const char *path); // null when the directory cannot be read (logged)
void file_archive_destroy(file_archive *archive);                  // accepts null
int file_archive_seek(file_archive *archive, const char *name);    // the descriptor at the entry's first byte, or -1

// The program's one archive, ..\data\data.dar.
[[nodiscard]] i32 data_archive_open();         // 1 or -1
void data_archive_close();                     // accepts an archive that was never opened
int data_archive_open_entry(const char *name); // descriptor at the entry's first byte (never close it), or -1
i32 data_archive_entry_size(const char *name); // bytes, or -1
i32 data_archive_current_size();               // bytes of the entry opened last, or -1

// Reads "txt/NAME" whole into the owned block *text, resized and zero-terminated. Bytes read, -1 when there
// is no such entry (block untouched), -2 when it could not be read whole.
i32 data_archive_read_text(char **text, const char *name);
