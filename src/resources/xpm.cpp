// xpm.cpp: scanner, palette and rows.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "resources/xpm.h"

#include "core/base/strings.h"
#include "resources/pixel.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

static constexpr i32 MAX_SYMBOL_LENGTH = 9; // characters; each takes a level of tables
static constexpr i32 COLOUR_DIGITS = 6;

static void say_unknown(char c) {
    std::fprintf(stderr, "Warning, palette symbol %c does not exist, returning -1\n", c);
}

// --- scanner -------------------------------------------------------------------------------------

// The characters before the next c, which is skipped too. Without one the text is used up and found cleared.
static std::span<const char> take_until(xpm *picture, char c, bool *found) {
    const std::span<const char> text = picture->text;
    std::size_t n = 0; // mostly a few, which a plain loop passes faster than a call
    while (n < text.size() && text[n] != c)
        ++n;
    *found = *found && n < text.size();
    picture->text = text.subspan(std::min(n + 1, text.size()));
    return text.first(n);
}

static bool skip_past(xpm *picture, char c) {
    bool found = true;
    take_until(picture, c, &found);
    return found;
}

// The next n characters, or null when fewer are left.
static const char *take(xpm *picture, std::size_t n) {
    if (n > picture->text.size())
        return nullptr;
    const char *characters = picture->text.data();
    picture->text = picture->text.subspan(n);
    return characters;
}

// A decimal number with spaces or a sign before it and anything behind it; 0 without digits, -1 when huge.
static i32 to_number(std::span<const char> token) {
    const char *first = token.data(), *last = first + token.size();
    while (first < last && (*first == ' ' || (*first >= '\t' && *first <= '\r')))
        ++first;
    if (first < last && *first == '+')
        ++first;
    i32 value = 0;
    const std::errc error = std::from_chars(first, last, value).ec;
    return error == std::errc::result_out_of_range ? -1 : value;
}

// --- palette -------------------------------------------------------------------------------------

// The first table is where characters lead that belong to no alphabet: back to itself, and marked. One for each level
// follows, in which all others lead through the levels to black; that of the first level is the root.
static constexpr u32 TABLE = 256; // entries
static constexpr u32 UNKNOWN = u32{1} << 31;
static_assert((pixel32::from_rgb(WHITE) & UNKNOWN) == 0, "no pixel looks like it");

static constexpr u32 table_of_level(i32 level) {
    return static_cast<u32>(1 + level) * TABLE;
}
static constexpr u32 ROOT = table_of_level(0);

// Where a new table begins, whose entries are undefined; UNKNOWN when memory is short.
static u32 add_table(xpm_palette *palette) {
    if (palette->used == palette->capacity) {
        const i32 capacity = 2 * palette->capacity + MAX_SYMBOL_LENGTH + 1;
        void *tables = std::realloc(palette->tables, static_cast<std::size_t>(capacity) * TABLE * sizeof(u32));
        if (tables == nullptr) {
            std::fprintf(stderr, "Warning: could not allocate memory for palette node\n");
            return UNKNOWN;
        }
        palette->tables = static_cast<u32 *>(tables);
        palette->capacity = capacity;
    }
    return static_cast<u32>(palette->used++) * TABLE;
}

static u32 copy_table(xpm_palette *palette, u32 like) {
    const u32 fresh = add_table(palette);
    if (fresh != UNKNOWN)
        std::copy_n(palette->tables + like, TABLE, palette->tables + fresh);
    return fresh;
}

static bool palette_create(xpm_palette *palette, i32 symbol_length) {
    const u32 strangers = add_table(palette);
    if (strangers == UNKNOWN)
        return false;
    std::fill_n(palette->tables + strangers, TABLE, UNKNOWN);
    for (i32 level = 0; level < symbol_length; ++level) {
        u32 *table = palette->tables + copy_table(palette, strangers); // the first table has left room for all levels
        for (const char c : XPM_ALPHABET)
            table[static_cast<u8>(c)] = level + 1 < symbol_length ? table_of_level(level + 1) : 0;
    }
    return true;
}

// False when a character does not belong to the alphabet or memory is short, which it says.
static bool palette_set(xpm_palette *palette, std::span<const char> symbol, u32 pixel) {
    u32 table = ROOT;
    for (i32 level = 0;; ++level) {
        const char c = symbol[static_cast<std::size_t>(level)];
        const u32 at = table + static_cast<u8>(c), next = palette->tables[at];
        if ((next & UNKNOWN) != 0) {
            say_unknown(c);
            return false;
        }
        if (level + 1 == std::ssize(symbol)) {
            palette->tables[at] = pixel;
            return true;
        }
        table = next == table_of_level(level + 1) ? copy_table(palette, next) : next;
        if (table == UNKNOWN)
            return false;
        palette->tables[at] = table;
    }
}

static u32 to_pixel(const char *digits) {
    const rgb colour = {hex_byte(digits), hex_byte(digits + 2), hex_byte(digits + 4)};
    return video_format.depth == pixel16::BITS ? pixel16::from_rgb(colour) : pixel32::from_rgb(colour);
}

