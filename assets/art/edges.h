// edges.h: the jigsaw joints: every tab, socket, dent and bump of a puzzle, cut from one drawing.
//
// A knob stands on the grid line between two pieces and reaches `depth` pixels into its neighbour. Four
// kinds of picture show it: on a loose piece, on a placed piece, as a dent in an empty board and as the
// board's own bump in its last row and column. Because all of them take their pixels from the same two
// masks, the line of a joint is closed whichever of them meet.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

#include <array>
#include <string>
#include <vector>

namespace art {

// The size of a knob, pixels.
struct knob {
    int width;   // of the knob's fill
    int depth;   // rows of it inside the neighbour
    double neck; // half the width of its neck
};

// The knob that suits a piece of this width.
knob knob_for(int piece_width);

// The colours of a board that show in its joints.
struct joint_colours {
    rgb line;  // grid and rings
    rgb dent;  // a hole in the board
    rgb panel; // the board's panel, of which bumps are a part
    rgb cells; // the cells' mean tone, onto which the rings of dents and bumps are smoothed
};

// In the order in which the game numbers the pictures of a series.
enum class side { top, right, bottom, left };
enum class edge_kind { loose, placed, dent, bump };

// The masks of one knob in its frame of (width + 4) columns and (depth + 4) rows. Column 0 and row 0 are
// free, then the ring, the fill from 2 on; row depth + 2 is the grid line, the last row the body's first.
class knob_mask {
public:
    explicit knob_mask(const knob &size);

    [[nodiscard]] bool fill(int column, int row) const { return at(column, row).fill; }
    [[nodiscard]] bool ring(int column, int row) const { return at(column, row).ring; }
    // How much of the pixel the joint's line covers, 0..1.
    [[nodiscard]] double line(int column, int row) const { return at(column, row).line; }

    const int columns, rows;
    [[nodiscard]] int grid_row() const { return rows - 2; }
    [[nodiscard]] int widest_row() const { return widest; }
    [[nodiscard]] int neck_row() const { return neck; } // from here on a loose tab shows its fill alone

private:
    struct cell {
        bool fill = false, ring = false;
        double line = 0;
    };
    [[nodiscard]] const cell &at(int column, int row) const;
    [[nodiscard]] int fill_width(int row) const;
    void measure(const knob &size);
    void extend_neck();

    std::vector<cell> cells;
    int widest = 0, neck = 0;
};

// One edge picture. Dents and bumps exist for the top and the left only.
canvas draw_edge(const knob_mask &mask, edge_kind kind, side where, const joint_colours &colours);

// Writes the sixteen edge pictures of a puzzle folder.
void save_edges(int type, const joint_colours &colours);

// The body of a piece, loose or placed.
canvas draw_body(int width, int height);

} // namespace art
