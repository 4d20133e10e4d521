// canvas.h: vector drawing into small pictures, and writing them as the game's XPM files.
//
// A canvas is a transparent Cairo surface at the final size of one picture; everything is drawn
// straight at that size. When it is saved, each pixel becomes either fully opaque or the colour
// key, opaque colours are reduced to 5-6-5 (dithered where asked), and the result is written as
// the XPM subset that the game reads. A picture in which an opaque pixel would fall on the key's
// 5-6-5 value is refused: the program ends with a message that names it.
//
// One process draws one set, in one thread. Errors end the program with a message; nothing here
// returns a failure.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace art {

// --- Colours -------------------------------------------------------------------------------------

// An sRGB colour, channels 0..1.
struct rgb {
    double r = 0, g = 0, b = 0;
};

// The colour of a 0xRRGGBB number.
constexpr rgb hex(std::uint32_t value) {
    return {((value >> 16) & 0xFF) / 255.0, ((value >> 8) & 0xFF) / 255.0, (value & 0xFF) / 255.0};
}

// A colour in OKLCH (Ottosson, "A perceptual color space for image processing", 2020):
// lightness 0..1, chroma 0..about 0.37, hue in degrees.
struct lch {
    double l = 0, c = 0, h = 0;
};

lch to_lch(rgb colour);
rgb to_rgb(lch colour);                  // out-of-gamut channels are clamped
rgb mix(rgb a, rgb b, double t);         // a at t = 0, b at t = 1, in sRGB
rgb lighten(rgb colour, double delta_l); // moves L by delta_l (negative darkens), keeps hue and chroma

// --- Canvas --------------------------------------------------------------------------------------

struct surface_deleter {
    void operator()(cairo_surface_t *s) const { cairo_surface_destroy(s); }
};
struct context_deleter {
    void operator()(cairo_t *c) const { cairo_destroy(c); }
};

// A transparent ARGB32 drawing surface of width x height pixels with its Cairo context.
struct canvas {
    canvas(int width, int height);
    int width, height;
    std::unique_ptr<cairo_surface_t, surface_deleter> surface;
    std::unique_ptr<cairo_t, context_deleter> context;

    operator cairo_t *() const { return context.get(); } // so that Cairo calls take a canvas
};

// Fills and strokes; each leaves the current path empty.
void fill(cairo_t *cr, rgb colour, double alpha = 1);
void fill_keep(cairo_t *cr, rgb colour, double alpha = 1); // keeps the path
void stroke(cairo_t *cr, rgb colour, double line_width, double alpha = 1);
void fill_gradient(cairo_t *cr, double x0, double y0, rgb from, double x1, double y1, rgb to);

// Appends a closed rectangle with rounded corners to the path.
void rounded_rect(cairo_t *cr, double x, double y, double w, double h, double radius);
void circle(cairo_t *cr, double cx, double cy, double radius);

// Paints `part` (whole surface) with its upper left corner at (x, y).
void paste(cairo_t *cr, const canvas &part, double x, double y, double alpha = 1);

// --- Text ----------------------------------------------------------------------------------------

enum class face { dosis_bold, andika_bold, andika, cherry_bomb };
enum class align { left, centre, right };

// Draws one line of UTF-8 text as filled outlines, unhinted, its baseline at y. `cap_height` is the
// height of capitals and digits in pixels. The dot inside Dosis' zero is left out.
void text(cairo_t *cr, face f, double cap_height, double x, double y, align a, std::string_view utf8, rgb colour,
          double alpha = 1);
// Appends the same outlines to the current path instead.
void text_path(cairo_t *cr, face f, double cap_height, double x, double y, align a, std::string_view utf8);
double text_width(face f, double cap_height, std::string_view utf8);

// Draws a colour emoji (one UTF-8 sequence) into the square (x, y, size, size).
void emoji(cairo_t *cr, std::string_view utf8, double x, double y, double size);
// The same within a thin outline in darker tones of its own, so that pale things stand off a pale ground.
// The outline lies inside the square too.
void outlined_emoji(cairo_t *cr, std::string_view utf8, int x, int y, int size);

// --- Saving --------------------------------------------------------------------------------------

struct finish {
    bool dither = false;            // diffuse the 5-6-5 rounding error (gradients); otherwise round
    std::optional<rgb> ground = {}; // blend half-covered edge pixels onto this colour (a known background)
    double threshold = 0.5;         // pixels covered less than this become the colour key
};

// Where the pictures of this run go: DIR/xpm/. Set once by main.
void set_output(const std::string &directory);

// Writes the canvas as DIR/xpm/NAME.xpm ("board/base" makes the folders it needs).
void save(const canvas &picture, const std::string &name, const finish &how = {});

// NAME of picture k (1-based) in a numbered series: prefix "title/" and 3 give "title/003".
std::string numbered(std::string_view prefix, int k);

// Reads a picture that was written before back into a canvas (the key becomes transparent).
canvas load(const std::string &name);

} // namespace art
