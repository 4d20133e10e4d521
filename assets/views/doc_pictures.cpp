// doc_pictures.cpp: draws the pictures of docs/making-data.md from the game's finished pictures.
//
// usage: tavimo-doc-pictures DATADIR OUTDIR, where DATADIR/xpm/ holds what is packed into the archive.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "assembly.h"
#include "fail.h"
#include "text.h"
#include "written.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr art::rgb PAPER = art::hex(0xF4F2EC), INK = art::hex(0x30343C), RED = art::hex(0xC0392B),
                   GROUND_LIGHT = art::hex(0xDCE6F0), GROUND_DARK = art::hex(0xC8D6E6), NIGHT = art::hex(0x33415C);
constexpr double CAPS = 9; // pixels
constexpr int GAP = 24;
constexpr int SHOWN_TYPE = 0; // whose pieces are shown

art::canvas sheet_of(int width, int height) {
    art::canvas sheet(width, height);
    cairo_rectangle(sheet, 0, 0, width, height);
    art::fill(sheet, PAPER);
    return sheet;
}

// The picture at (x, y) with each pixel as a square, on a chequer where it is transparent.
void enlarged(cairo_t *cr, const art::canvas &picture, double x, double y, int scale, bool night) {
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            cairo_rectangle(cr, x + column * scale, y + row * scale, scale, scale);
            art::fill(cr, night ? NIGHT : (row + column) % 2 != 0 ? GROUND_DARK : GROUND_LIGHT);
        }
    }
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_scale(cr, scale, scale);
    cairo_set_source_surface(cr, picture.surface.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_NEAREST);
    cairo_paint(cr);
    cairo_restore(cr);
}

void label(cairo_t *cr, double x, double y, const std::string &text, art::rgb colour = INK) {
    art::text(cr, art::face::andika, CAPS, x, y, art::align::left, text, colour);
}

void write(const art::canvas &sheet, const fs::path &path) {
    fs::create_directories(path.parent_path());
    if (cairo_surface_write_to_png(sheet.surface.get(), path.c_str()) != CAIRO_STATUS_SUCCESS)
        fail("cannot write " + path.string());
}

// The edge pictures of one puzzle, a folder a row.
void draw_edges(const fs::path &out) {
    struct edge_row {
        puzzle_picture pictures;
        const char *what;
        bool top_and_left_only;
    };
    constexpr edge_row ROWS[] = {
        {PICTURE_LOOSE_EDGES, "piece/fragments/out: a loose piece", false},
        {PICTURE_PLACED_EDGES, "piece/fragments/in: a placed piece", false},
        {PICTURE_BOARD_DENTS, "board/fragments/negative: a dent in the board", true},
        {PICTURE_BOARD_BUMPS, "board/fragments/positive: the frame's bump", true},
    };
    constexpr const char *SIDES[] = {"001 top", "002 right", "003 bottom", "004 left"};
    constexpr int scale = 8, column = 150, row_height = 150, width = 4 * column + 2 * GAP;
    art::canvas sheet = sheet_of(width, 4 * row_height + GAP);
    double y = GAP;
    for (const edge_row &row : ROWS) {
        label(sheet, GAP, y, row.what);
        for (int side = 0; side < 4; ++side) {
            const double x = GAP + side * column;
            if (row.top_and_left_only && (side == 1 || side == 2)) {
                label(sheet, x, y + 24, std::string(SIDES[side]) + ": not drawn");
                continue;
            }
            const art::canvas edge = art::load(entry_of_puzzle(SHOWN_TYPE, row.pictures, side));
            label(sheet, x, y + 24,
                  std::string(SIDES[side]) + ": " + std::to_string(edge.width) + "x" + std::to_string(edge.height));
            enlarged(sheet, edge, x, y + 32, scale, false);
        }
        y += row_height;
    }
    write(sheet, out / "edges.png");
}

void draw_joint(const fs::path &out) {
    constexpr int scale = 4;
    const art::canvas joint = art::joint_study(SHOWN_TYPE);
    art::canvas sheet = sheet_of(joint.width * scale, joint.height * scale);
    enlarged(sheet, joint, 0, 0, scale, false);
    write(sheet, out / "joint.png");
}

int empty_rows(const art::canvas &picture) {
    for (int y = 0; y < picture.height; ++y)
        if (std::any_of(art::row_of(picture, y), art::row_of(picture, y) + picture.width, [](u32 p) { return p != 0; }))
            return y;
    return 0;
}

// Letters as pictures, each where the game draws it on the reference line.
void draw_font_line(const fs::path &out) {
    struct letter {
        const char *name, *what;
    };
    constexpr letter LETTERS[] = {
        {"A", "A: nothing below"}, {"n", "n: nothing below"},    {"g", "g: 3 rows below"},
        {"comma", "comma: below"}, {"apostrophe", "apostrophe"}, {"dash", "dash"},
    };
    constexpr int scale = 10, column = 150, line = 190;
    art::canvas sheet = sheet_of(static_cast<int>(std::size(LETTERS)) * column + GAP, line + 110);
    double x = GAP;
    for (const letter &l : LETTERS) {
        const art::canvas glyph = art::load(entry_of_glyph(l.name));
        const int top = empty_rows(glyph);
        const double y = line + (top - glyph.height) * scale;
        enlarged(sheet, glyph, x, y, scale, true);
        label(sheet, x, line + 70, l.what);
        label(sheet, x, line + 88,
              std::to_string(glyph.width) + "x" + std::to_string(glyph.height) + ", " + std::to_string(top) +
                  " empty above");
        x += column;
    }
    cairo_move_to(sheet, 0, line);
    cairo_line_to(sheet, sheet.width, line);
    art::stroke(sheet, RED, 2);
    label(sheet, 4, line - 6, "line", RED);
    write(sheet, out / "font-line.png");
}

int run(int argc, char **argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: tavimo-doc-pictures DATADIR OUTDIR\n");
        return 2;
    }
    art::set_output(argv[1]);
    draw_edges(argv[2]);
    draw_joint(argv[2]);
    draw_font_line(argv[2]);
    return 0;
}

} // namespace

int main(int argc, char **argv) {
    return exit_code_of("tavimo-doc-pictures", [=] { return run(argc, argv); });
}
