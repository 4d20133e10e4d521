// xpm.cpp: scanner, palette and rows.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "resources/xpm.h"

#include "core/base/strings.h"
#include "resources/pixel.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <utility>

// --- alphabet ------------------------------------------------------------------------------------

static constexpr i32 RANK_BITS = 7;           // a symbol's key has this many bits a character
static constexpr u8 NO_RANK = 1 << RANK_BITS; // a character outside the alphabet
static constexpr i32 MAX_SYMBOL_LENGTH = 9;
static constexpr i32 MAX_FLAT_LENGTH = 2;
static constexpr i32 COLOR_DIGITS = 6;
static_assert(XPM_ALPHABET.size() < NO_RANK);
static_assert(RANK_BITS * MAX_SYMBOL_LENGTH < 64, "a key, plus one, fits its integer");

static constexpr auto RANKS = [] {
    std::array<u8, 256> ranks = {};
    ranks.fill(NO_RANK);
    for (std::size_t i = 0; i < XPM_ALPHABET.size(); ++i)
        ranks[static_cast<u8>(XPM_ALPHABET[i])] = static_cast<u8>(i);
    return ranks;
}();

// The flat table of short symbols: rows of the first characters, and one of symbols of one character. It is kept from
// picture to picture, since filling it takes longer than decoding most; a picture puts back the rows that it changes.
static constexpr i32 ROW_LENGTH = 256, SINGLE_ROW = 256, ROW_COUNT = 257;
static constexpr u32 SYMBOL_UNKNOWN = u32{1} << 31;
static_assert((pixel32::from_rgb({0xFF, 0xFF, 0xFF}) & SYMBOL_UNKNOWN) == 0, "no pixel looks like it");

static u32 flat[ROW_COUNT * ROW_LENGTH]; // pixels; SYMBOL_UNKNOWN at characters outside the alphabet
static bool flat_changed[ROW_COUNT];
static std::atomic_flag flat_taken;

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

static void clear_row(std::size_t row) {
    std::ranges::copy(UNDEFINED_ROW, flat + row * ROW_LENGTH);
}

// False while another picture has it.
static bool take_flat() {
    static bool filled = false;
    if (flat_taken.test_and_set(std::memory_order_acquire))
        return false;
    if (!filled) {
        std::ranges::fill(flat, SYMBOL_UNKNOWN);
        for (const char c : XPM_ALPHABET)
            clear_row(static_cast<u8>(c));
        clear_row(SINGLE_ROW);
    }
    filled = true;
    return true;
}

static void give_flat_back() {
    for (std::size_t r = 0; r < ROW_COUNT; ++r)
        if (std::exchange(flat_changed[r], false))
            clear_row(r);
    flat_taken.clear(std::memory_order_release);
}

