// xpm.cpp: scanner, palette and rows.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "resources/xpm.h"

#include "core/strings.h"
#include "resources/pixel.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

// --- alphabet ------------------------------------------------------------------------------------

static constexpr std::string_view ALPHABET =
    " .+@#$%&*=-;>,')!~{]^/(_:<[}|1234567890abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ`";
static constexpr i32 RANK_BITS = 7;           // a symbol's key has this many bits a character
static constexpr u8 NO_RANK = 1 << RANK_BITS; // a character outside the alphabet
static constexpr i32 MAX_SYMBOL_LENGTH = 9;
static constexpr i32 MAX_FLAT_LENGTH = 2;
static constexpr i32 COLOR_DIGITS = 6;
static_assert(ALPHABET.size() == 92 && ALPHABET.size() < NO_RANK);
static_assert(RANK_BITS * MAX_SYMBOL_LENGTH < 64, "a key, plus one, fits its integer");

static constexpr auto RANKS = [] {
    std::array<u8, 256> ranks = {};
    ranks.fill(NO_RANK);
    for (std::size_t i = 0; i < ALPHABET.size(); ++i)
        ranks[static_cast<u8>(ALPHABET[i])] = static_cast<u8>(i);
    return ranks;
}();

// The flat table of short symbols.
static constexpr i32 ROW_LENGTH = 256;
static constexpr std::size_t ROW_BYTES = ROW_LENGTH * sizeof(u32);
static constexpr u32 SYMBOL_UNKNOWN = u32{1} << 31;
static_assert((pixel32::from_rgb({0xFF, 0xFF, 0xFF}) & SYMBOL_UNKNOWN) == 0, "no pixel looks like it");

static constexpr auto UNDEFINED_ROW = [] {
    std::array<u32, ROW_LENGTH> row = {};
    for (std::size_t c = 0; c < row.size(); ++c)
        row[c] = RANKS[c] == NO_RANK ? SYMBOL_UNKNOWN : 0;
    return row;
}();

static u8 rank_of(char c) {
    return RANKS[static_cast<u8>(c)];
}

// Whether every character belongs to the alphabet; says which does not.
static bool symbols_known(std::span<const char> characters) {
    for (const char c : characters) {
        if (rank_of(c) == NO_RANK) {
            std::fprintf(stderr, "Warning, palette symbol %c does not exist, returning -1\n", c);
            return false;
        }
    }
    return true;
}

static u64 symbol_key(const char *symbol, i32 length) {
    u64 key = 0;
    for (i32 i = 0; i < length; ++i)
        key = key << RANK_BITS | rank_of(symbol[i]);
    return key;
}

// --- scanner -------------------------------------------------------------------------------------

// The characters before the next c, which is skipped too. Without one the text is used up and found cleared.
static std::span<const char> take_until(xpm *picture, char c, bool *found) {
    const std::span<const char> text = picture->text;
    const auto *at = text.empty() ? nullptr : static_cast<const char *>(std::memchr(text.data(), c, text.size()));
    if (at == nullptr) {
        *found = false;
        picture->text = {};
        return text;
    }
    const auto n = static_cast<std::size_t>(at - text.data());
    picture->text = text.subspan(n + 1);
    return text.first(n);
}

