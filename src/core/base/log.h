// log.h: the one channel for warnings and failures.
//
// Messages go to standard error until a log file is named; from then on each message is appended to the
// file, which is opened and closed for every message. Any thread may log; nothing fails visibly.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline constexpr i32 LOG_STDERR = 1; // the mode at start
inline constexpr i32 LOG_FILE = 2;   // append to the named file; any other mode drops messages

void log_set_mode(i32 mode);         // before any other thread runs
void log_set_file(const char *name); // cut to 127 characters

// Writes "[process id]" and the formatted message, which brings its own line end.
void log_error(const char *format, ...) __attribute__((format(printf, 1, 2)));

// Writes the time, the operation that failed and the system's reason (errno).
void log_errno(const char *what);

void log_out_of_memory(); // for allocations that have no message of their own
