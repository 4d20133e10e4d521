// cells.cpp: builds the grid of cells and draws it into the background.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/cells.h"

#include "core/base/random.h"
#include "graphics/draw_list.h"
#include "puzzles/puzzle_layout.h"
#include "sprites/sprite.h"

namespace {

// Places of edge features along their edges, in pixels.
constexpr i32 SIDE_PLACE_MIN = 10, SIDE_PLACE_MAX = 20; // left and right edges
constexpr i32 FLAT_PLACE_MIN = 10, FLAT_PLACE_MAX = 30; // top and bottom edges

// Types have a picture for every cell, or one for every row.
i32 cell_picture_index(const board *b, i32 col, i32 row) {
    return b->layout->cell_pictures == b->layout->cols * b->layout->rows ? row * b->layout->cols + col : row;
}

// The place that a neighbour has given to the shared edge already, or a random one.
i32 shared_place(const sprite *neighbour, i32 sprite::*place, i32 low, i32 high) {
    return neighbour != nullptr ? neighbour->*place : random_range(low, high);
}

// The order of the draws, left, right, top, bottom, is fixed: the same seed gives the same board.
void choose_edge_places(const board *b, sprite *cell) {
    const i32 c = cell->col, r = cell->row;
    cell->tab_left = shared_place(board_find_cell(b, c - 1, r), &sprite::sock_right, SIDE_PLACE_MIN, SIDE_PLACE_MAX);
    cell->sock_right = shared_place(board_find_cell(b, c + 1, r), &sprite::tab_left, SIDE_PLACE_MIN, SIDE_PLACE_MAX);
    cell->tab_top = shared_place(board_find_cell(b, c, r - 1), &sprite::sock_bottom, FLAT_PLACE_MIN, FLAT_PLACE_MAX);
    cell->sock_bottom = shared_place(board_find_cell(b, c, r + 1), &sprite::tab_top, FLAT_PLACE_MIN, FLAT_PLACE_MAX);
}

i32 build_cell(board *b, i32 col, i32 row) {
    sprite *cell = sprite_create();
    if (cell == nullptr)
        return -1;
    cell->col = col;
    cell->row = row;
    cell->index = cell_picture_index(b, col, row);
    cell->x = b->layout->grid_x + col * (b->layout->cell_w + COLUMN_GAP);
    cell->y = b->layout->grid_y + row * puzzle_row_pitch(b->type);
    choose_edge_places(b, cell);
    return board_add_cell(b, cell);
}

// Every cell shows its top and left sockets; the board's outer bottom and right edges show bumps.
void draw_edges(const board *b, const sprite *cell) {
    const i32 x = b->x + cell->x, y = b->y + cell->y;
    draw_image_bg(cell->img_top, x + cell->tab_top, y - cell->ext_top + 1);
    draw_image_bg(cell->img_left, x - cell->ext_left + 1, y + cell->tab_left);
    if (cell->row == b->layout->rows - 1)
        draw_image_bg(cell->img_bottom, x + cell->sock_bottom, y + cell->body->height - cell->ext_bottom);
    if (cell->col == b->layout->cols - 1)
        draw_image_bg(cell->img_right, x + cell->body->width - cell->ext_right, y + cell->sock_right);
}

} // namespace

i32 cells_build(board *b) {
    for (i32 row = 0; row < b->layout->rows; ++row)
        for (i32 col = 0; col < b->layout->cols; ++col)
            if (build_cell(b, col, row) < 0)
                return -1;
    return 1;
}

i32 board_add_cell(board *b, sprite *cell) {
    if (ptr_array_append(b->cells, cell) < 0) {
        sprite_free(cell);
        return -1;
    }
    const bool last_row = cell->row == b->layout->rows - 1;
    const bool last_col = cell->col == b->layout->cols - 1;
    sprite_set_body(cell, b->pictures.cells[cell->index]);
    // An edge's picture serves both of its sides: the top pair above and below, the left pair left and right.
    cell->img_top = b->pictures.board_tab_in[EDGE_TOP];
    cell->img_bottom = last_row ? b->pictures.board_tab_out[EDGE_TOP] : b->pictures.board_tab_in[EDGE_TOP];
    cell->img_left = b->pictures.board_tab_in[EDGE_LEFT];
    cell->img_right = last_col ? b->pictures.board_tab_out[EDGE_LEFT] : b->pictures.board_tab_in[EDGE_LEFT];
    sprite_set_edge_sizes(cell);
    return 1;
}

sprite *board_find_cell(const board *b, i32 col, i32 row) {
    if (col < 0 || row < 0 || col >= b->layout->cols || row >= b->layout->rows)
        return nullptr;
    for (sprite *cell : each(b->cells))
        if (cell->col == col && cell->row == row)
            return cell;
    return nullptr;
}

void cells_draw(const board *b) {
    for (const sprite *cell : each(b->cells))
        draw_image_bg(cell->body, cell->x + b->x, cell->y + b->y);
    for (const sprite *cell : each(b->cells))
        draw_edges(b, cell);
}
