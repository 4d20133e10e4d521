// puzzle.cpp: the table of puzzle measures, their colours, and the pictures that all puzzles share.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzle.h"

#include "buttons.h"
#include "puzzle_board.h"
#include "puzzle_deck.h"
#include "puzzle_labels.h"
#include "puzzle_tray.h"
#include "sets.h"
#include "text.h"

#include <algorithm>
#include <cmath>

namespace art {
namespace {

using enum puzzle_kind;

// clang-format off
constexpr puzzle_measures MEASURES[PUZZLE_COUNT] = {
    // kind           board     label  ink     frame title heading card    field         box
    {counting,       530, 275, 34, 19, 15, 7, 24, 21,  0,  0, {},            0},
    {multiplication, 530, 275, 34, 19, 15, 7, 24, 18, 52, 41, {4, 4, 4, 4},  0},
    {counting,       530, 275, 34, 19, 15, 7, 24, 21,  0,  0, {},            1},
    {multiplication, 530, 275, 34, 19, 15, 7, 24, 18, 52, 41, {4, 4, 4, 4},  0},
    {division,       530, 275, 34, 19, 15, 7, 27, 16, 52, 42, {4, 3, 7, 6},  0},
    {division,       530, 275, 34, 19, 15, 7, 27, 18, 52, 42, {4, 3, 7, 6},  0},
    {market,         565, 485, 60, 28, 25, 7, 23,  0, 75, 68, {4, 4, 7, 8},  0},
    {fractions,      606, 269, 50, 23, 21, 7, 20,  0, 57, 55, {5, 5, 6, 6},  0},
    {factors,        530, 445, 34, 19, 15, 7, 24, 16, 52, 42, {4, 3, 7, 6},  0},
    {money,          484, 460, 50, 23, 21, 7, 21,  0,  0,  0, {},            0},
    {time,           576, 444, 56, 28, 24, 6, 18,  0, 69, 66, {5, 5, 7, 8},  0},
};
// clang-format on

// Panel, joint line and dent of the boards 6 to 10 are chosen by eye; the others follow from the accent.
struct chosen {
    rgb panel, line, dent;
};
constexpr int FIRST_CHOSEN = 6;
constexpr std::array<chosen, 5> CHOSEN = {{
    {hex(0xFBF0F5), hex(0x896175), hex(0xB991A4)},
    {hex(0xF8EFFA), hex(0x775E80), hex(0xB39FBB)},
    {hex(0xF4F1EA), hex(0x787165), hex(0xB0ACA4)},
    {hex(0xEFF8EC), hex(0x4B6E49), hex(0x95B592)},
    {hex(0xFFF8DF), hex(0x8F7744), hex(0xC7B38A)},
}};

// Grounds of the cells that are not toned by row: two that take turns.
struct chequer {
    rgb even, odd;
};
constexpr chequer FRACTION_CELLS = {hex(0xE7D7EE), hex(0xDFCAE7)}, MONEY_CELLS = {hex(0xD7F0D5), hex(0xC8E6C5)},
                  TIME_CELLS = {hex(0xFCEDB4), hex(0xD1EBF7)}, MARKET_CELLS = {hex(0xF5E1EA), hex(0xF5E1EA)};

constexpr double DARK_ACCENT = 0.5; // lightness below which an accent's outline is only a little darker

void set_rows(puzzle_colours &colours, const puzzle_measures &measures, double hue) {
    const auto alternate = [&](chequer two) {
        for (std::size_t i = 0; i < colours.rows.size(); ++i)
            colours.rows[i] = i % 2 ? two.odd : two.even;
    };
    switch (measures.kind) {
    case fractions:
        return alternate(FRACTION_CELLS);
    case money:
        return alternate(MONEY_CELLS);
    case time:
        return alternate(TIME_CELLS);
    case market:
        return alternate(MARKET_CELLS);
    case factors: // all hues, as there are ten rows
        for (std::size_t i = 0; i < colours.rows.size(); ++i)
            colours.rows[i] = to_rgb({0.87, 0.075, 25 + 36.0 * static_cast<double>(i)});
        return;
    default:
        for (std::size_t i = 0; i < colours.rows.size(); ++i)
            colours.rows[i] = to_rgb({0.87, 0.072, hue + 28 * (static_cast<double>(i) - 2)});
    }
}

rgb mean(const std::array<rgb, 10> &tones, std::size_t count) {
    rgb sum;
    for (std::size_t i = 0; i < count; ++i)
        sum = {sum.r + tones[i].r, sum.g + tones[i].g, sum.b + tones[i].b};
    const auto n = static_cast<double>(count);
    return {sum.r / n, sum.g / n, sum.b / n};
}

} // namespace

const puzzle_measures &measures_of(int type) {
    return MEASURES[type];
}

puzzle_colours colours_of(int type) {
    const rgb accent = PUZZLE_LOOKS[type].accent;
    const lch a = to_lch(accent);
    puzzle_colours c = {
        .accent = accent,
        .outline = lighten(accent, a.l < DARK_ACCENT ? -0.12 : -0.22),
        .rim_shade = lighten(accent, a.l < DARK_ACCENT ? -0.06 : -0.10),
        .rim_light = lighten(accent, 0.08),
        .panel = to_rgb({0.945, std::min(0.035, 0.28 * a.c), a.h}),
        .name = to_rgb({0.33, std::min(a.c, 0.10), a.h}),
        .joints = {.line = to_rgb({0.55, 0.055, a.h}), .dent = to_rgb({0.745, 0.035, a.h}), .panel = {}, .cells = {}},
        .rows = {}};
    if (type >= FIRST_CHOSEN) {
        const chosen &by_eye = CHOSEN[static_cast<std::size_t>(type - FIRST_CHOSEN)];
        c.panel = by_eye.panel;
        c.joints.line = by_eye.line;
        c.joints.dent = by_eye.dent;
    }
    set_rows(c, measures_of(type), a.h);
    c.joints.panel = c.panel;
    c.joints.cells = mean(c.rows, static_cast<std::size_t>(PUZZLE_LAYOUTS[type].rows));
    return c;
}

finish on_ground(rgb ground) {
    return {.ground = ground, .threshold = 0.12};
}

void print(cairo_t *cr, double cap_height, double cx, double cy, std::string_view utf8, rgb colour) {
    text(cr, face::dosis_bold, cap_height, cx, std::round(cy + cap_height / 2), align::centre, utf8, colour);
}

// --- Pictures that all puzzles have --------------------------------------------------------------

namespace {

constexpr button_style CONSOLE = {.width = 65, .height = 27, .cap_height = 10};
constexpr double STRIP_CAP = 9;
constexpr int STRIP_MARGIN = 18;
constexpr int BEGIN_BOTTOM = 595, MONEY_BOARD_BOTTOM = 462; // rows of the window

// A strip of paper with one line of text, and so much nothing below it.
canvas draw_strip(int height, std::string_view words, const puzzle_colours &colours, int below = 0) {
    const int width = static_cast<int>(std::ceil(text_width(face::dosis_bold, STRIP_CAP, words))) + 2 * STRIP_MARGIN;
    canvas strip(width, height + below);
    rounded_rect(strip, 0, 0, width, height, height / 2.0);
    fill(strip, lighten(colours.name, 0.05));
    rounded_rect(strip, 1, 1, width - 2, height - 2, height / 2.0 - 1);
    fill(strip, CREAM_LIGHT);
    print(strip, STRIP_CAP, width / 2.0, (height - 1) / 2.0, words, PRINT); // higher, as letters reach below the line
    return strip;
}

// How a run begins, in a few words.
const char *begin_words(puzzle_kind kind) {
    switch (kind) {
    case counting:
        return "Drag each piece to its place on the board.";
    case money:
        return "Drag each total to its place between the coins.";
    case multiplication:
        return "Press the card button or the space bar, then use the keypad.";
    default:
        return "Press the card button or the space bar to turn the first card.";
    }
}

void make_strips(int type, const puzzle_colours &colours) {
    constexpr int begin_height = 24, study_height = 18;
    // The game shows how to begin at the window's bottom. There lie loose pieces of the money puzzle: its strip hangs
    // from the board, just above them.
    constexpr int money_height = 14, below_money = BEGIN_BOTTOM - MONEY_BOARD_BOTTOM - money_height;
    const puzzle_kind kind = measures_of(type).kind;
    save(kind == money ? draw_strip(money_height, begin_words(kind), colours, below_money)
                       : draw_strip(begin_height, begin_words(kind), colours),
         entry_of_puzzle(type, PICTURE_BEGIN));
    save(draw_strip(study_height, "Click a space to take its piece out or to put it back.", colours),
         entry_of_puzzle(type, PICTURE_STUDY_HELP));
}

void make_console(int type) {
    int k = 0;
    for (const button_look look : BUTTON_LOOKS) {
        save(draw_button(CONSOLE, look, icon::question, "Help"), entry_of_puzzle(type, PICTURE_CONSOLE, k++),
             {.dither = true});
        save(draw_button(CONSOLE, look, icon::back, "Return"), entry_of_puzzle(type, PICTURE_CONSOLE, k++),
             {.dither = true});
    }
}

} // namespace

void make_puzzle(int type) {
    const puzzle_layout &layout = PUZZLE_LAYOUTS[type];
    const puzzle_colours colours = colours_of(type);
    save(draw_body(layout.cell_w, puzzle_piece_height(type)), entry_of_puzzle(type, PICTURE_PIECE));
    save_edges(type, colours.joints);
    make_strips(type, colours);
    make_console(type);
    make_board(type);
    make_labels(type);
    if ((layout.features & BOARD_HAS_BOX) != 0)
        make_tray(type);
    if ((layout.features & BOARD_HAS_DECK) != 0)
        make_deck(type);
    if ((layout.features & BOARD_HAS_KEYPAD) != 0)
        make_keypad(type);
}

} // namespace art
