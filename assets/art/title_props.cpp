// title_props.cpp: pencils, ruler, scissors and what else lies on a craft table.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "title_props.h"

#include "palette.h"
#include "text.h"
#include "title_parts.h"

#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace art {
namespace {

constexpr double PI = std::numbers::pi;
constexpr rgb WHITE = hex(0xFFFFFF);
constexpr double SHADOW = 0.42; // how dark a thing's shadow is in its middle

// Runs `paint` with the origin at the thing's middle and the thing's own direction along x. `path` outlines
// the whole thing; its shadow falls to the lower right of the table, however the thing is turned.
template <typename Path, typename Paint> void lay_down(cairo_t *cr, spot at, double height, Path path, Paint paint) {
    const double turn = at.turn * PI / 180;
    paint_shadow(
        cr,
        [&] {
            cairo_translate(cr, at.x, at.y);
            cairo_rotate(cr, turn);
            path();
        },
        height * 0.7, height, height * 1.1, SHADOW);
    cairo_save(cr);
    cairo_translate(cr, at.x, at.y);
    cairo_rotate(cr, turn);
    paint();
    cairo_restore(cr);
}

void fill_and_line(cairo_t *cr, rgb colour, rgb line, double width = 1.2) {
    fill_keep(cr, colour);
    stroke(cr, line, width);
}

} // namespace

void draw_pencil(cairo_t *cr, spot at, double length, rgb colour) {
    constexpr double HALF = 6, TIP = 18, LEAD = 6, CAP = 10; // pixels
    const double left = -length / 2, right = length / 2;
    const rgb dark = lighten(colour, -0.25), wood = hex(0xF0CF9C);
    const auto outline = [&] {
        rounded_rect(cr, left, -HALF, length - TIP, 2 * HALF, 3);
        cairo_move_to(cr, right - TIP, -HALF);
        cairo_line_to(cr, right, 0);
        cairo_line_to(cr, right - TIP, HALF);
        cairo_close_path(cr);
    };
    lay_down(cr, at, 4, outline, [&] {
        rounded_rect(cr, left, -HALF, length - TIP + 3, 2 * HALF, 3);
        fill_and_line(cr, colour, dark);
        cairo_rectangle(cr, left + 2, -HALF + 1, length - TIP, 3.2);
        fill(cr, lighten(colour, 0.09));
        cairo_rectangle(cr, left + 2, HALF - 4, length - TIP, 3.2);
        fill(cr, lighten(colour, -0.09));
        rounded_rect(cr, left, -HALF, CAP, 2 * HALF, 3);
        fill_and_line(cr, hex(0xF6F1E6), dark);
        cairo_move_to(cr, right - TIP, -HALF);
        for (int i = 0; i < 3; ++i) // the scalloped end of the paint
            cairo_curve_to(cr, right - TIP - 3, -HALF + 4 * i + 1, right - TIP - 3, -HALF + 4 * i + 3, right - TIP,
                           -HALF + 4 * (i + 1));
        cairo_line_to(cr, right, 0);
        cairo_close_path(cr);
        fill_and_line(cr, wood, dark);
        const double share = LEAD / TIP;
        cairo_move_to(cr, right - LEAD, -HALF * share);
        cairo_line_to(cr, right, 0);
        cairo_line_to(cr, right - LEAD, HALF * share);
        cairo_close_path(cr);
        fill_and_line(cr, dark, dark);
    });
}

void draw_chalk_stick(cairo_t *cr, spot at, double length, rgb colour) {
    constexpr double HALF = 6.5;
    const auto outline = [&] { rounded_rect(cr, -length / 2, -HALF, length, 2 * HALF, 4); };
    lay_down(cr, at, 4, outline, [&] {
        outline();
        fill_gradient(cr, 0, -HALF, lighten(colour, 0.05), 0, HALF, lighten(colour, -0.14));
        outline();
        stroke(cr, lighten(colour, -0.30), 1.1);
        cairo_save(cr); // its worn end
        cairo_translate(cr, length / 2 - 3, 0);
        cairo_scale(cr, 0.45, 1);
        circle(cr, 0, 0, HALF - 0.6);
        cairo_restore(cr);
        fill_and_line(cr, lighten(colour, 0.07), lighten(colour, -0.2), 0.8);
    });
}

