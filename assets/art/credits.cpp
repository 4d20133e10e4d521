// credits.cpp: draws the credits' three small lines and the four plates of what the game is made with.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "night.h"
#include "palette.h"
#include "sets.h"

#include <cmath>
#include <string_view>

namespace art {
namespace {

constexpr double SOFT = 0.08; // coverage from which a pixel on the known blackboard is kept

// --- Lines ---------------------------------------------------------------------------------------

struct small_line {
    int file, height, y; // the picture's number, its height and its upper edge on the screen, pixels
    std::string_view words;
};

constexpr small_line LINES[] = {
    {1, 11, 553, "Every picture, sound and text was made for this game."},
    {2, 12, 569, "Code: MIT licence.  Pictures, sounds and texts: CC0."},
    {7, 11, 586, "© The Tavimo developers"},
};

void save_line(const small_line &line) {
    constexpr double CAP = 7.6, BASE = 8.6;
    const int width = static_cast<int>(std::ceil(text_width(face::andika_bold, CAP, line.words))) + 4;
    canvas picture(width, line.height);
    text(picture, face::andika_bold, CAP, width / 2.0, BASE, align::centre, line.words, FOOTER_NUMERAL);
    save(picture, numbered("credits/", line.file),
         {.ground = night_colour(SCREEN_WIDTH / 2, line.y + line.height / 2), .threshold = SOFT});
}

// --- Plates --------------------------------------------------------------------------------------

constexpr int PLATE_W = 119, PLATE_H = 48, PLATE_GAP = 10, FIRST_X = 147, PLATE_Y = 502, FIRST_FILE = 3;

struct plate {
    std::string_view words;
    int accent; // the puzzle type whose accent underlines it
};
constexpr plate PLATES[] = {{"SDL", 0}, {"Ogg Vorbis", 1}, {"Cairo", 9}, {"FluidSynth", 6}};

void save_plate(int index) {
    constexpr rgb FACE = hex(0x16294E), LINE = hex(0x3A5484), LETTERS = hex(0xF2F5FB);
    constexpr double CAP = 13, RADIUS = 7, BASE = 26.5;
    const plate &p = PLATES[index];
    const int x = FIRST_X + index * (PLATE_W + PLATE_GAP);
    canvas picture = night_window(x, PLATE_Y, PLATE_W, PLATE_H);
    rounded_rect(picture, 0.5, 0.5, PLATE_W - 1, PLATE_H - 1, RADIUS);
    fill_gradient(picture, 0, 0, lighten(FACE, 0.02), 0, PLATE_H, lighten(FACE, -0.02));
    rounded_rect(picture, 0.5, 0.5, PLATE_W - 1, PLATE_H - 1, RADIUS);
    stroke(picture, LINE, 1);
    text(picture, face::dosis_bold, CAP, PLATE_W / 2.0, BASE, align::centre, p.words, LETTERS);
    rounded_rect(picture, 14, PLATE_H - 12, PLATE_W - 28, 2, 1);
    fill(picture, PUZZLE_LOOKS[static_cast<std::size_t>(p.accent)].accent);
    save(picture, numbered("credits/", FIRST_FILE + index), {.dither = true});
}

} // namespace

void make_credits() {
    for (const small_line &line : LINES)
        save_line(line);
    for (int i = 0; i < static_cast<int>(std::size(PLATES)); ++i)
        save_plate(i);
}

} // namespace art
