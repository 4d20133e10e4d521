// strings.cpp: owned strings and hexadecimal digits.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/strings.h"

#include "core/base/log.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

static constexpr std::size_t PRINT_STEP = 2048;     // bytes a formatted string grows by
static constexpr std::size_t PRINT_LIMIT = 2097152; // 2 MiB, the largest block tried
static_assert(PRINT_LIMIT % PRINT_STEP == 0, "growth ends exactly at the limit");

i32 string_set(char **target, const char *source) {
    if (source == nullptr)
        source = "";
    const std::size_t size = std::strlen(source) + 1;
    if (source != *target) {
        auto *copy = static_cast<char *>(std::realloc(*target, size));
        if (copy == nullptr)
            return -1;
        std::memcpy(copy, source, size);
        *target = copy;
    }
    return static_cast<i32>(size);
}

// Gives *text this many bytes; when memory is short frees it, logs and returns false.
static bool resize_or_free(char **text, std::size_t size) {
    auto *block = static_cast<char *>(std::realloc(*text, size));
    if (block == nullptr) {
        std::free(*text);
        log_out_of_memory();
    }
    *text = block;
    return block != nullptr;
}

// Formats into *text, growing it until the result fits. The length, or -1 with *text freed and null.
static i32 format_growing(char **text, const char *format, std::va_list arguments) {
    std::va_list again;
    va_copy(again, arguments);
    int length = std::vsnprintf(*text, PRINT_STEP, format, arguments);
    const std::size_t needed = length < 0 ? PRINT_LIMIT : static_cast<std::size_t>(length);
    if (needed >= PRINT_LIMIT) {
        std::free(*text);
        *text = nullptr;
        log_out_of_memory();
        length = -1;
    } else if (needed >= PRINT_STEP) {
        const std::size_t size = (needed / PRINT_STEP + 1) * PRINT_STEP;
        length = resize_or_free(text, size) ? std::vsnprintf(*text, size, format, again) : -1;
    }
    va_end(again);
    if (length < 0 || !resize_or_free(text, static_cast<std::size_t>(length) + 1))
        return -1;
    return length;
}

i32 string_printf(char **target, const char *format, ...) {
    auto *block = static_cast<char *>(std::realloc(*target, PRINT_STEP));
    if (block == nullptr) {
        log_out_of_memory();
        return -1;
    }
    std::va_list arguments;
    va_start(arguments, format);
    const i32 length = format_growing(&block, format, arguments);
    va_end(arguments);
    *target = block;
    return length;
}

void string_shift(char *text, i32 k) {
    if (text == nullptr)
        return;
    for (; *text != '\0'; ++text)
        *text = static_cast<char>(static_cast<u8>(*text) + static_cast<u32>(k));
}

char char_upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
