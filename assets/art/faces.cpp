// faces.cpp: finding and opening the typefaces.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "faces.h"

#include "fail.h"

#include <fontconfig/fontconfig.h>

#include <array>
#include <cstddef>

namespace art {
namespace {

struct font_source {
    const char *family, *style, *package;
};

// In the order of enum face, then the emoji font.
constexpr std::array<font_source, 5> FONTS = {{
    {"Dosis", "Bold", "fonts-dosis"},
    {"Andika", "Bold", "fonts-sil-andika"},
    {"Andika", "Regular", "fonts-sil-andika"},
    {"Cherry Bomb", "Regular", "fonts-cherrybomb"},
    {"Noto Color Emoji", "Regular", "fonts-noto-color-emoji"},
}};
constexpr std::size_t EMOJI_FONT = 4;

const FcChar8 *fc(const char *s) {
    return reinterpret_cast<const FcChar8 *>(s);
}

// The file of a font; fontconfig always answers with some font, so the family of the answer is compared.
std::string font_file(const font_source &source) {
    FcPattern *wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, fc(source.family));
    FcPatternAddString(wanted, FC_STYLE, fc(source.style));
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultNoMatch;
    FcPattern *found = FcFontMatch(nullptr, wanted, &result);

    FcChar8 *family = nullptr, *style = nullptr, *file = nullptr;
    const bool usable = found && FcPatternGetString(found, FC_FAMILY, 0, &family) == FcResultMatch &&
                        FcPatternGetString(found, FC_STYLE, 0, &style) == FcResultMatch &&
                        FcPatternGetString(found, FC_FILE, 0, &file) == FcResultMatch &&
                        FcStrCmpIgnoreCase(family, fc(source.family)) == 0 &&
                        FcStrCmpIgnoreCase(style, fc(source.style)) == 0;
    std::string path = usable ? reinterpret_cast<const char *>(file) : "";
    if (found)
        FcPatternDestroy(found);
    FcPatternDestroy(wanted);
    if (path.empty())
        fail(std::string("the font ") + source.family + " " + source.style + " is not installed (Debian package " +
             source.package + ")");
    return path;
}

FT_Face open_font(std::size_t index) {
    static FT_Library library = nullptr;
    static std::array<FT_Face, FONTS.size()> open = {};
    if (!library && FT_Init_FreeType(&library) != 0)
        fail("FreeType cannot be started");
    if (!open[index]) {
        const std::string path = font_file(FONTS[index]);
        if (FT_New_Face(library, path.c_str(), 0, &open[index]) != 0)
            fail("the font file " + path + " cannot be read");
    }
    return open[index];
}

} // namespace

FT_Face open_face(face f) {
    return open_font(static_cast<std::size_t>(f));
}

FT_Face open_emoji_face() {
    return open_font(EMOJI_FONT);
}

char32_t next_code_point(std::string_view &utf8) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const unsigned char first = byte(0);
    const std::size_t length = first < 0x80 ? 1 : (first >> 5) == 0x6 ? 2 : (first >> 4) == 0xE ? 3 : 4;
    if (length > utf8.size() || (first >= 0x80 && first < 0xC0))
        fail("malformed UTF-8 in \"" + std::string(utf8) + "\"");
    constexpr std::array<unsigned, 5> lead_bits = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t code = first & lead_bits[length];
    for (std::size_t i = 1; i < length; ++i)
        code = (code << 6) | (byte(i) & 0x3Fu);
    utf8.remove_prefix(length);
    return code;
}

} // namespace art