// The digits of a colour: "#" and six of them; anything else is black. Null when the text ends.
static const char *read_colour(xpm *picture) {
    const char *mark = take(picture, 1);
    if (mark == nullptr)
        return nullptr;
    return *mark == '#' ? take(picture, COLOUR_DIGITS) : "000000";
}

// The colour's digits in what follows a symbol, to the end of the string; null when the text ends.
static const char *read_definition(xpm *picture) {
    const char *digits = skip_past(picture, 'c') && skip_past(picture, ' ') ? read_colour(picture) : nullptr;
    return digits != nullptr && skip_past(picture, '"') ? digits : nullptr;
}

static bool read_palette_line(xpm *picture) {
    if (!skip_past(picture, '"'))
        return false;
    const auto length = static_cast<std::size_t>(picture->symbol_length);
    const char *symbol = take(picture, length);
    const char *digits = symbol != nullptr ? read_definition(picture) : nullptr;
    return digits != nullptr && palette_set(&picture->palette, {symbol, length}, to_pixel(digits));
}

// --- values --------------------------------------------------------------------------------------

static bool read_values(xpm *picture) {
    bool found = skip_past(picture, '"');
    picture->width = to_number(take_until(picture, ' ', &found));
    picture->height = to_number(take_until(picture, ' ', &found));
    picture->colour_count = to_number(take_until(picture, ' ', &found));
    picture->symbol_length = to_number(take_until(picture, '"', &found));
    return found;
}

// Whether there are as many symbols of this length as colours.
static bool symbols_suffice(const xpm *picture) {
    i64 symbols = 1;
    for (i32 i = 0; i < picture->symbol_length && symbols < picture->colour_count; ++i)
        symbols *= static_cast<i64>(XPM_ALPHABET.size());
    return picture->colour_count <= symbols;
}

// Whether the values make sense and the text is long enough for what they announce.
static bool values_sane(const xpm *picture) {
    const i32 width = picture->width, height = picture->height, length = picture->symbol_length;
    if (width < 1 || width > XPM_MAX_SIDE || height < 1 || height > XPM_MAX_SIDE || picture->colour_count < 1 ||
        length < 1 || length > MAX_SYMBOL_LENGTH)
        return false;
    const i64 announced = (i64{width} * height + picture->colour_count) * length;
    return symbols_suffice(picture) && announced <= static_cast<i64>(picture->text.size());
}

bool xpm_open(xpm *picture, std::span<const char> text) {
    *picture = {};
    picture->text = text;
    if (!read_values(picture) || !values_sane(picture) || !palette_create(&picture->palette, picture->symbol_length))
        return false;
    for (i32 i = 0; i < picture->colour_count; ++i)
        if (!read_palette_line(picture))
            return false;
    return true;
}

void xpm_close(xpm *picture) {
    std::free(picture->palette.tables);
    picture->palette = {};
}

// --- rows ----------------------------------------------------------------------------------------

// What the entries say of unknown characters is gathered and judged once a row. LENGTH: of the symbols, 0 for any.
template <i32 LENGTH, class Pixel> static bool decode_row(const xpm *picture, const char *row, Pixel *out) {
    const u32 *tables = picture->palette.tables;
    const i32 length = LENGTH != 0 ? LENGTH : picture->symbol_length;
    u32 seen = 0;
    for (Pixel *const end = out + picture->width; out != end; ++out) {
        u32 entry = ROOT;
        for (i32 level = 0; level < length; ++level)
            entry = tables[(entry & ~UNKNOWN) + static_cast<u8>(*row++)];
        seen |= entry;
        *out = static_cast<Pixel>(entry);
    }
    return (seen & UNKNOWN) == 0;
}

static void say_first_unknown(std::span<const char> symbols) {
    for (const char c : symbols) {
        if (XPM_ALPHABET.find(c) == std::string_view::npos) {
            say_unknown(c);
            return;
        }
    }
}

// Many rows repeat the one above, as in frames and plain boards, and are copied.
template <class Pixel> static bool decode_rows(xpm *picture, Pixel *out) {
    const i32 symbol = picture->symbol_length;
    const auto decode = symbol == 1 ? decode_row<1, Pixel> : symbol == 2 ? decode_row<2, Pixel> : decode_row<0, Pixel>;
    const auto length = static_cast<std::size_t>(picture->width) * static_cast<std::size_t>(symbol);
    const char *above = nullptr;
    for (i32 y = 0; y < picture->height; ++y, out += picture->width) {
        const char *row = skip_past(picture, '"') ? take(picture, length) : nullptr;
        if (row == nullptr || !skip_past(picture, '"'))
            return false;
        if (above != nullptr && std::memcmp(row, above, length) == 0) {
            std::copy_n(out - picture->width, picture->width, out);
        } else if (!decode(picture, row, out)) {
            say_first_unknown({row, length});
            return false;
        }
        above = row;
    }
    return true;
}

bool xpm_read_pixels(xpm *picture, void *pixels) {
    if (video_format.depth == pixel16::BITS)
        return decode_rows(picture, static_cast<u16 *>(pixels));
    return decode_rows(picture, static_cast<u32 *>(pixels));
}
