// strings.h: owned strings and hexadecimal digits.
//
// Nothing is kept between calls, so any thread may call. Out of memory is -1; string_printf logs it, string_set
// leaves that to its caller. Who owns a target frees it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <array>
#include <string_view>

// Makes *target an owned copy of source ("" for null). The length with terminator, or -1 (target untouched).
i32 string_set(char **target, const char *source);

// Formats into *target, an owned string that is reallocated. The text's length, or -1.
i32 string_printf(char **target, const char *format, ...) __attribute__((format(printf, 2, 3)));

// Adds k modulo 256 to every byte up to the terminator (128 and -128 undo each other). Accepts null.
void string_shift(char *text, i32 k);

char char_upper(char c); // 'a'..'z' to 'A'..'Z', all else unchanged

// Hexadecimal digits by character; others count as 0.
inline constexpr auto HEX_DIGITS = [] {
    constexpr std::string_view lower = "0123456789abcdef", upper = "0123456789ABCDEF";
    std::array<u8, 256> digits = {};
    for (const std::string_view of : {lower, upper})
        for (std::size_t i = 0; i < of.size(); ++i)
            digits[static_cast<u8>(of[i])] = static_cast<u8>(i);
    return digits;
}();

// The first two characters as hexadecimal digits.
constexpr u8 hex_byte(const char *text) {
    return static_cast<u8>(HEX_DIGITS[static_cast<u8>(text[0])] << 4 | HEX_DIGITS[static_cast<u8>(text[1])]);
}
