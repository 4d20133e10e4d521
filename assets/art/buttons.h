// buttons.h: the one family of buttons, toy keys and plates that every screen shares.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"
#include "core/ui/button_look.h"
#include "resources/picture_set.h"

#include <iterator>
#include <string_view>

namespace art {

inline constexpr button_look BUTTON_LOOKS[] = {BUTTON_LOOK_NORMAL, BUTTON_LOOK_HOVER, BUTTON_LOOK_PRESSED};
static_assert(std::size(BUTTON_LOOKS) == BUTTON_LOOK_COUNT);

// Pictograms in front of a button's label.
enum class icon { none, book, bars, pencil, person, question, door, globe, play, back, spaces, grid, tick, cross };

// What a raised plate is made of. Sides are the pixels of its front that show below the face.
struct plate_skin {
    rgb top, middle, bottom; // of the face
    rgb side, outline, ink;
    int side_height, pressed_side_height;
};

inline constexpr plate_skin HONEY_SKIN = {
    hex(0xFFEFC9), hex(0xF9D998), hex(0xEFC276), hex(0xC58F40), hex(0x6B4718), hex(0x3B2407), 3, 1};
inline constexpr plate_skin GREEN_SKIN = {
    hex(0xD6F0A4), hex(0xA9D96B), hex(0x8CC452), hex(0x5C9130), hex(0x355B17), hex(0x0E2203), 3, 1};
inline constexpr plate_skin KEY_SKIN = {
    hex(0xFFFBEF), hex(0xFBF1D9), hex(0xF6E6C3), hex(0xC9A465), hex(0x6B4A1E), hex(0x2B1C10), 4, 2};

// Draws an empty raised plate with its one-pixel outline into the whole pixels (x, y, w, h).
void draw_plate(cairo_t *cr, const plate_skin &skin, button_look look, int x, int y, int w, int h);

// How a button looks: honey for all, green for the main road (Study, Play, Continue).
struct button_style {
    int width, height;
    bool green = false;
    double cap_height = 12; // of the label, pixels
};

// Draws a whole button picture of the style's size in one look. Pictogram and label stand at the same
// place in all three; without a label the pictogram stands in the middle.
canvas draw_button(const button_style &style, button_look look, icon pictogram, std::string_view label);

// Draws all looks of a button and writes them where the set has them.
void save_button(const button_style &style, icon pictogram, std::string_view label, const picture_set &set,
                 const set_part &pictures);

// Draws a pictogram in a square of `size` pixels with its upper left corner at (x, y).
void draw_icon(cairo_t *cr, icon pictogram, double x, double y, double size, rgb colour);

// The mark of the button that deals a card, its middle at (x, y): a card in its puzzle's colour and an arrow.
void draw_next_mark(cairo_t *cr, double x, double y, rgb card);

} // namespace art
