// glyph_names.h: which characters the font has, and the names of their pictures. Constants only.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <algorithm>
#include <string_view>

inline constexpr char GLYPH_FOLDER[] = "font/normal/";

// Letters and digits are named by themselves.
inline constexpr std::string_view GLYPHS_BY_CHARACTER =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

struct named_glyph {
    char character;
    std::string_view name;
};
inline constexpr named_glyph GLYPHS_BY_NAME[] = {
    {' ', "space"},       {'!', "exclamation"}, {'"', "quote"},      {'$', "dollarsign"},  {'%', "percent"},
    {'\'', "apostrophe"}, {'(', "lparen"},      {')', "rparen"},     {'*', "asterisk"},    {'+', "plus"},
    {',', "comma"},       {'-', "dash"},        {'.', "period"},     {'/', "slash"},       {':', "colon"},
    {';', "semicolon"},   {'<', "lessthan"},    {'=', "tavimo"},     {'>', "greaterthan"}, {'?', "question"},
    {'@', "copy"},        {'[', "lbracket"},    {'\\', "backslash"}, {']', "rbracket"},    {'_', "underscore"},
};
static_assert(std::ranges::is_sorted(GLYPHS_BY_CHARACTER));
static_assert(std::ranges::is_sorted(GLYPHS_BY_NAME, {}, &named_glyph::character));

// The name of the character's picture; empty when it has none.
constexpr std::string_view glyph_name(char c) {
    if (const auto at = GLYPHS_BY_CHARACTER.find(c); at != std::string_view::npos)
        return GLYPHS_BY_CHARACTER.substr(at, 1);
    const auto *row = std::ranges::find(GLYPHS_BY_NAME, c, &named_glyph::character);
    return row != std::ranges::end(GLYPHS_BY_NAME) ? row->name : std::string_view{};
}

// Each character that has a glyph, letters and digits first.
template <class Visit> constexpr void each_glyph(Visit visit) {
    for (const char c : GLYPHS_BY_CHARACTER)
        visit(c, glyph_name(c));
    for (const auto &[c, name] : GLYPHS_BY_NAME)
        visit(c, name);
}
