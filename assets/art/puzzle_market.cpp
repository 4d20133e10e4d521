// puzzle_market.cpp: the goods of the money puzzles and the market stall behind one of them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzle_market.h"

#include <cmath>
#include <iterator>
#include <numbers>

namespace art {
namespace {

constexpr std::size_t CELLS = 36;

// By cell; cheap things stand where the coins add up to little.
constexpr std::array<const char *, CELLS> MARKET_GOODS = {
    "🍬",    "🍒",    "🥜", "🍋",    "🍓",    "🍞",    //
    "🥝", "🥕", "🌽",    "🥑", "🥥", "🍍",    //
    "🍭",    "🍪",    "🥚", "🍎",    "🥨", "🧀", //
    "🍩",    "🍐",    "🍌",    "🥐", "🥦", "🍉",    //
    "🍊",    "🍑",    "🥒", "🧁", "🍅",    "🍇",    //
    "🥯", "🍦",    "🥔", "🍆",    "🥞", "🍯",
};
constexpr std::array<const char *, CELLS> MONEY_GOODS = {
    "🍎",      "🍌",    "🍐",    "🍓",      "🍪",       "🍩",    //
    "🧀",   "🥨", "🍫",    "🧃",   "🍦",       "🍰",    //
    "✏️", "📏",    "📓",    "✂️", "🖍️", "📚",    //
    "⚽",      "🏀",    "🎈",    "🧩",   "🧸",    "🪀", //
    "🔔",      "🪁", "🧢", "🥁",   "🎨",       "🧶", //
    "🪣",   "🌂",    "🧦", "🎺",      "🔦",       "🎁",
};

} // namespace

const char *market_goods(int cell) {
    return MARKET_GOODS[static_cast<std::size_t>(cell)];
}
const char *money_goods(int cell) {
    return MONEY_GOODS[static_cast<std::size_t>(cell)];
}

// --- The stall -----------------------------------------------------------------------------------

namespace {

// The scene is drawn cell by cell, so that each cell shows something whole. Nothing in it is for sale on a
// piece: a picture that is like a piece's would seem to say where the piece belongs.
constexpr int SCENE_COLUMNS = 6, SCENE_ROWS = 6;
constexpr rgb AWNING_WHITE = hex(0xFBF1EA), BOARD_WALL = hex(0xF7E3EC), BOARD_SEAM = hex(0xE7CBD9);
constexpr rgb CRATE = hex(0xCF9F68), CRATE_DARK = hex(0x9C6F3E);
constexpr double QUIET = 0.45; // how far everything fades towards the panel

// What stands in the rows below the awning, from left to right.
constexpr std::array<const char *, SCENE_COLUMNS> HANGING = {"🏮", "🧺", "🏮", "🪴", "🏮", "🔔"},
                                                  JARS = {"🥛", "🧂", "🧃", "🍵", "🥫", "🫖"},
                                                  BAKERY = {"🥖", "🥧", "🍰", "🍮", "🎂", "🍫"},
                                                  FRUIT = {"🥭", "🍈", "🫐", "🌻", "🌰", "🌷"},
                                                  VEGETABLES = {"🫑", "🧅", "🌶️", "🥬", "🧄", "🍠"};

// One cell's share of the scene, pixels.
struct part {
    double x, y, w, h;
};

void block(cairo_t *cr, double x, double y, double w, double h, rgb colour, double alpha = 1) {
    cairo_rectangle(cr, std::round(x), std::round(y), std::round(w), std::round(h));
    fill(cr, colour, alpha);
}

void draw_wall(cairo_t *cr, double w, double h) {
    constexpr double SEAM_PITCH = 30.5;
    block(cr, 0, 0, w, h, BOARD_WALL);
    for (double y = SEAM_PITCH; y < h; y += SEAM_PITCH)
        block(cr, 0, y, w, 1, BOARD_SEAM);
}

// Three stripes to two cells, so that neighbours differ. The cells are not dithered: flat tones stay clean.
void draw_awning(cairo_t *cr, double w, double row_height, rgb cloth) {
    constexpr int STRIPES = SCENE_COLUMNS * 3 / 2;
    constexpr double FALL = 4, HEM = 3; // pixels: of the shade on the wall, and the cloth's darker border
    const double stripe = w / STRIPES, edge = row_height * 0.64, scallop = row_height * 0.26;
    const auto hang = [&](double low, auto colour_of) {
        for (int i = 0; i < STRIPES; ++i) {
            cairo_rectangle(cr, i * stripe, 0, stripe, edge + low);
            cairo_save(cr);
            cairo_translate(cr, (i + 0.5) * stripe, edge + low);
            cairo_scale(cr, stripe / 2, scallop);
            cairo_arc(cr, 0, 0, 1, 0, std::numbers::pi);
            cairo_restore(cr);
            fill(cr, colour_of(i % 2 ? AWNING_WHITE : cloth));
        }
    };
    hang(FALL, [](rgb) { return lighten(BOARD_WALL, -0.12); });
    hang(0, [](rgb tone) { return lighten(tone, -0.10); });
    hang(-HEM, [](rgb tone) { return tone; });
}

void draw_timber(cairo_t *cr, double x, double y, double w, double h) {
    block(cr, x, y, w, h, WOOD);
    block(cr, x, y, w, 1, WOOD_LIGHT);
    block(cr, x, y + h - 2, w, 2, WOOD_SHADE);
}

// Something that hangs on a cord.
void draw_hanging(cairo_t *cr, const part &p, const char *thing) {
    constexpr int SIZE = 34;
    const double middle = p.x + p.w / 2, top = p.y + 9;
    block(cr, middle - 1, p.y, 2, top - p.y + 3, WOOD_OUTLINE);
    outlined_emoji(cr, thing, static_cast<int>(middle) - SIZE / 2, static_cast<int>(top), SIZE);
}

// Two of a kind on a shelf along the cell's lower edge.
void draw_shelf(cairo_t *cr, const part &p, const char *goods) {
    constexpr int SIZE = 27;
    constexpr double BOARD = 7, LOW = 12;
    const double base = p.y + p.h - LOW;
    block(cr, p.x, base + BOARD, p.w, 4, lighten(BOARD_WALL, -0.10));
    for (const double place : {0.27, 0.73})
        outlined_emoji(cr, goods, static_cast<int>(p.x + p.w * place) - SIZE / 2, static_cast<int>(base) - SIZE + 1,
                       SIZE);
    draw_timber(cr, p.x, base, p.w, BOARD);
}

// A crate with a heap of one kind.
void draw_crate(cairo_t *cr, const part &p, const char *goods) {
    constexpr int SIZE = 25;
    constexpr double HEIGHT = 21, MARGIN = 5, LOW = 6, PLANK = HEIGHT / 2, STEP = 16;
    const double base = p.y + p.h - LOW, top = base - HEIGHT, x = p.x + MARGIN, w = p.w - 2 * MARGIN;
    const double middle = p.x + p.w / 2;
    const auto heap = [&](double place, double rise) {
        outlined_emoji(cr, goods, static_cast<int>(std::lround(middle + place * STEP)) - SIZE / 2,
                       static_cast<int>(top - rise), SIZE);
    };
    block(cr, x + 2, base, w, 3, lighten(BOARD_WALL, -0.14));
    for (const double place : {-0.5, 0.5})
        heap(place, 27);
    for (const double place : {-1.0, 1.0, 0.0})
        heap(place, 16);
    block(cr, x, top, w, HEIGHT, CRATE_DARK);
    for (double y = top; y < base - 1; y += PLANK) {
        block(cr, x + 1, y + 1, w - 2, PLANK - 2, CRATE);
        block(cr, x + 1, y + 1, w - 2, 1, WOOD_LIGHT);
    }
    for (const double post : {x + 4, x + w - 9})
        block(cr, post, top, 5, HEIGHT, mix(CRATE, CRATE_DARK, 0.45));
}

} // namespace

void draw_market_scene(cairo_t *cr, double width, double height, const puzzle_colours &colours) {
    struct shop_row {
        void (*draw)(cairo_t *, const part &, const char *);
        const std::array<const char *, SCENE_COLUMNS> &goods;
    };
    constexpr shop_row ROWS[] = {
        {draw_hanging, HANGING}, {draw_shelf, JARS},       {draw_shelf, BAKERY},
        {draw_crate, FRUIT},     {draw_crate, VEGETABLES},
    };
    static_assert(std::size(ROWS) == SCENE_ROWS - 1, "the awning is the first row");
    const double w = width / SCENE_COLUMNS, h = height / SCENE_ROWS;
    draw_wall(cr, width, height);
    double y = h;
    for (const shop_row &row : ROWS) {
        for (std::size_t column = 0; column < row.goods.size(); ++column)
            row.draw(cr, {static_cast<double>(column) * w, y, w, h}, row.goods[column]);
        y += h;
    }
    draw_awning(cr, width, h, lighten(colours.accent, -0.03));
    cairo_rectangle(cr, 0, 0, width, height);
    fill(cr, colours.panel, QUIET);
}

} // namespace art