void draw_ruler(cairo_t *cr, spot at, double length) {
    constexpr double HEIGHT = 34, PITCH = 7, CAP = 10;
    const rgb line = hex(0x8A5A10);
    const auto outline = [&] { rounded_rect(cr, -length / 2, -HEIGHT / 2, length, HEIGHT, 4); };
    lay_down(cr, at, 3, outline, [&] {
        outline();
        fill_gradient(cr, 0, -HEIGHT / 2, hex(0xFFE39A), 0, HEIGHT / 2, hex(0xF2C14E));
        outline();
        stroke(cr, line, 1.2);
        cairo_rectangle(cr, -length / 2 + 3, -HEIGHT / 2 + 1.2, length - 6, 1.4);
        fill(cr, WHITE, 0.7);
        const int marks = static_cast<int>((length - 16) / PITCH);
        for (int i = 0; i <= marks; ++i) {
            const double x = std::round(-length / 2 + 9 + i * PITCH) + 0.5;
            cairo_move_to(cr, x, -HEIGHT / 2 + 1);
            cairo_line_to(cr, x, -HEIGHT / 2 + (i % 5 == 0 ? 12 : 7));
            stroke(cr, hex(0x4A3005), i % 5 == 0 ? 1.5 : 1);
            if (i % 5 == 0)
                centred_text(cr, CAP, x, HEIGHT / 2 - 9, std::to_string(i / 5), hex(0x4A3005));
        }
    });
}

void draw_scissors(cairo_t *cr, spot at, double length, rgb handle) {
    const double tip = length * 0.55, back = -length * 0.22, ring = length * 0.13;
    const rgb steel = hex(0xD5DEE6), steel_line = hex(0x566573), dark = lighten(handle, -0.25);
    const auto blade = [&](double way) {
        cairo_move_to(cr, tip, -7 * way);
        cairo_curve_to(cr, tip * 0.5, -13 * way, 0, -9 * way, back, 6 * way);
        cairo_line_to(cr, back + 4, 12 * way);
        cairo_curve_to(cr, 0, 2 * way, tip * 0.6, -3 * way, tip, -7 * way);
        cairo_close_path(cr);
    };
    const auto grip = [&](double way) { circle(cr, back - ring * 0.75, way * (ring + 2), ring); };
    const auto outline = [&] {
        for (const double way : {-1.0, 1.0}) {
            blade(way);
            circle(cr, back - ring * 0.75, way * (ring + 2), ring + 5);
            cairo_new_sub_path(cr); // the other way round: the hole for a finger
            cairo_arc_negative(cr, back - ring * 0.75, way * (ring + 2), ring - 5, 2 * PI, 0);
        }
    };
    lay_down(cr, at, 4, outline, [&] {
        for (const double way : {-1.0, 1.0}) {
            blade(way);
            fill_and_line(cr, way > 0 ? steel : lighten(steel, 0.05), steel_line);
        }
        for (const double way : {-1.0, 1.0}) {
            grip(way);
            stroke(cr, dark, 11);
            grip(way);
            stroke(cr, handle, 8.6);
            grip(way);
            stroke(cr, lighten(handle, 0.10), 2.4);
        }
        circle(cr, 2, 0, 3.6);
        fill_and_line(cr, hex(0xF5F8FA), steel_line);
    });
}

