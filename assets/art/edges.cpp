// edges.cpp: the masks of a knob and the pictures cut from them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "edges.h"

#include "fail.h"
#include "palette.h"
#include "save.h"

#include <algorithm>

namespace art {

knob knob_for(int piece_width) {
    struct row {
        int piece_width;
        knob size;
    };
    static constexpr std::array<row, 3> KNOBS = {{
        {44, {.width = 9, .depth = 6, .neck = 2.6}},
        {55, {.width = 13, .depth = 7, .neck = 3.5}},
        {67, {.width = 15, .depth = 9, .neck = 4.0}},
    }};
    for (const row &r : KNOBS) {
        if (r.piece_width == piece_width)
            return r.size;
    }
    fail("there is no knob for pieces " + std::to_string(piece_width) + " wide");
}

// --- Masks ---------------------------------------------------------------------------------------

namespace {

constexpr int OVERSAMPLING = 16; // per pixel and direction, for exact coverage
constexpr double FILL_INSIDE = 0.5, FILL_MAX_LINE = 0.55, RING_MIN_LINE = 0.30;

// Appends the knob's outline as an open path, in frame pixels. v counts upward from the grid line's upper
// edge and u from the knob's axis.
void knob_path(cairo_t *cr, const knob &size) {
    const double axis = (size.width + 4) / 2.0, base = size.depth + 2;
    const double half = (size.width + 1) / 2.0, n = size.neck, top = size.depth + 0.5, k = top / 5.5;
    const auto curve = [&](double sign, double u1, double v1, double u2, double v2, double u3, double v3) {
        cairo_curve_to(cr, axis + sign * u1, base - v1, axis + sign * u2, base - v2, axis + sign * u3, base - v3);
    };
    cairo_move_to(cr, 0, base + 0.5);
    cairo_line_to(cr, axis - 0.94 * half, base + 0.5);
    curve(-1, 0.60 * half, -0.5, 0.93 * n, -0.25 * k, n, 0.75 * k);
    curve(-1, 1.04 * n, 1.55 * k, half, 1.55 * k, half, 3.15 * k);
    curve(-1, half, 4.55 * k, 0.62 * half, top, 0, top);
    curve(1, 0.62 * half, top, half, 4.55 * k, half, 3.15 * k);
    curve(1, half, 1.55 * k, 1.04 * n, 1.55 * k, n, 0.75 * k);
    curve(1, 0.93 * n, -0.25 * k, 0.60 * half, -0.5, 0.94 * half, -0.5);
    cairo_line_to(cr, size.width + 4, base + 0.5);
}

// The mean alpha of one frame pixel of an oversampled canvas.
double coverage(const canvas &large, int column, int row) {
    const unsigned char *data = cairo_image_surface_get_data(large.surface.get());
    const int stride = cairo_image_surface_get_stride(large.surface.get());
    int sum = 0;
    for (int y = row * OVERSAMPLING; y < (row + 1) * OVERSAMPLING; ++y) {
        for (int x = column * OVERSAMPLING; x < (column + 1) * OVERSAMPLING; ++x)
            sum += data[y * stride + x * 4 + 3];
    }
    return sum / (255.0 * OVERSAMPLING * OVERSAMPLING);
}

} // namespace

knob_mask::knob_mask(const knob &size)
    : columns(size.width + 4), rows(size.depth + 4), cells(static_cast<std::size_t>(columns * rows)) {
    measure(size);
    extend_neck();
    for (int row = 1; row < rows; ++row) {
        if (fill_width(row) > fill_width(widest))
            widest = row;
    }
    for (neck = grid_row(); neck > 0 && fill_width(neck - 1) <= fill_width(grid_row());)
        --neck;
}

const knob_mask::cell &knob_mask::at(int column, int row) const {
    static const cell outside = {};
    const bool inside = column >= 0 && column < columns && row >= 0 && row < rows;
    return inside ? cells[static_cast<std::size_t>(row * columns + column)] : outside;
}

int knob_mask::fill_width(int row) const {
    int width = 0;
    for (int column = 0; column < columns; ++column)
        width += fill(column, row);
    return width;
}

void knob_mask::measure(const knob &size) {
    canvas inside(columns * OVERSAMPLING, rows * OVERSAMPLING), line(columns * OVERSAMPLING, rows * OVERSAMPLING);
    for (cairo_t *cr : {static_cast<cairo_t *>(inside), static_cast<cairo_t *>(line)}) {
        cairo_scale(cr, OVERSAMPLING, OVERSAMPLING);
        knob_path(cr, size);
    }
    fill_keep(inside, {});
    stroke(line, {}, 1);
    cairo_surface_flush(inside.surface.get());
    cairo_surface_flush(line.surface.get());
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            cell &c = cells[static_cast<std::size_t>(row * columns + column)];
            c.line = coverage(line, column, row);
            if (row >= grid_row())
                continue;
            c.fill = coverage(inside, column, row) >= FILL_INSIDE && c.line < FILL_MAX_LINE;
            c.ring = c.line >= RING_MIN_LINE && !c.fill;
        }
    }
}

