// assembly.cpp: placing finished pictures as the game does.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "assembly.h"

#include "written.h"

namespace art {
namespace {

std::vector<canvas> load_four(int type, puzzle_picture id) {
    std::vector<canvas> pictures;
    for (int k = 0; k < EDGE_COUNT; ++k)
        pictures.push_back(load(entry_of_puzzle(type, id, k)));
    return pictures;
}

// A copy of the rectangle (x, y, width, height) of a canvas.
canvas cut_out(const canvas &from, int x, int y, int width, int height) {
    canvas part(width, height);
    paste(part, from, -x, -y);
    return part;
}

// Puts back what lay under a socket, then draws the socket's rim.
void draw_socket(canvas &target, const canvas &under, const canvas &rim, int x, int y) {
    paste(target, under, x, y);
    paste(target, rim, x, y);
}

} // namespace

piece_set::piece_set(int type)
    : body(load(entry_of_puzzle(type, PICTURE_PIECE))), loose(load_four(type, PICTURE_LOOSE_EDGES)),
      placed(load_four(type, PICTURE_PLACED_EDGES)), dents(load_four(type, PICTURE_BOARD_DENTS)),
      bumps(load_four(type, PICTURE_BOARD_BUMPS)) {}

void draw_piece(canvas &target, const piece_set &set, bool loose, int x, int y, edge_places places,
                const canvas *label) {
    const std::vector<canvas> &edge = loose ? set.loose : set.placed;
    const int bottom_x = x + places.bottom - 1, bottom_y = y + set.body.height - edge[EDGE_BOTTOM].height;
    const int right_x = x + set.body.width - edge[EDGE_RIGHT].width, right_y = y + places.right - 1;
    const canvas under_bottom = cut_out(target, bottom_x, bottom_y, edge[EDGE_BOTTOM].width, edge[EDGE_BOTTOM].height);
    const canvas under_right = cut_out(target, right_x, right_y, edge[EDGE_RIGHT].width, edge[EDGE_RIGHT].height);
    paste(target, set.body, x, y);
    if (label)
        paste(target, *label, x + set.body.width / 2 - label->width / 2, y + set.body.height / 2 - label->height / 2);
    paste(target, edge[EDGE_TOP], x + places.top - 1, y - edge[EDGE_TOP].height + 1);
    paste(target, edge[EDGE_LEFT], x - edge[EDGE_LEFT].width, y + places.left);
    draw_socket(target, under_bottom, edge[EDGE_BOTTOM], bottom_x, bottom_y);
    draw_socket(target, under_right, edge[EDGE_RIGHT], right_x, right_y);
}

void draw_cell_edges(canvas &target, const piece_set &set, int x, int y, int width, int height, edge_places places,
                     bool last_row, bool last_column) {
    paste(target, set.dents[EDGE_TOP], x + places.top, y - set.dents[EDGE_TOP].height + 1);
    paste(target, set.dents[EDGE_LEFT], x - set.dents[EDGE_LEFT].width + 1, y + places.left);
    if (last_row)
        paste(target, set.bumps[EDGE_TOP], x + places.bottom, y + height - set.bumps[EDGE_TOP].height);
    if (last_column)
        paste(target, set.bumps[EDGE_LEFT], x + width - set.bumps[EDGE_LEFT].width, y + places.right);
}

// --- The joint study -----------------------------------------------------------------------------

namespace {

constexpr int STUDY = 3;                                                        // cells a side
constexpr int STUDY_MARGIN = 14;                                                // pixels
constexpr std::array<const char *, STUDY> STUDY_PIECES = {"XX.", "XXX", ".X."}; // X: a placed piece

// Places of the joints: vertical[r][c] on the left of cell (c, r), horizontal[r][c] on its top.
constexpr std::array<std::array<int, STUDY + 1>, STUDY> VERTICAL = {
    {{19, 14, 18, 13}, {17, 16, 20, 19}, {16, 18, 17, 18}}};
constexpr std::array<std::array<int, STUDY>, STUDY + 1> HORIZONTAL = {
    {{20, 10, 30}, {29, 23, 10}, {20, 16, 26}, {16, 15, 17}}};

edge_places study_places(std::size_t column, std::size_t row) {
    return {.top = HORIZONTAL[row][column],
            .right = VERTICAL[row][column + 1],
            .bottom = HORIZONTAL[row + 1][column],
            .left = VERTICAL[row][column]};
}

} // namespace

canvas joint_study(int type) {
    const piece_set set(type);
    const canvas cell = load(entry_of_puzzle(type, PICTURE_CELLS));
    const canvas label = load(entry_of_puzzle(type, PICTURE_LABELS, 19)),
                 board = load(entry_of_puzzle(type, PICTURE_BOARD));
    const int pitch_x = cell.width - 1, pitch_y = cell.height - 1;
    canvas study(STUDY_MARGIN * 3 + pitch_x * (STUDY + 1), STUDY_MARGIN * 2 + pitch_y * STUDY + set.body.height / 2);
    // One pixel of the plain panel, repeated, is the ground.
    const canvas panel = cut_out(board, board.width / 2, board.height - STUDY_MARGIN, 1, 1);
    cairo_set_source_surface(study, panel.surface.get(), 0, 0);
    cairo_pattern_set_extend(cairo_get_source(study), CAIRO_EXTEND_REPEAT);
    cairo_paint(study);

    struct place {
        std::size_t column, row;
        int x, y;
    };
    std::vector<place> cells;
    for (std::size_t i = 0; i < STUDY * STUDY; ++i)
        cells.push_back({i % STUDY, i / STUDY, STUDY_MARGIN + static_cast<int>(i % STUDY) * pitch_x,
                         STUDY_MARGIN + static_cast<int>(i / STUDY) * pitch_y});
    for (const place &p : cells)
        paste(study, load(entry_of_puzzle(type, PICTURE_CELLS, static_cast<int>(p.row) * 2)), p.x, p.y);
    for (const place &p : cells)
        draw_cell_edges(study, set, p.x, p.y, cell.width, cell.height, study_places(p.column, p.row),
                        p.row == STUDY - 1, p.column == STUDY - 1);
    for (const place &p : cells) {
        if (STUDY_PIECES[p.row][p.column] == 'X')
            draw_piece(study, set, false, p.x + 1, p.y + 1, study_places(p.column, p.row), &label);
    }
    draw_piece(study, set, true, STUDY_MARGIN * 2 + pitch_x * STUDY, STUDY_MARGIN + pitch_y * 2 + set.body.height / 2,
               study_places(0, 0), &label);
    return study;
}

} // namespace art