static bool palette_create(xpm_palette *palette, i32 color_count, i32 symbol_length) {
    palette->flat = symbol_length <= MAX_FLAT_LENGTH && take_flat();
    if (palette->flat)
        return true;
    const std::size_t slots = std::bit_ceil(static_cast<std::size_t>(color_count) * 2); // half of them stay free
    palette->slots = static_cast<xpm_palette::slot *>(std::calloc(slots, sizeof(xpm_palette::slot)));
    palette->mask = static_cast<u32>(slots - 1);
    if (palette->slots == nullptr)
        std::fprintf(stderr, "Warning: could not allocate memory for palette node\n");
    return palette->slots != nullptr;
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

static void palette_set(const xpm_palette *palette, std::span<const char> symbol, u32 pixel) {
    if (palette->flat) {
        const i32 row = symbol.size() == 1 ? SINGLE_ROW : static_cast<u8>(symbol.front());
        flat[row * ROW_LENGTH + static_cast<u8>(symbol.back())] = pixel;
        flat_changed[row] = true;
        return;
    }
    const u64 key = symbol_key(symbol.data(), static_cast<i32>(symbol.size()));
    *find_slot(palette, key) = {key + 1, pixel};
}

static u32 to_pixel(const char *digits) {
    const rgb color = {hex_byte(digits), hex_byte(digits + 2), hex_byte(digits + 4)};
    return video_format.depth == pixel16::BITS ? pixel16::from_rgb(color) : pixel32::from_rgb(color);
}

// The digits of a colour: "#" and six of them; anything else is black. Null when the text ends.
static const char *read_color(xpm *picture) {
    const char *mark = take(picture, 1);
    if (mark == nullptr)
        return nullptr;
    return *mark == '#' ? take(picture, COLOR_DIGITS) : "000000";
}

// The colour's digits in what follows a symbol, to the end of the string; null when the text ends. Nearly every line
// has the first form, which is told at a glance.
static const char *read_definition(xpm *picture) {
    constexpr std::string_view BEFORE = " c #";
    constexpr std::size_t QUOTE = BEFORE.size() + COLOR_DIGITS;
    const std::string_view text(picture->text.data(), picture->text.size());
    if (text.size() > QUOTE && text.starts_with(BEFORE) && text[QUOTE] == '"') {
        picture->text = picture->text.subspan(QUOTE + 1);
        return text.data() + BEFORE.size();
    }
    const char *digits = skip_past(picture, 'c') && skip_past(picture, ' ') ? read_color(picture) : nullptr;
    return digits != nullptr && skip_past(picture, '"') ? digits : nullptr;
}

static bool read_palette_line(xpm *picture) {
    if (!skip_past(picture, '"'))
        return false;
    const auto length = static_cast<std::size_t>(picture->symbol_length);
    const char *symbol = take(picture, length);
    const char *digits = symbol != nullptr ? read_definition(picture) : nullptr;
    if (digits == nullptr || !symbols_known({symbol, length}))
        return false;
    palette_set(&picture->palette, {symbol, length}, to_pixel(digits));
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
        symbols *= static_cast<i64>(XPM_ALPHABET.size());
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
    if (picture->palette.flat)
        give_flat_back();
    std::free(picture->palette.slots);
    picture->palette = {};
}

// --- rows ----------------------------------------------------------------------------------------

// The indices of the four symbols of two characters from here on, the first in the highest bits.
static u64 four_indices(const char *symbols) {
    u64 four = 0;
    std::memcpy(&four, symbols, sizeof four);
    return std::endian::native == std::endian::little ? __builtin_bswap64(four) : four;
}

// One and two characters a pixel. What the entries say of unknown characters is gathered and judged once a row, so the
// loop has no branches.
template <class Pixel, i32 LENGTH> static bool decode_flat(const char *row, Pixel *out, i32 width) {
    u32 seen = 0;
    i32 x = 0;
    const auto put = [&](i32 at, u64 index) {
        const u32 entry = flat[index];
        seen |= entry;
        out[at] = static_cast<Pixel>(entry);
    };
    for (; LENGTH == 2 && x + 4 <= width; x += 4, row += sizeof(u64)) {
        const u64 four = four_indices(row);
        put(x, four >> 48);
        put(x + 1, four >> 32 & 0xFFFF);
        put(x + 2, four >> 16 & 0xFFFF);
        put(x + 3, four & 0xFFFF);
    }
    for (; x < width; ++x, row += LENGTH) {
        const u32 in_row = LENGTH == 1 ? SINGLE_ROW : static_cast<u8>(row[0]);
        put(x, in_row * ROW_LENGTH + static_cast<u8>(row[LENGTH - 1]));
    }
    return (seen & SYMBOL_UNKNOWN) == 0;
}

template <class Pixel> static bool decode_row(const xpm *picture, const char *row, Pixel *out) {
    const i32 length = picture->symbol_length;
    if (picture->palette.flat)
        return (length == 1 ? decode_flat<Pixel, 1> : decode_flat<Pixel, 2>)(row, out, picture->width);
    for (i32 x = 0; x < picture->width; ++x, row += length)
        out[x] = static_cast<Pixel>(find_slot(&picture->palette, symbol_key(row, length))->pixel);
    return true;
}

// Many rows repeat the one above, as in frames and plain boards, and are copied.
template <class Pixel> static bool decode_rows(xpm *picture, Pixel *out) {
    const auto width = static_cast<std::size_t>(picture->width);
    const std::size_t length = width * static_cast<std::size_t>(picture->symbol_length);
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
        if (!picture->palette.flat && !symbols_known({row, length}))
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
