// tavimo-icon DIR: draws the program's icon, once, and writes it below DIR in every size that a desktop asks for, as
// the folders of an icon theme: 48x48/apps/tavimo.png ... scalable/apps/tavimo.svg.
//
// Only plain fills and strokes, so that the scalable icon stays a drawing.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "canvas.h"
#include "fail.h"
#include "palette.h"
#include "things.h"

#include <cairo-svg.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <numbers>
#include <string>

namespace fs = std::filesystem;

namespace art {
namespace {

constexpr int SIZES[] = {48, 64, 128, 256}; // pixels
constexpr double SIZE = 256;                // of the drawing, in its own units, as are all lengths below
constexpr double PIECE = 98, KNOB = 21, MARGIN = 22, SIDE = 9, LINE = 5;
constexpr double SIGN = 22, SIGN_LINE = 14; // half the length of a sign's stroke, and its width
constexpr double DOT = 9, DOT_FROM_BAR = 22;
constexpr double INK_LIGHTNESS = 0.34, INK_CHROMA = 0.12;

enum class sign { plus, times, divided, equals };

struct icon_piece {
    double x, y, turn;        // of its middle; degrees
    std::array<int, 4> sides; // top, right, bottom, left: +1 a tab, -1 a socket
    double sign_x, sign_y;    // off the middle, away from the sockets
    rgb colour;
    sign shows;
};

constexpr double NEAR = MARGIN + PIECE / 2, FAR = NEAR + PIECE, APART = 14; // the last piece lies apart

// Four pieces of a jigsaw, one for each sign, the last not yet in its place.
constexpr icon_piece PIECES[] = {
    {NEAR, NEAR, 0, {0, 1, 1, 0}, 0, 0, PUZZLE_LOOKS[0].accent, sign::plus},
    {FAR, NEAR, 0, {0, 0, -1, -1}, 6, -4, PUZZLE_LOOKS[1].accent, sign::times},
    {NEAR, FAR, 0, {-1, -1, 0, 0}, -5, 8, PUZZLE_LOOKS[9].accent, sign::divided},
    {FAR + APART, FAR + APART, 9, {1, 0, 0, 1}, 2, 2, PUZZLE_LOOKS[10].accent, sign::equals},
};

void bar(cairo_t *cr, double y, rgb ink) {
    cairo_move_to(cr, -SIGN, y);
    cairo_line_to(cr, SIGN, y);
    stroke(cr, ink, SIGN_LINE);
}

void cross(cairo_t *cr, rgb ink) {
    cairo_move_to(cr, 0, -SIGN);
    cairo_line_to(cr, 0, SIGN);
    bar(cr, 0, ink);
}

void draw_sign(cairo_t *cr, sign which, rgb ink) {
    cairo_save(cr);
    switch (which) {
    case sign::plus:
        cross(cr, ink);
        break;
    case sign::times:
        cairo_rotate(cr, std::numbers::pi / 4);
        cross(cr, ink);
        break;
    case sign::divided:
        bar(cr, 0, ink);
        circle(cr, 0, -DOT_FROM_BAR, DOT);
        fill(cr, ink);
        circle(cr, 0, DOT_FROM_BAR, DOT);
        fill(cr, ink);
        break;
    case sign::equals:
        bar(cr, -SIGN / 2, ink);
        bar(cr, SIGN / 2, ink);
        break;
    }
    cairo_restore(cr);
}

void draw_piece(cairo_t *cr, const icon_piece &piece) {
    const rgb ink = to_rgb({INK_LIGHTNESS, INK_CHROMA, to_lch(piece.colour).h});
    const auto outline = [&](double down) {
        jigsaw_outline(cr, -PIECE / 2, -PIECE / 2 + down, PIECE, PIECE, piece.sides, KNOB);
    };
    cairo_save(cr);
    cairo_translate(cr, piece.x, piece.y);
    cairo_rotate(cr, piece.turn * std::numbers::pi / 180);
    outline(SIDE); // the cardboard's thickness
    fill_keep(cr, ink);
    stroke(cr, ink, LINE);
    outline(0);
    fill_keep(cr, piece.colour);
    stroke(cr, ink, LINE);
    cairo_translate(cr, piece.sign_x, piece.sign_y);
    draw_sign(cr, piece.shows, ink);
    cairo_restore(cr);
}

void draw_icon_on(cairo_surface_t *surface, double size) {
    const std::unique_ptr<cairo_t, context_deleter> context(cairo_create(surface));
    cairo_t *cr = context.get();
    cairo_scale(cr, size / SIZE, size / SIZE);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    for (const icon_piece &piece : PIECES)
        draw_piece(cr, piece);
}

// Makes the folder and gives the file's name in it.
std::string place(const fs::path &directory, const std::string &size, const char *file) {
    const fs::path folder = directory / size / "apps";
    fs::create_directories(folder);
    return folder / file;
}

void require(cairo_status_t status, const std::string &file) {
    if (status != CAIRO_STATUS_SUCCESS)
        fail("cannot write " + file + ": " + cairo_status_to_string(status));
}

void write_png(const fs::path &directory, int size) {
    const std::string pixels = std::to_string(size), file = place(directory, pixels + "x" + pixels, "tavimo.png");
    const canvas picture(size, size);
    draw_icon_on(picture.surface.get(), size);
    require(cairo_surface_write_to_png(picture.surface.get(), file.c_str()), file);
}

void write_svg(const fs::path &directory) {
    const std::string file = place(directory, "scalable", "tavimo.svg");
    const std::unique_ptr<cairo_surface_t, surface_deleter> surface(cairo_svg_surface_create(file.c_str(), SIZE, SIZE));
    cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
    draw_icon_on(surface.get(), SIZE);
    cairo_surface_finish(surface.get());
    require(cairo_surface_status(surface.get()), file);
}

int run(int argc, char **argv) {
    if (argc != 2) {
        std::fputs("usage: tavimo-icon DIR\n", stderr);
        return 2;
    }
    write_svg(argv[1]);
    for (const int size : SIZES)
        write_png(argv[1], size);
    return 0;
}

} // namespace
} // namespace art

int main(int argc, char **argv) {
    return exit_code_of("tavimo-icon", [=] { return art::run(argc, argv); });
}