void draw_eraser(cairo_t *cr, spot at, double length) {
    const double h = length * 0.46, sleeve = length * 0.58;
    const auto outline = [&] { rounded_rect(cr, -length / 2, -h / 2, length, h, 6); };
    lay_down(cr, at, 5, outline, [&] {
        outline();
        fill_and_line(cr, hex(0xFDF7F4), hex(0x9A7F78));
        rounded_rect(cr, length / 2 - sleeve, -h / 2, sleeve, h, 3);
        fill_and_line(cr, hex(0x3C7CC4), hex(0x1D4674));
        cairo_rectangle(cr, length / 2 - sleeve + 1, -h / 2 + 2, sleeve - 3, 3);
        fill(cr, WHITE, 0.35);
        cairo_rectangle(cr, length / 2 - sleeve * 0.82, -h / 2 + 1, 6, h - 2);
        fill(cr, hex(0xFFD84A));
    });
}

void draw_mug(cairo_t *cr, spot at, double diameter, rgb glaze) {
    const double r = diameter / 2;
    const rgb dark = lighten(glaze, -0.22);
    const auto outline = [&] {
        circle(cr, 0, 0, r);
        rounded_rect(cr, r - 6, -r * 0.26, r * 0.55, r * 0.52, r * 0.2);
    };
    lay_down(cr, at, 12, outline, [&] {
        rounded_rect(cr, r - 8, -r * 0.26, r * 0.5, r * 0.52, r * 0.2);
        stroke(cr, dark, r * 0.22);
        rounded_rect(cr, r - 8, -r * 0.26, r * 0.5, r * 0.52, r * 0.2);
        stroke(cr, glaze, r * 0.15);
        circle(cr, 0, 0, r);
        fill_gradient(cr, -r, -r, lighten(glaze, 0.10), r, r, lighten(glaze, -0.10));
        circle(cr, 0, 0, r - 0.6);
        stroke(cr, dark, 1.3);
        circle(cr, 0, 0, r * 0.82);
        fill(cr, dark);
        circle(cr, 1, 2, r * 0.78);
        fill_gradient(cr, -r, -r, hex(0x7A4A2A), r, r, hex(0xA06A3E));
        cairo_rotate(cr, -at.turn * PI / 180); // the heart of cream stands upright
        const double s = r * 0.48;
        cairo_move_to(cr, 1, s * 0.95 + 2);
        cairo_curve_to(cr, 1 - s * 1.7, -s * 0.1, 1 - s * 0.9, -s * 1.3, 1, -s * 0.4);
        cairo_curve_to(cr, 1 + s * 0.9, -s * 1.3, 1 + s * 1.7, -s * 0.1, 1, s * 0.95 + 2);
        cairo_close_path(cr);
        fill_and_line(cr, hex(0xFFF3E4), hex(0xC99A6E), 1.6);
    });
}

void draw_biscuits(cairo_t *cr, spot at, double diameter) {
    const double r = diameter / 2, size = diameter * 0.42;
    lay_down(
        cr, at, 6, [&] { circle(cr, 0, 0, r); },
        [&] {
            circle(cr, 0, 0, r);
            fill_gradient(cr, -r, -r, hex(0xFFFFFF), r, r, hex(0xDCE6EE));
            circle(cr, 0, 0, r - 0.6);
            stroke(cr, hex(0x8496A5), 1.2);
            circle(cr, 0, 0, r * 0.74);
            stroke(cr, hex(0x9DC3E6), 2.5);
            for (const auto &[dx, dy] :
                 std::array<std::array<double, 2>, 4>{{{-.42, -.30}, {.34, -.36}, {-.22, .40}, {.42, .28}}})
                emoji(cr, "🍪", dx * r * 0.8 - size / 2, dy * r * 0.8 - size / 2, size);
        });
}