// Mostly it stands right at the beginning.
static bool skip_past(xpm *picture, char c) {
    constexpr std::size_t NEAR = 4;
    const std::span<const char> text = picture->text;
    for (std::size_t i = 0; i < std::min(NEAR, text.size()); ++i) {
        if (text[i] == c) {
            picture->text = text.subspan(i + 1);
            return true;
        }
    }
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

// The index of the first entry of a new row of the flat table: black where the alphabet has a character.
static u32 add_flat_row(xpm_palette *palette) {
    const std::size_t index = ROW_LENGTH * static_cast<std::size_t>(palette->rows++);
    std::memcpy(palette->flat + index, UNDEFINED_ROW.data(), ROW_BYTES);
    return static_cast<u32>(index);
}

// The first row is that of characters outside the alphabet, the second that of undefined first characters, and of all
// symbols of one character.
static bool create_flat(xpm_palette *palette, i32 color_count, i32 symbol_length) {
    constexpr i32 FIXED_ROWS = 2;
    const i32 first_characters = symbol_length == 1 ? 0 : std::min(color_count, static_cast<i32>(ALPHABET.size()));
    palette->flat =
        static_cast<u32 *>(std::malloc(static_cast<std::size_t>(FIXED_ROWS + first_characters) * ROW_BYTES));
    if (palette->flat == nullptr)
        return false;
    std::fill_n(palette->flat, ROW_LENGTH, SYMBOL_UNKNOWN);
    palette->rows = 1;
    add_flat_row(palette);
    for (i32 c = 0; c < ROW_LENGTH; ++c)
        palette->row_of[c] = UNDEFINED_ROW[static_cast<std::size_t>(c)] == SYMBOL_UNKNOWN ? 0 : ROW_LENGTH;
    return true;
}

static bool palette_create(xpm_palette *palette, i32 color_count, i32 symbol_length) {
    bool created = false;
    if (symbol_length <= MAX_FLAT_LENGTH) {
        created = create_flat(palette, color_count, symbol_length);
    } else {
        const std::size_t slots = std::bit_ceil(static_cast<std::size_t>(color_count) * 2); // half of them stay free
        palette->slots = static_cast<xpm_palette::slot *>(std::calloc(slots, sizeof(xpm_palette::slot)));
        palette->mask = static_cast<u32>(slots - 1);
        created = palette->slots != nullptr;
    }
    if (!created)
        std::fprintf(stderr, "Warning: could not allocate memory for palette node\n");
    return created;
}

// The slot that holds this key, or the free one where it belongs.
static xpm_palette::slot *find_slot(const xpm_palette *palette, u64 key) {
    constexpr u64 spread = 0x9E3779B97F4A7C15; // odd, without pattern: neighbouring keys part
    constexpr i32 upper_half = 32;
    u32 at = static_cast<u32>(key * spread >> upper_half) & palette->mask;
    while (palette->slots[at].key != 0 && palette->slots[at].key != key + 1)
        at = (at + 1) & palette->mask;
    return &palette->slots[at];
}

static void flat_set(xpm_palette *palette, std::span<const char> symbol, u32 pixel) {
    u32 row = ROW_LENGTH;
    if (symbol.size() > 1) {
        u32 &of_first = palette->row_of[static_cast<u8>(symbol[0])];
        if (of_first == ROW_LENGTH)
            of_first = add_flat_row(palette);
        row = of_first;
    }
    palette->flat[row + static_cast<u8>(symbol.back())] = pixel;
}

static void palette_set(xpm_palette *palette, std::span<const char> symbol, u32 pixel) {
    if (palette->flat != nullptr)
        return flat_set(palette, symbol, pixel);
    const u64 key = symbol_key(symbol.data(), static_cast<i32>(symbol.size()));
    *find_slot(palette, key) = {key + 1, pixel};
}

static u32 to_pixel(rgb color) {
    return video_format.depth == pixel16::BITS ? pixel16::from_rgb(color) : pixel32::from_rgb(color);
}

static rgb hex_color(const char *digits) {
    return {hex_byte(digits), hex_byte(digits + 2), hex_byte(digits + 4)};
}

// Reads a colour: "#" and six digits; anything else is black. False when the text ends.
static bool read_color(xpm *picture, rgb *color) {
    const char *mark = take(picture, 1);
    const char *digits = mark != nullptr && *mark == '#' ? take(picture, COLOR_DIGITS) : "000000";
    if (mark == nullptr || digits == nullptr)
        return false;
    *color = hex_color(digits);
    return true;
}

// What follows a symbol, to the end of the string. Nearly every line has the first form, which is told at a glance.
static bool read_definition(xpm *picture, rgb *color) {
    constexpr std::string_view BEFORE = " c #";
    constexpr std::size_t QUOTE = BEFORE.size() + COLOR_DIGITS;
    const std::string_view text(picture->text.data(), picture->text.size());
    if (text.size() > QUOTE && text.starts_with(BEFORE) && text[QUOTE] == '"') {
        *color = hex_color(text.data() + BEFORE.size());
        picture->text = picture->text.subspan(QUOTE + 1);
        return true;
    }
    return skip_past(picture, 'c') && skip_past(picture, ' ') && read_color(picture, color) && skip_past(picture, '"');
}

static bool read_palette_line(xpm *picture) {
    if (!skip_past(picture, '"'))
        return false;
    const auto length = static_cast<std::size_t>(picture->symbol_length);
    const char *symbol = take(picture, length);
    rgb color = {};
    if (symbol == nullptr || !read_definition(picture, &color) || !symbols_known({symbol, length}))
        return false;
    palette_set(&picture->palette, {symbol, length}, to_pixel(color));
    return true;
}

// --- values --------------------------------------------------------------------------------------

static bool read_values(xpm *picture) {
    bool found = skip_past(picture, '"');
    picture->width = to_number(take_until(picture, ' ', &found));
    picture->height = to_number(take_until(picture, ' ', &found));
    picture->color_count = to_number(take_until(picture, ' ', &found));
    picture->symbol_length = to_number(take_until(picture, '"', &found));
    return found;
}

// Whether there are as many symbols of this length as colours.
static bool symbols_suffice(const xpm *picture) {
    i64 symbols = 1;
    for (i32 i = 0; i < picture->symbol_length && symbols < picture->color_count; ++i)
        symbols *= static_cast<i64>(ALPHABET.size());
    return picture->color_count <= symbols;
}

// Whether the values make sense and the text is long enough for what they announce.
static bool values_sane(const xpm *picture) {
    const i32 width = picture->width, height = picture->height, length = picture->symbol_length;
    if (width < 1 || width > XPM_MAX_SIDE || height < 1 || height > XPM_MAX_SIDE || picture->color_count < 1 ||
        length < 1 || length > MAX_SYMBOL_LENGTH)
        return false;
    const i64 announced = (i64{width} * height + picture->color_count) * length;
    return symbols_suffice(picture) && announced <= static_cast<i64>(picture->text.size());
}

bool xpm_open(xpm *picture, std::span<const char> text) {
    *picture = {};
    picture->text = text;
    if (!read_values(picture) || !values_sane(picture) ||
        !palette_create(&picture->palette, picture->color_count, picture->symbol_length))
        return false;
    for (i32 i = 0; i < picture->color_count; ++i)
        if (!read_palette_line(picture))
            return false;
    return true;
}

void xpm_close(xpm *picture) {
    std::free(picture->palette.flat);
    std::free(picture->palette.slots);
    picture->palette = {};
}

// --- rows ----------------------------------------------------------------------------------------

// One and two characters a pixel. What the entries say of unknown characters is gathered and judged once a row, so the
// loop has no branches.
template <class Pixel, i32 LENGTH>
static bool decode_flat(const xpm_palette &palette, const char *row, Pixel *out, i32 width) {
    const u32 *flat = palette.flat + (LENGTH == 1 ? ROW_LENGTH : 0);
    u32 seen = 0;
    for (i32 x = 0; x < width; ++x, row += LENGTH) {
        u32 entry = static_cast<u8>(row[0]);
        if (LENGTH > 1)
            entry = palette.row_of[entry] + static_cast<u8>(row[LENGTH - 1]);
        entry = flat[entry];
        seen |= entry;
        out[x] = static_cast<Pixel>(entry);
    }
    return (seen & SYMBOL_UNKNOWN) == 0;
}

template <class Pixel> static bool decode_row(const xpm *picture, const char *row, Pixel *out) {
    const i32 length = picture->symbol_length;
    if (length == 1)
        return decode_flat<Pixel, 1>(picture->palette, row, out, picture->width);
    if (length == 2)
        return decode_flat<Pixel, 2>(picture->palette, row, out, picture->width);
    for (i32 x = 0; x < picture->width; ++x, row += length)
        out[x] = static_cast<Pixel>(find_slot(&picture->palette, symbol_key(row, length))->pixel);
    return true;
}

// Many rows repeat the one above, as in frames and plain boards, and are copied.
template <class Pixel> static bool decode_rows(xpm *picture, Pixel *out) {
    const auto width = static_cast<std::size_t>(picture->width);
    const std::size_t length = width * static_cast<std::size_t>(picture->symbol_length);
    const bool long_symbols = picture->symbol_length > MAX_FLAT_LENGTH;
    const char *above = nullptr;
    for (i32 y = 0; y < picture->height; ++y, out += width) {
        const char *row = skip_past(picture, '"') ? take(picture, length) : nullptr;
        if (row == nullptr || !skip_past(picture, '"'))
            return false;
        if (above != nullptr && std::memcmp(row, above, length) == 0) {
            std::memcpy(out, out - width, width * sizeof(Pixel));
            continue;
        }
        above = row;
        if (long_symbols && !symbols_known({row, length}))
            return false;
        if (!decode_row(picture, row, out))
            return symbols_known({row, length}); // names the stranger
    }
    return true;
}

bool xpm_read_pixels(xpm *picture, void *pixels) {
    if (video_format.depth == pixel16::BITS)
        return decode_rows(picture, static_cast<u16 *>(pixels));
    return decode_rows(picture, static_cast<u32 *>(pixels));
}
