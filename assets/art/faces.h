// faces.h: the typefaces of the pictures as open FreeType faces, found through fontconfig.
//
// A face is opened on first use and stays open until the process ends. A font that is not installed ends
// the program with a message that names the font and the Debian package that has it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "text.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <string_view>

namespace art {

// The open face (borrowed). Its size is whatever the last caller set.
FT_Face open_face(face f);

// The colour emoji font (borrowed).
FT_Face open_emoji_face();

// Takes the first code point off a UTF-8 text; malformed text ends the program.
char32_t next_code_point(std::string_view &utf8);

} // namespace art