void draw_sheet(cairo_t *cr, spot at, double width, double height, rgb colour) {
    constexpr double CURL = 18;
    const double x = -width / 2, y = -height / 2, r = width / 2, b = height / 2;
    const auto outline = [&] {
        cairo_move_to(cr, x, y);
        cairo_line_to(cr, r, y);
        cairo_line_to(cr, r, b - CURL);
        cairo_line_to(cr, r - CURL, b);
        cairo_line_to(cr, x, b);
        cairo_close_path(cr);
    };
    lay_down(cr, at, 3, outline, [&] {
        outline();
        fill_gradient(cr, x, y, lighten(colour, 0.02), r, b, lighten(colour, -0.03));
        outline();
        stroke(cr, lighten(colour, -0.18), 1);
        cairo_move_to(cr, r, b - CURL);
        cairo_curve_to(cr, r - CURL * 0.4, b - CURL * 1.1, r - CURL * 0.9, b - CURL * 0.9, r - CURL, b);
        cairo_close_path(cr);
        fill_and_line(cr, lighten(colour, 0.06), lighten(colour, -0.22), 1);
    });
}

void draw_pot_plant(cairo_t *cr, spot at, double diameter) {
    constexpr int LEAVES = 9;
    const double pot = diameter * 0.27, leaf = diameter / 2;
    const auto leaf_path = [&](double length, double width) {
        cairo_move_to(cr, 0, 0);
        cairo_curve_to(cr, length * 0.25, -width, length * 0.75, -width, length, 0);
        cairo_curve_to(cr, length * 0.75, width, length * 0.25, width, 0, 0);
        cairo_close_path(cr);
    };
    const auto each_leaf = [&](auto paint) {
        for (int i = 0; i < LEAVES; ++i) {
            cairo_save(cr);
            cairo_rotate(cr, i * 4 * 2 * PI / LEAVES);
            paint(leaf * (i % 2 == 0 ? 1 : 0.78), i);
            cairo_restore(cr);
        }
    };
    lay_down(
        cr, at, 10, [&] { each_leaf([&](double length, int) { leaf_path(length, length * 0.26); }); },
        [&] {
            circle(cr, 0, 0, pot);
            fill_and_line(cr, hex(0xC9714A), hex(0x7C3B1E), 2);
            circle(cr, 0, 0, pot * 0.8);
            fill(cr, hex(0x5B3A28));
            each_leaf([&](double length, int i) {
                const rgb green = to_rgb({0.60 + 0.05 * (i % 3), 0.13, 145.0 - 6 * (i % 2)});
                leaf_path(length, length * 0.26);
                fill_and_line(cr, green, lighten(green, -0.20), 1.2);
                cairo_move_to(cr, 4, 0);
                cairo_line_to(cr, length * 0.85, 0);
                stroke(cr, lighten(green, 0.13), 1.4);
            });
        });
}

void draw_pencil_pot(cairo_t *cr, spot at, double diameter) {
    const double r = diameter / 2;
    constexpr std::array COLOURS = {hex(0xE4572E), hex(0x2F7FBF), hex(0xF2B13C),
                                    hex(0x3C9A55), hex(0x8E4FA8), hex(0xE27AA6)};
    lay_down(
        cr, at, 14, [&] { circle(cr, 0, 0, r); },
        [&] {
            circle(cr, 0, 0, r);
            fill_gradient(cr, -r, -r, hex(0x9EE3D7), r, r, hex(0x4FA89B));
            circle(cr, 0, 0, r - 0.7);
            stroke(cr, hex(0x24645B), 1.4);
            circle(cr, 0, 0, r * 0.84);
            fill(cr, hex(0x1E4B46));
            const double ring = r * 0.50, stub = r * 0.27;
            for (std::size_t i = 0; i <= COLOURS.size(); ++i) { // the last stands in the middle
                const double a = static_cast<double>(i) * 2 * PI / COLOURS.size(), away = i < COLOURS.size() ? ring : 0;
                const rgb colour = COLOURS[i % COLOURS.size()];
                circle(cr, away * std::cos(a), away * std::sin(a), stub);
                fill_and_line(cr, colour, lighten(colour, -0.25), 1.2);
                circle(cr, away * std::cos(a), away * std::sin(a), stub * 0.66);
                fill(cr, hex(0xF3D5A4));
                circle(cr, away * std::cos(a) - 0.6, away * std::sin(a) - 0.6, stub * 0.26);
                fill(cr, lighten(colour, -0.12));
            }
        });
}

} // namespace art
