// title_pictures.h: the title screen's pictures, which other screens borrow. Main thread.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"
#include "screens/picture_sets.h"

[[nodiscard]] i32 title_pictures_load(); // 1, or -1 when one cannot be loaded
void title_pictures_free();              // safe when none was loaded

const image *const *title_pictures(); // the whole set; all null before it is loaded

inline const image *title_image(i32 place) {
    return title_pictures()[place];
}

// One of the set by what it shows; a type is a puzzle type, a state a button_look.
inline const image *title_image_background() {
    return title_image(TITLE_BACKGROUND);
}
inline const image *title_image_picture(i32 type) {
    return title_image(TITLE_PUZZLE + type);
}
inline const image *title_image_plate(i32 type) {
    return title_image(TITLE_ROW + type);
}
inline const image *title_image_heading() {
    return title_image(TITLE_HEADING);
}
inline const image *title_image_web(i32 look) {
    return title_image(TITLE_WEB + look);
}

// The layout that the title screen shares with the splash screen, and with the score log.
inline constexpr i32 LIST_X = 30, LIST_Y = 130; // the first row's corner
inline constexpr i32 LIST_PITCH = 35;           // from row to row
inline constexpr i32 LIST_TEXT_X = 70, LIST_TEXT_Y = 148;
inline constexpr i32 HEADING_X = 30, HEADING_Y = 14;
inline constexpr i32 FOOTER_BOTTOM = 595;
inline constexpr i32 PICTURE_X = 400, PICTURE_CENTRE_Y = 192; // of the chosen puzzle's picture
inline constexpr i32 TITLE_ABOVE = 10;                        // from its top up to its title's reference line
