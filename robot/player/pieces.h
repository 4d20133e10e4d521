// pieces.h: the board and its pieces as they lie on the screen.
//
// One thread. pieces_open chooses the puzzle; the rest is about that one. Cells are numbered row by row from 0; the
// piece that belongs in a cell has the label picture of the same number.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"
#include "puzzle_kinds.h"

#include <vector>

struct loose_piece {
    point at; // top-left corner
    int cell; // where it belongs
};

void pieces_open(const puzzle_kind &kind, bool study);
int pieces_count();
point pieces_size();
point pieces_middle(); // counted from a corner
const picture &pieces_label(int cell);

void pieces_until_board();                 // the board's frame stands where it belongs
bool pieces_cell_empty(int cell);          // the cell's own picture is seen
point pieces_place(int cell);              // top-left corner of a piece that is placed there
bool pieces_face_seen(int cell, point at); // the piece that belongs in `cell`, with its label
bool pieces_body_seen(point at);           // some piece, whatever its label
int pieces_faces_missing();                // cells whose piece is not seen placed

std::vector<int> pieces_lookalikes(int cell); // all cells whose pieces have the same label as this one

// The shape of the empty cells, read from the board; call it before pieces are placed.
void pieces_read_cells();
// Everywhere on the screen. Each is told from those with its label by its shape.
std::vector<loose_piece> pieces_find_loose();
