// log.cpp: the message channel. The mode and the file name are set at start-up, before any other thread runs.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/log.h"

#include "core/base/dates.h"
#include "platform/platform.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

static constexpr std::size_t FILE_NAME_SIZE = 128; // bytes, with the terminator

static i32 log_mode = LOG_STDERR;
static char log_file_name[FILE_NAME_SIZE] = "";

void log_set_mode(i32 mode) {
    log_mode = mode;
}

void log_set_file(const char *name) {
    std::snprintf(log_file_name, sizeof log_file_name, "%s", name);
}

static void write_message(std::FILE *out, const char *format, std::va_list arguments) {
    std::fprintf(out, "[%i]", platform_process_id());
    std::vfprintf(out, format, arguments);
}

// The stream is fully buffered, so a message reaches the file in one appending write and messages of two
// threads do not mix.
static void append_message(const char *format, std::va_list arguments) {
    std::FILE *file = std::fopen(log_file_name, "ab");
    if (file == nullptr) {
        std::fprintf(stderr, "[%i] Warning: Could not open error log file %s for writing\n", platform_process_id(),
                     log_file_name);
        return;
    }
    write_message(file, format, arguments);
    std::fclose(file);
}

void log_error(const char *format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (log_mode == LOG_STDERR)
        write_message(stderr, format, arguments);
    else if (log_mode == LOG_FILE)
        append_message(format, arguments);
    va_end(arguments);
}

void log_errno(const char *what) {
    const int reason = errno; // asking for the time may change it
    log_error("%s %s - %s\n", log_timestamp().text, what, std::strerror(reason));
}

void log_out_of_memory() {
    log_error("Out of memory\n");
}
