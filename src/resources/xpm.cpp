// xpm.cpp: scanner, palette and rows.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "resources/xpm.h"

#include "core/strings.h"
#include "resources/pixel.h"

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

static bool palette_create(xpm_palette *palette, i32 color_count, i32 symbol_length) {
    if (symbol_length <= MAX_FLAT_LENGTH) {
        palette->flat = static_cast<u32 *>(std::calloc(std::size_t{1} << (RANK_BITS * symbol_length), sizeof(u32)));
    } else {
        const std::size_t slots = std::bit_ceil(static_cast<std::size_t>(color_count) * 2); // half of them stay free
        palette->slots = static_cast<xpm_palette::slot *>(std::calloc(slots, sizeof(xpm_palette::slot)));
        palette->mask = static_cast<u32>(slots - 1);
    }
    if (palette->flat != nullptr || palette->slots != nullptr)
        return true;
    std::fprintf(stderr, "Warning: could not allocate memory for palette node\n");
    return false;
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

static void palette_set(xpm_palette *palette, u64 key, u32 pixel) {
    if (palette->flat != nullptr)
        palette->flat[key] = pixel;
    else
        *find_slot(palette, key) = {key + 1, pixel};
}

static u32 to_pixel(rgb color) {
    return video_format.depth == pixel16::BITS ? pixel16::from_rgb(color) : pixel32::from_rgb(color);
}

// Reads a colour: "#" and six digits; anything else is black. Null when the text ends.
static bool read_color(xpm *picture, rgb *color) {
    const char *mark = take(picture, 1);
    const char *digits = mark != nullptr && *mark == '#' ? take(picture, COLOR_DIGITS) : "000000";
    if (mark == nullptr || digits == nullptr)
        return false;
    *color = {hex_byte(digits), hex_byte(digits + 2), hex_byte(digits + 4)};
    return true;
}

static bool read_palette_line(xpm *picture) {
    if (!skip_past(picture, '"'))
        return false;
    const auto length = static_cast<std::size_t>(picture->symbol_length);
    const char *symbol = take(picture, length);
    rgb color = {};
    if (symbol == nullptr || !skip_past(picture, 'c') || !skip_past(picture, ' ') || !read_color(picture, &color) ||
        !skip_past(picture, '"') || !symbols_known({symbol, length}))
        return false;
    palette_set(&picture->palette, symbol_key(symbol, picture->symbol_length), to_pixel(color));
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

// One and two characters a pixel: the key indexes the flat table. The ranks are gathered and judged once a
// row, so the loop has no branches; NO_RANK is masked away and cannot lead outside the table.
template <class Pixel, i32 LENGTH> static bool decode_flat(const u32 *flat, const char *row, Pixel *out, i32 width) {
    constexpr u32 rank_mask = NO_RANK - 1;
    u32 seen = 0;
    for (i32 x = 0; x < width; ++x) {
        u32 key = 0;
        for (i32 i = 0; i < LENGTH; ++i) {
            const u32 rank = rank_of(*row++);
            seen |= rank;
            key = key << RANK_BITS | (rank & rank_mask);
        }
        out[x] = static_cast<Pixel>(flat[key]);
    }
    return (seen & NO_RANK) == 0;
}

template <class Pixel> static bool decode_row(const xpm *picture, const char *row, Pixel *out) {
    const i32 length = picture->symbol_length;
    if (length == 1)
        return decode_flat<Pixel, 1>(picture->palette.flat, row, out, picture->width);
    if (length == 2)
        return decode_flat<Pixel, 2>(picture->palette.flat, row, out, picture->width);
    for (i32 x = 0; x < picture->width; ++x, row += length)
        out[x] = static_cast<Pixel>(find_slot(&picture->palette, symbol_key(row, length))->pixel);
    return true;
}

template <class Pixel> static bool decode_rows(xpm *picture, Pixel *out) {
    const std::size_t length =
        static_cast<std::size_t>(picture->width) * static_cast<std::size_t>(picture->symbol_length);
    for (i32 y = 0; y < picture->height; ++y, out += picture->width) {
        const char *row = skip_past(picture, '"') ? take(picture, length) : nullptr;
        if (row == nullptr || !skip_past(picture, '"'))
            return false;
        const bool long_symbols = picture->symbol_length > MAX_FLAT_LENGTH;
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