// The neck opens the grid line and goes one row into the body, as wide as the row above the line.
void knob_mask::extend_neck() {
    for (int row = grid_row(); row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            cell &c = cells[static_cast<std::size_t>(row * columns + column)];
            c.fill = fill(column, grid_row() - 1);
            c.line = row == grid_row() && c.fill ? c.line : 0;
        }
    }
}

// --- Pictures ------------------------------------------------------------------------------------

namespace {

// What a picture shows of the frame: deep rows and columns along the edge, both inclusive.
struct cut {
    int first_row, last_row, first_column, last_column;
};

cut cut_of(const knob_mask &mask, edge_kind kind, side where) {
    const bool upright = where == side::top || where == side::bottom;
    const bool socket = where == side::right || where == side::bottom;
    const bool piece = kind == edge_kind::loose || kind == edge_kind::placed;
    // Right sockets and left dents stand one pixel higher than left tabs.
    cut c = {.first_row = 1,
             .last_row = mask.grid_row(),
             .first_column = upright || (piece && !socket) ? 1 : 0,
             .last_column = mask.columns - 2};
    if (piece && socket)
        c.last_row = mask.grid_row() - 1;
    else if (piece && where == side::top)
        c.last_row = mask.grid_row() + 1; // a top tab laps over its body
    if (kind == edge_kind::placed && !socket)
        c.first_row = 2;
    return c;
}

// The masks turned the way a picture lies: x, y count picture directions but in frame pixels.
struct turned_mask {
    const knob_mask &mask;
    bool upright;

    [[nodiscard]] bool fill(int x, int y) const { return upright ? mask.fill(x, y) : mask.fill(y, x); }
    [[nodiscard]] bool ring(int x, int y) const { return upright ? mask.ring(x, y) : mask.ring(y, x); }
    [[nodiscard]] double line(int x, int y) const { return upright ? mask.line(x, y) : mask.line(y, x); }
    [[nodiscard]] int deep(int x, int y) const { return upright ? y : x; }
    [[nodiscard]] int along(int x, int y) const { return upright ? x : y; }

