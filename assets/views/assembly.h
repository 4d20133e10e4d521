// assembly.h: puts finished pictures together by the game's own rules of where a piece, its tabs and sockets
// and the board's dents and bumps are drawn. For looking at joints, and for pictures of a board in play.
//
// Everything is read back from the written pictures, so what is shown is what the game shows.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

#include <array>
#include <vector>

namespace art {

// The body and edge pictures of one puzzle; edges in the order top, right, bottom, left.
struct piece_set {
    explicit piece_set(int type);
    canvas body;
    std::vector<canvas> loose, placed, dents, bumps;
};

// Where along its edges a piece carries its tabs and sockets, pixels from the edge's start.
struct edge_places {
    int top = 0, right = 0, bottom = 0, left = 0;
};

// A piece's body at (x, y), its label centred on it, and its tabs and sockets; `loose` or placed edges. A
// socket shows what `target` held there before the piece was drawn.
void draw_piece(canvas &target, const piece_set &set, bool loose, int x, int y, edge_places places,
                const canvas *label);

// The dents of a cell at (x, y), and its bumps where it lies in the last row or column.
void draw_cell_edges(canvas &target, const piece_set &set, int x, int y, int width, int height, edge_places places,
                     bool last_row, bool last_column);

// A block of three by three cells of a puzzle with tidy, empty and loose pieces on its own board's colours, for judging
// the joints.
canvas joint_study(int type);

} // namespace art
