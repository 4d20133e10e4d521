// things.cpp: coins, clocks, fraction shapes and jigsaw outlines.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "things.h"

#include "fail.h"
#include "text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string>
#include <string_view>
#include <vector>

namespace art {

namespace {

constexpr double PI = std::numbers::pi;
constexpr rgb WHITE = {1, 1, 1};

struct point {
    double x, y;
};

// The point on the circle at `turn` full turns clockwise from the top.
point on_circle(double cx, double cy, double radius, double turn) {
    return {cx + radius * std::sin(2 * PI * turn), cy - radius * std::cos(2 * PI * turn)};
}

void line_between(cairo_t *cr, point a, point b) {
    cairo_move_to(cr, a.x, a.y);
    cairo_line_to(cr, b.x, b.y);
}

// A disc that is lighter towards the light in the upper left.
void lit_disc(cairo_t *cr, double cx, double cy, double radius, rgb light, rgb shade) {
    const double reach = radius * std::numbers::sqrt2 / 2;
    circle(cr, cx, cy, radius);
    fill_gradient(cr, cx - reach, cy - reach, light, cx + reach, cy + reach, shade);
}

// --- Coins ---------------------------------------------------------------------------------------

struct metal {
    rgb face, light, rim, outline, numeral;
};

constexpr metal COPPER = {hex(0xF0BE98), hex(0xFFE3CC), hex(0xC27B48), hex(0x7A3F17), hex(0x3A1705)};
constexpr metal SILVER = {hex(0xE4EAEE), hex(0xFFFFFF), hex(0xA9B6C0), hex(0x5C6B78), hex(0x17222C)};
constexpr metal GOLD = {hex(0xFBDD84), hex(0xFFF6D0), hex(0xD9A32C), hex(0x8A5C08), hex(0x3B2500)};

enum class edge { plain, milled };
enum class ornament { none, ring, beads };

struct coin {
    int cents;
    double diameter; // pixels, as are the lengths below
    const metal &stuff;
    std::string_view label;
    double cap_height;
    double rim;
    edge rim_edge;
    ornament inside;
};

constexpr coin COINS[] = {
    {1, 34, COPPER, "1¢", 15, 3.2, edge::plain, ornament::none},
    {5, 36, SILVER, "5¢", 15, 3.2, edge::plain, ornament::none},
    {10, 32, SILVER, "10¢", 12, 2.6, edge::milled, ornament::none},
    {25, 40, SILVER, "25¢", 13.5, 3.2, edge::milled, ornament::none},
    {50, 44, SILVER, "50¢", 14, 3.2, edge::milled, ornament::ring},
    {100, 42, GOLD, "$1", 15, 3.0, edge::plain, ornament::beads},
};

constexpr double MILL_PITCH = 3.1, MILL_WIDTH = 1, MILL_ALPHA = 0.5;
constexpr double GROOVE = 0.9; // between rim and face
constexpr double RING_INSET = 2.2, BEAD_INSET = 2.6, BEAD_RADIUS = 0.85, BEAD_PITCH = 5.2;
constexpr double PLAIN_BELOW = 24;    // smaller coins have no fine marks
constexpr double SMALLEST_CAP = 0.48; // of the diameter, on such coins
constexpr double NARROWEST = 0.86;    // to which a label is squeezed at most

const coin &find_coin(int cents) {
    const auto *found = std::ranges::find(COINS, cents, &coin::cents);
    if (found == std::end(COINS))
        fail("there is no coin of " + std::to_string(cents) + " cents");
    return *found;
}

void mill_rim(cairo_t *cr, const metal &m, double cx, double cy, double from, double to, double scale) {
    const int lines = static_cast<int>(2 * PI * to / (MILL_PITCH * scale));
    for (int i = 0; i < lines; ++i)
        line_between(cr, on_circle(cx, cy, from, 1.0 * i / lines), on_circle(cx, cy, to, 1.0 * i / lines));
    stroke(cr, m.outline, MILL_WIDTH * scale, MILL_ALPHA);
}

void bead_face(cairo_t *cr, const metal &m, double cx, double cy, double radius, double scale) {
    const int beads = static_cast<int>(2 * PI * radius / (BEAD_PITCH * scale));
    for (int i = 0; i < beads; ++i) {
        const point p = on_circle(cx, cy, radius, 1.0 * i / beads);
        circle(cr, p.x, p.y, BEAD_RADIUS * scale);
    }
    fill(cr, m.rim);
}

// The value, squeezed a little where it would touch the face's edge, on a light lower edge as if struck.
void strike_label(cairo_t *cr, const coin &c, double cx, double cy, double cap, double face_radius) {
    const double room = 2 * std::sqrt(face_radius * face_radius - cap * cap / 4);
    const double squeeze = std::clamp(room / text_width(face::dosis_bold, cap, c.label), NARROWEST, 1.0);
    cairo_save(cr);
    cairo_translate(cr, cx, cy + cap / 2);
    cairo_scale(cr, squeeze, 1);
    text(cr, face::dosis_bold, cap, 0.8, 0.8, align::centre, c.label, c.stuff.light, 0.9);
    text(cr, face::dosis_bold, cap, 0, 0, align::centre, c.label, c.stuff.numeral);
    cairo_restore(cr);
}

// --- Clocks --------------------------------------------------------------------------------------

constexpr double CLOCK_NOMINAL = 47; // pixels; the widths below belong to this diameter
constexpr rgb CLOCK_RIM = hex(0xD39A00), CLOCK_RIM_LIGHT = hex(0xFFDF7A), CLOCK_RIM_SHADE = hex(0xA87400),
              CLOCK_OUTLINE = hex(0x6E4A00);
constexpr rgb HOUR_COLOUR = hex(0x13233F), MINUTE_COLOUR = hex(0xA32A17);
constexpr double RIM_WIDTH = 3, HOUR_WIDTH = 4, MINUTE_WIDTH = 2.2, HUB_RADIUS = 2.6;
constexpr double HOUR_REACH = 0.52, MINUTE_REACH = 0.86; // of the face's radius
constexpr double MARK_OUTER = 0.95, MARK_INNER = 0.85, QUARTER_INNER = 0.77;
constexpr double MARK_WIDTH = 1.3, QUARTER_WIDTH = 2.2;
constexpr int MARKS = 12, MINUTES = 60;

void clock_marks(cairo_t *cr, double cx, double cy, double radius, double scale) {
    for (int i = 0; i < MARKS; ++i) {
        const bool quarter = i % 3 == 0;
        const double turn = 1.0 * i / MARKS;
        line_between(cr, on_circle(cx, cy, radius * (quarter ? QUARTER_INNER : MARK_INNER), turn),
                     on_circle(cx, cy, radius * MARK_OUTER, turn));
        stroke(cr, HOUR_COLOUR, scale * (quarter ? QUARTER_WIDTH : MARK_WIDTH));
    }
}

// --- Fractions -----------------------------------------------------------------------------------

constexpr rgb FRACTION_LINE = hex(0x13233F);
constexpr double FRACTION_NOMINAL = 37; // pixels; the widths below belong to this size
constexpr double OUTER_LINE = 1.8, INNER_LINE = 1.2;
constexpr double BAR_HEIGHT = 0.62, TALLEST_CELL = 1.7;

struct fraction_pen {
    int coloured;
    rgb colour;
    double outer, inner; // line widths
};

// Fills part `index` (the current path) and draws its border.
void draw_part(cairo_t *cr, const fraction_pen &pen, int index) {
    fill_keep(cr, index < pen.coloured ? pen.colour : WHITE);
    stroke(cr, FRACTION_LINE, pen.inner);
}

void polygon_path(cairo_t *cr, const std::vector<point> &corners) {
    for (const point &p : corners)
        cairo_line_to(cr, p.x, p.y);
    cairo_close_path(cr);
}

std::vector<point> regular_polygon(point centre, double radius, int corners, double first_turn) {
    std::vector<point> result;
    for (int i = 0; i < corners; ++i)
        result.push_back(on_circle(centre.x, centre.y, radius, first_turn + 1.0 * i / corners));
    return result;
}

point between(point a, point b, double t) {
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

// The point that lies `along` sides from the first corner, clockwise.
point on_sides(const std::vector<point> &corners, double along) {
    const auto side = static_cast<std::size_t>(along) % corners.size();
    return between(corners[side], corners[(side + 1) % corners.size()], along - std::floor(along));
}

// Cuts a regular polygon from its centre so that every part has the same length of rim: as all
// sides are equally far from the centre, all parts then have the same area.
void cut_from_centre(cairo_t *cr, const fraction_pen &pen, const std::vector<point> &corners, point centre, int parts) {
    const auto sides = static_cast<int>(corners.size());
    for (int i = 0; i < parts; ++i) {
        const double from = 1.0 * i * sides / parts, to = 1.0 * (i + 1) * sides / parts;
        cairo_move_to(cr, centre.x, centre.y);
        const point begin = on_sides(corners, from), end = on_sides(corners, to);
        cairo_line_to(cr, begin.x, begin.y);
        for (int corner = static_cast<int>(std::floor(from)) + 1; corner < to; ++corner)
            cairo_line_to(cr, corners[static_cast<std::size_t>(corner % sides)].x,
                          corners[static_cast<std::size_t>(corner % sides)].y);
        cairo_line_to(cr, end.x, end.y);
        cairo_close_path(cr);
        draw_part(cr, pen, i);
    }
    polygon_path(cr, corners);
    stroke(cr, FRACTION_LINE, pen.outer);
}

// Cuts a triangle into rows^2 small ones, row by row from the top.
void cut_into_rows(cairo_t *cr, const fraction_pen &pen, const std::vector<point> &corners, int rows) {
    const auto at = [&](double row, double step) {
        const point left = between(corners[0], corners[2], row / rows);
        const point right = between(corners[0], corners[1], row / rows);
        return row > 0 ? between(left, right, step / row) : corners[0];
    };
    int index = 0;
    for (int row = 0; row < rows; ++row) {
        for (int k = 0; k <= 2 * row; ++k) {
            const int step = k / 2;
            if (k % 2 == 0)
                polygon_path(cr, {at(row, step), at(row + 1, step + 1), at(row + 1, step)});
            else
                polygon_path(cr, {at(row, step), at(row, step + 1), at(row + 1, step + 1)});
            draw_part(cr, pen, index++);
        }
    }
    polygon_path(cr, corners);
    stroke(cr, FRACTION_LINE, pen.outer);
}

int exact_root(int n) {
    const int root = static_cast<int>(std::lround(std::sqrt(n)));
    return root * root == n ? root : 0;
}

void draw_triangle(cairo_t *cr, const fraction_pen &pen, int parts, double x, double y, double size) {
    // A regular triangle with its side as long as the box; its height is less, so it is set in the middle.
    const double side = size - pen.outer, height = side * std::numbers::sqrt3 / 2;
    const double top = y + (size - height) / 2, middle = x + size / 2;
    const std::vector<point> corners = {
        {middle, top}, {middle + side / 2, top + height}, {middle - side / 2, top + height}};
    if (const int rows = exact_root(parts); rows > 1)
        cut_into_rows(cr, pen, corners, rows);
    else
        cut_from_centre(cr, pen, corners, {middle, top + height * 2 / 3}, parts);
}

void draw_pie(cairo_t *cr, const fraction_pen &pen, int parts, point centre, double radius) {
    const double top = -PI / 2;
    for (int i = 0; i < parts; ++i) {
        if (parts > 1)
            cairo_move_to(cr, centre.x, centre.y);
        cairo_arc(cr, centre.x, centre.y, radius, top + 2 * PI * i / parts, top + 2 * PI * (i + 1) / parts);
        cairo_close_path(cr);
        draw_part(cr, pen, i);
    }
    circle(cr, centre.x, centre.y, radius);
    stroke(cr, FRACTION_LINE, pen.outer);
}

int largest_divisor_to_root(int n) {
    int best = 1;
    for (int d = 2; d * d <= n; ++d)
        best = n % d == 0 ? d : best;
    return best;
}

// Cells with whole-pixel borders, so that all parts are exactly alike; set in the middle of the box.
void draw_cells(cairo_t *cr, const fraction_pen &pen, int rows, int parts, double x, double y, double size,
                double tallest) {
    const int columns = parts / rows;
    const double line = std::max(1.0, std::floor(pen.inner)), rim = std::max(1.0, std::round(pen.outer));
    const double inside = size - 2 * rim + line; // with a line behind each cell, the last one's under the rim
    const double w = std::floor(inside / columns);
    const double h = std::floor(std::min(inside / rows, tallest));
    const double width = w * columns - line, height = h * rows - line;
    const double left = std::floor(x + (size - width) / 2), top = std::floor(y + (size - height) / 2);
    cairo_rectangle(cr, left - rim, top - rim, width + 2 * rim, height + 2 * rim);
    fill(cr, FRACTION_LINE);
    for (int i = 0; i < parts; ++i) {
        cairo_rectangle(cr, left + w * (i % columns), top + h * (i / columns), w - line, h - line);
        fill(cr, i < pen.coloured ? pen.colour : WHITE);
    }
}

// --- Jigsaw outlines -----------------------------------------------------------------------------

// Half of a knob from the left end of its neck to its top: two curves and a third, in units of its
// depth, along the side and outwards. The other half is its mirror image.
constexpr point KNOB_START = {-0.67, 0};
constexpr point KNOB[3][3] = {
    {{-0.43, 0.00}, {-0.345, 0.03}, {-0.371, 0.198}},
    {{-0.386, 0.333}, {-0.714, 0.333}, {-0.714, 0.60}},
    {{-0.714, 0.84}, {-0.443, 1.00}, {0.00, 1.00}},
};

// A side of the outline: its middle, the direction along it, and outwards times the knob's direction.
struct side_frame {
    point middle, along, out;
    double knob;

    [[nodiscard]] point at(point p) const {
        return {middle.x + (along.x * p.x + out.x * p.y) * knob, middle.y + (along.y * p.x + out.y * p.y) * knob};
    }
};

void curve(cairo_t *cr, point a, point b, point c) {
    cairo_curve_to(cr, a.x, a.y, b.x, b.y, c.x, c.y);
}

void knob_path(cairo_t *cr, const side_frame &frame) {
    const auto mirrored = [&](point p) { return frame.at({-p.x, p.y}); };
    const point start = frame.at(KNOB_START), end = mirrored(KNOB_START);
    cairo_line_to(cr, start.x, start.y);
    for (const auto &part : KNOB)
        curve(cr, frame.at(part[0]), frame.at(part[1]), frame.at(part[2]));
    curve(cr, mirrored(KNOB[2][1]), mirrored(KNOB[2][0]), mirrored(KNOB[1][2]));
    curve(cr, mirrored(KNOB[1][1]), mirrored(KNOB[1][0]), mirrored(KNOB[0][2]));
    curve(cr, mirrored(KNOB[0][1]), mirrored(KNOB[0][0]), end);
}

} // namespace

double coin_diameter(int cents) {
    return find_coin(cents).diameter;
}

void draw_coin(cairo_t *cr, int cents, double cx, double cy, double diameter) {
    const coin &c = find_coin(cents);
    const metal &m = c.stuff;
    const bool fine = diameter >= PLAIN_BELOW;
    const double scale = diameter / c.diameter;
    const double outer = diameter / 2 - 1, groove = outer - c.rim * scale, face_radius = groove - GROOVE * scale;
    circle(cr, cx, cy, diameter / 2);
    fill(cr, m.outline);
    lit_disc(cr, cx, cy, outer, mix(m.rim, m.light, 0.6), mix(m.rim, m.outline, 0.25));
    if (fine && c.rim_edge == edge::milled)
        mill_rim(cr, m, cx, cy, groove, outer, scale);
    lit_disc(cr, cx, cy, groove, mix(m.rim, m.outline, 0.7), mix(m.rim, m.light, 0.5));
    lit_disc(cr, cx, cy, face_radius, m.light, m.face);
    if (fine && c.inside == ornament::ring) {
        circle(cr, cx, cy, face_radius - RING_INSET * scale);
        stroke(cr, m.rim, scale, 0.8);
    }
    if (fine && c.inside == ornament::beads)
        bead_face(cr, m, cx, cy, face_radius - BEAD_INSET * scale, scale);
    strike_label(cr, c, cx, cy, fine ? c.cap_height * scale : SMALLEST_CAP * diameter, face_radius);
}

void draw_clock(cairo_t *cr, int hour, int minute, double cx, double cy, double diameter) {
    const double scale = diameter / CLOCK_NOMINAL;
    const double rim = diameter / 2 - 1, radius = rim - RIM_WIDTH * scale;
    circle(cr, cx, cy, diameter / 2);
    fill(cr, CLOCK_OUTLINE);
    lit_disc(cr, cx, cy, rim, CLOCK_RIM_LIGHT, CLOCK_RIM_SHADE);
    circle(cr, cx, cy, rim - scale);
    fill(cr, CLOCK_RIM);
    circle(cr, cx, cy, radius);
    fill(cr, CLOCK_OUTLINE);
    circle(cr, cx, cy, radius - 0.8 * scale);
    fill(cr, WHITE);
    clock_marks(cr, cx, cy, radius, scale);

    const double minute_turn = 1.0 * minute / MINUTES;
    const point centre = {cx, cy};
    const point hour_tip = on_circle(cx, cy, radius * HOUR_REACH, (hour % MARKS + minute_turn) / MARKS);
    const point minute_tip = on_circle(cx, cy, radius * MINUTE_REACH, minute_turn);
    cairo_save(cr);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    line_between(cr, centre, minute_tip);
    stroke(cr, MINUTE_COLOUR, MINUTE_WIDTH * scale);
    line_between(cr, centre, hour_tip); // on top: where both point the same way the longer one still shows
    stroke(cr, HOUR_COLOUR, HOUR_WIDTH * scale);
    cairo_restore(cr);
    circle(cr, cx, cy, HUB_RADIUS * scale);
    fill(cr, HOUR_COLOUR);
}

void draw_fraction(cairo_t *cr, fraction_shape shape, int coloured, int parts, double x, double y, double size,
                   rgb colour) {
    const double scale = size / FRACTION_NOMINAL;
    const fraction_pen pen = {coloured, colour, OUTER_LINE * scale, INNER_LINE * scale};
    const point centre = {x + size / 2, y + size / 2};
    const double radius = (size - pen.outer) / 2;
    cairo_save(cr);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    switch (shape) {
    case fraction_shape::pie:
        draw_pie(cr, pen, parts, centre, radius);
        break;
    case fraction_shape::bar:
        draw_cells(cr, pen, 1, parts, x, y, size, size * BAR_HEIGHT);
        break;
    case fraction_shape::grid: {
        const int rows = largest_divisor_to_root(parts);
        draw_cells(cr, pen, rows, parts, x, y, size, rows > 1 ? size * rows * TALLEST_CELL / parts : size * BAR_HEIGHT);
        break;
    }
    case fraction_shape::hexagon:
        cut_from_centre(cr, pen, regular_polygon(centre, radius, 6, 0), centre, parts);
        break;
    case fraction_shape::triangle:
        draw_triangle(cr, pen, parts, x, y, size);
        break;
    case fraction_shape::square: {
        const double a = x + pen.outer / 2, b = x + size - pen.outer / 2;
        const double c = y + pen.outer / 2, d = y + size - pen.outer / 2;
        cut_from_centre(cr, pen, {{a, c}, {b, c}, {b, d}, {a, d}}, centre, parts);
        break;
    }
    }
    cairo_restore(cr);
}

bool fraction_suits(fraction_shape shape, int parts) {
    constexpr unsigned counts[] = {
        0b1'1111'1111'1110, // pie: 1..12
        0b0'0001'1111'1110, // bar: 1..8, more would be slivers
        0b1'0111'0101'0000, // grid: 4, 6, 8, 9, 10, 12
        0b1'0000'0100'1100, // hexagon: 2, 3, 6, 12
        0b0'0010'0101'1100, // triangle: 2, 3, 4, 6, 9
        0b0'0001'0001'0100, // square: 2, 4, 8
    };
    return (counts[static_cast<std::size_t>(shape)] >> parts & 1) != 0;
}

void jigsaw_outline(cairo_t *cr, double x, double y, double w, double h, std::array<int, 4> sides, double knob) {
    const point corners[] = {{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}};
    const point along[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    const point out[] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};
    cairo_new_sub_path(cr);
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const point next = corners[(i + 1) % sides.size()];
        cairo_line_to(cr, corners[i].x, corners[i].y);
        const double way = sides[i];
        if (sides[i] != 0)
            knob_path(cr, {between(corners[i], next, 0.5), along[i], {out[i].x * way, out[i].y * way}, knob});
    }
    cairo_close_path(cr);
}

} // namespace art
