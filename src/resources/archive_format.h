// archive_format.h: the layout of an archive file, shared by the game and the archive tool.
//
// A 32-bit big-endian directory length (itself included), the directory entries one after the other, then the
// data area. An entry is a name length, the name, the offset of its bytes in the data area and their number.
// Names use '/' and are stored with ARCHIVE_NAME_SHIFT added to every byte. Texts lie in TEXT_FOLDER.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

inline constexpr i32 ARCHIVE_INT_BYTES = 4;
inline constexpr i32 ARCHIVE_HEADER_BYTES = ARCHIVE_INT_BYTES;
inline constexpr i32 ARCHIVE_ENTRY_BYTES = 3 * ARCHIVE_INT_BYTES; // and the name's
inline constexpr i32 ARCHIVE_NAME_SHIFT = 0x80;
inline constexpr u32 BITS_PER_BYTE = 8;
inline constexpr char TEXT_FOLDER[] = "txt/";

// Four bytes, most significant first, as an integer; and back.
constexpr i32 big_endian_i32(const u8 *bytes) {
    u32 value = 0;
    for (i32 i = 0; i < ARCHIVE_INT_BYTES; ++i)
        value = value << BITS_PER_BYTE | bytes[i];
    return static_cast<i32>(value);
}
constexpr void put_big_endian_i32(u8 *bytes, i32 number) {
    auto value = static_cast<u32>(number);
    for (i32 i = ARCHIVE_INT_BYTES; i-- > 0; value >>= BITS_PER_BYTE)
        bytes[i] = static_cast<u8>(value);
}