    // The pixels of a loose tab: thick down to its widest row, then thinner towards the neck.
    [[nodiscard]] bool tab(int x, int y) const {
        const int row = deep(x, y), column = along(x, y);
        if (row >= mask.grid_row())
            return mask.fill(column, row);
        if (row <= mask.widest_row())
            return fill(x, y) || ring(x, y);
        const bool beside = mask.fill(column - 1, row) || mask.fill(column + 1, row);
        return fill(x, y) || (row < mask.neck_row() && beside);
    }
};

rgb lit(rgb plain, bool light, bool shade) {
    if (light && shade)
        return mix(CREAM_LIGHT, CREAM_SHADE, 0.5);
    return light ? CREAM_LIGHT : shade ? CREAM_SHADE : plain;
}

using pixel = std::optional<rgb>;

pixel loose_tab(const turned_mask &m, int x, int y) {
    if (!m.tab(x, y))
        return {};
    const int grid = m.mask.grid_row();
    if (m.deep(x, y) > grid)
        return CREAM; // on the body
    const auto body = [&](int tx, int ty) { return m.deep(tx, ty) > grid || m.tab(tx, ty); };
    return lit(CREAM, !body(x - 1, y) || !body(x, y - 1), !body(x + 1, y) || !body(x, y + 1));
}

pixel loose_socket(const turned_mask &m, int x, int y) {
    if (m.fill(x, y))
        return {};
    const bool hole_after = m.fill(x + 1, y) || m.fill(x, y + 1);
    const bool hole_before = m.fill(x - 1, y) || m.fill(x, y - 1);
    if (m.deep(x, y) == m.mask.grid_row() - 1)
        return lit(CREAM_SHADE, hole_before && !hole_after, true); // the body's own edge
    return lit(CREAM, hole_before, hole_after);
}

pixel placed_tab(const turned_mask &m, int x, int y, const joint_colours &colours) {
    if (!m.fill(x, y))
        return {};
    const bool light = m.ring(x - 1, y) || m.ring(x, y - 1);
    return mix(light ? CREAM_LIGHT : CREAM, colours.line, m.line(x, y));
}

constexpr double SOCKET_SHADE = 0.55;

pixel placed_socket(const turned_mask &m, int x, int y, const joint_colours &colours) {
    if (m.fill(x, y))
        return {};
    rgb ground = CREAM;
    if (m.deep(x, y) == m.mask.grid_row() - 1)
        ground = CREAM_SHADE;
    else if (!m.ring(x, y) && (m.ring(x + 1, y) || m.ring(x, y + 1)))
        ground = mix(CREAM, CREAM_SHADE, SOCKET_SHADE);
    return m.ring(x, y) ? mix(ground, colours.line, m.line(x, y)) : ground;
}

// A dent (dark above, light below) or a bump (the other way round).
pixel board_mark(const turned_mask &m, int x, int y, rgb tone, double upper, double lower,
                 const joint_colours &colours) {
    if (m.ring(x, y))
        return mix(colours.cells, colours.line, m.line(x, y));
    if (!m.fill(x, y))
        return {};
    rgb c = tone;
    if (m.ring(x - 1, y) || m.ring(x, y - 1))
        c = lighten(tone, upper);
    else if (m.ring(x + 1, y) || m.ring(x, y + 1))
        c = lighten(tone, lower);
    return mix(c, colours.line, m.line(x, y));
}

constexpr double DENT_UPPER = -0.07, DENT_LOWER = 0.05, BUMP_UPPER = 0.04, BUMP_LOWER = -0.06; // lightness

pixel edge_pixel(const turned_mask &m, edge_kind kind, side where, int x, int y, const joint_colours &colours) {
    const bool socket = where == side::right || where == side::bottom;
    switch (kind) {
    case edge_kind::loose:
        return socket ? loose_socket(m, x, y) : loose_tab(m, x, y);
    case edge_kind::placed:
        return socket ? placed_socket(m, x, y, colours) : placed_tab(m, x, y, colours);
    case edge_kind::dent:
        return board_mark(m, x, y, colours.dent, DENT_UPPER, DENT_LOWER, colours);
    case edge_kind::bump:
        return board_mark(m, x, y, colours.panel, BUMP_UPPER, BUMP_LOWER, colours);
    }
    return {};
}

void put(cairo_t *cr, int x, int y, rgb colour) {
    cairo_rectangle(cr, x, y, 1, 1);
    fill(cr, colour);
}

} // namespace

canvas draw_edge(const knob_mask &mask, edge_kind kind, side where, const joint_colours &colours) {
    const turned_mask turned = {.mask = mask, .upright = where == side::top || where == side::bottom};
    const cut c = cut_of(mask, kind, where);
    const int along = c.last_column - c.first_column + 1, deep = c.last_row - c.first_row + 1;
    const int left = turned.upright ? c.first_column : c.first_row, top = turned.upright ? c.first_row : c.first_column;
    canvas picture(turned.upright ? along : deep, turned.upright ? deep : along);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (const pixel p = edge_pixel(turned, kind, where, left + x, top + y, colours))
                put(picture, x, y, *p);
        }
    }
    return picture;
}

void save_edges(int type, const joint_colours &colours) {
    const knob_mask mask(knob_for(PUZZLE_LAYOUTS[type].cell_w));
    struct series {
        edge_kind kind;
        puzzle_picture pictures;
    };
    static constexpr series SERIES[] = {
        {edge_kind::loose, PICTURE_LOOSE_EDGES},
        {edge_kind::placed, PICTURE_PLACED_EDGES},
        {edge_kind::dent, PICTURE_BOARD_DENTS},
        {edge_kind::bump, PICTURE_BOARD_BUMPS},
    };
    for (const series &s : SERIES) {
        for (const side where : {side::top, side::right, side::bottom, side::left}) {
            const bool board = s.kind == edge_kind::dent || s.kind == edge_kind::bump;
            const bool drawn = !board || where == side::top || where == side::left;
            // The game loads four pictures a series; the board shows two of them.
            save(drawn ? draw_edge(mask, s.kind, where, colours) : canvas(1, 1),
                 entry_of_puzzle(type, s.pictures, static_cast<int>(where)));
        }
    }
}

canvas draw_body(int width, int height) {
    canvas body(width, height);
    cairo_rectangle(body, 0, 0, width, height);
    fill(body, CREAM);
    for (int x = 0; x < width; ++x) {
        put(body, x, 0, lit(CREAM, true, x == width - 1));
        put(body, x, height - 1, lit(CREAM, x == 0, true));
    }
    for (int y = 1; y < height - 1; ++y) {
        put(body, 0, y, CREAM_LIGHT);
        put(body, width - 1, y, CREAM_SHADE);
    }
    return body;
}

} // namespace art
