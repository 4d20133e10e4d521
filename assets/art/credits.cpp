// credits.cpp: draws the credits' three small lines and the four plates of what the game is made with.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "night.h"
#include "palette.h"
#include "save.h"
#include "screens/picture_sets.h"
#include "sets.h"
#include "text.h"

#include <cmath>
#include <string_view>

namespace art {
namespace {

constexpr double SOFT = 0.08; // coverage from which a pixel on the known blackboard is kept

// --- Lines ---------------------------------------------------------------------------------------

struct small_line {
    int picture, height, y; // in the set; its height and its upper edge on the screen, pixels
    std::string_view words;
};

constexpr small_line LINES[] = {
    {CREDITS_UPPER_LINE, 11, 553, "Every picture, sound and text was made for this game."},
    {CREDITS_MIDDLE_LINE, 12, 569, "Code: MIT licence.  Pictures, sounds and texts: CC0."},
    {CREDITS_LOWEST_LINE, 11, 586, "© The Tavimo developers"},
};

void save_line(const small_line &line) {
    constexpr double CAP = 7.6, BASE = 8.6;
    const int width = static_cast<int>(std::ceil(text_width(face::andika_bold, CAP, line.words))) + 4;
    canvas picture(width, line.height);
    text(picture, face::andika_bold, CAP, width / 2.0, BASE, align::centre, line.words, FOOTER_NUMERAL);
    save(picture, entry_of(CREDITS_SET, line.picture),
         {.ground = night_colour(SCREEN_WIDTH / 2, line.y + line.height / 2), .threshold = SOFT});
}

// --- Plates --------------------------------------------------------------------------------------

constexpr int PLATE_W = 119, PLATE_H = 48, PLATE_GAP = 10, FIRST_X = 147, PLATE_Y = 502;

struct plate {
    std::string_view words;
    int accent; // the puzzle type whose accent underlines it
};
constexpr plate PLATES[CREDITS_PLATES.count] = {{"SDL", 0}, {"Ogg Vorbis", 1}, {"Cairo", 9}, {"FluidSynth", 6}};

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
    fill(picture, PUZZLE_LOOKS[p.accent].accent);
    save(picture, entry_of(CREDITS_SET, CREDITS_PLATES[index]), {.dither = true});
}

} // namespace

void make_credits() {
    for (const small_line &line : LINES)
        save_line(line);
    for (int i = 0; i < CREDITS_PLATES.count; ++i)
        save_plate(i);
}

} // namespace art
