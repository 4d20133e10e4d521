// pieces.cpp: matching pieces and cells by label and by shape.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "pieces.h"
#include "eyes.h"
#include "library.h"
#include "robot.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

static constexpr int FRAME = 6;        // pixels of the board's border that headings and cells leave free
static constexpr int CELL_MARGIN = 3;  // of a cell, where its neighbours' edges may lie
static constexpr int LABEL_TOP = 3;    // of a label that does not stand in the middle
static constexpr int FIRST_PLACE = 10; // of a feature along an edge
static constexpr int LAST_LEVEL = 30, LAST_UPRIGHT = 20; // along the top and bottom edges, along the sides

using piece_shape = std::array<int, EDGE_COUNT>; // places of the tabs and sockets along the edges, pixels

static struct {
    const puzzle_kind *kind;
    point corner; // of the board
    picture frame, body;
    std::vector<picture> faces; // a piece with its label, without what edges may cover
    std::vector<const picture *> labels;
    std::vector<picture> cells;
    std::vector<const picture *> loose, notch, bump; // edges of a loose piece, of a cell, of the board's last cells
    std::vector<piece_shape> shapes;                 // of the cells
} table;

static picture border_only(const picture &whole) {
    const rect inside = {FRAME, FRAME, whole.width - 2 * FRAME, whole.height - 2 * FRAME};
    return picture_where(whole, [&](point at) { return !rect_holds(inside, at); });
}

// Leaves out what the sockets and a neighbour's tabs may cover.
static picture without_edges(const picture &whole) {
    return picture_part(whole, {1, 1, whole.width - 1 - table.loose[EDGE_RIGHT]->width,
                                whole.height - 1 - table.loose[EDGE_BOTTOM]->height});
}

static point label_place(const picture &body, const picture &label) {
    const point middle = picture_inside(body, label);
    return {middle.x, table.kind->label_on_top ? LABEL_TOP : middle.y};
}

static picture make_face(const picture &base, const picture &label) {
    return without_edges(picture_collage(base, {{&label, label_place(base, label)}}));
}

// As far as no label covers it.
static picture make_body(const picture &base) {
    const auto bare = [&base](point at) {
        return std::none_of(table.labels.begin(), table.labels.end(), [&](const picture *label) {
            return picture_covers(*label, at - label_place(base, *label));
        });
    };
    picture body = picture_where(without_edges(base), bare);
    robot_expect(!body.probes.empty(), "the labels leave something of the pieces to be seen");
    return body;
}

static picture make_cell(const picture &whole) {
    return picture_part(whole, {CELL_MARGIN, CELL_MARGIN, whole.width - 2 * CELL_MARGIN - table.notch[EDGE_LEFT]->width,
                                whole.height - 2 * CELL_MARGIN - table.notch[EDGE_TOP]->height});
}

void pieces_open(const puzzle_kind &kind, bool study) {
    table = {};
    table.kind = &kind;
    const picture &board = library_puzzle(kind.type, PICTURE_BOARD), &base = library_puzzle(kind.type, PICTURE_PIECE);
    table.corner = {window_centre(board.width), study ? kind.layout().study_top : kind.layout().top};
    table.frame = border_only(board);
    table.loose = library_puzzle_series(kind.type, PICTURE_LOOSE_EDGES);
    table.notch = library_puzzle_series(kind.type, PICTURE_BOARD_DENTS);
    table.bump = library_puzzle_series(kind.type, PICTURE_BOARD_BUMPS);
    table.labels = library_puzzle_series(kind.type, PICTURE_LABELS);
    for (const picture *label : table.labels)
        table.faces.push_back(make_face(base, *label));
    for (const picture *cell : library_puzzle_series(kind.type, PICTURE_CELLS))
        table.cells.push_back(make_cell(*cell));
    table.body = make_body(base);
}

int pieces_count() {
    return table.kind->layout().labels;
}

point pieces_size() {
    return {table.body.width, table.body.height};
}

point pieces_middle() {
    return picture_middle(table.body);
}

const picture &pieces_label(int cell) {
    return *table.labels[static_cast<std::size_t>(cell)];
}

void pieces_until_board() {
    eyes_until_seen(table.frame, table.corner);
}

static point cell_corner(int cell) {
    const puzzle_layout &l = table.kind->layout();
    return table.corner + point{l.grid_x + cell % l.cols * (l.cell_w + COLUMN_GAP),
                                l.grid_y + cell / l.cols * puzzle_row_pitch(table.kind->type)};
}

bool pieces_cell_empty(int cell) {
    const puzzle_layout &layout = table.kind->layout();
    const int index = layout.cell_pictures == layout.labels ? cell : cell / layout.cols;
    return eyes_see(table.cells[static_cast<std::size_t>(index)], cell_corner(cell));
}

point pieces_place(int cell) {
    return cell_corner(cell) + point{1, 1};
}

bool pieces_face_seen(int cell, point at) {
    return eyes_see(table.faces[static_cast<std::size_t>(cell)], at);
}

bool pieces_body_seen(point at) {
    return eyes_see(table.body, at);
}

int pieces_faces_missing() {
    int missing = 0;
    for (int cell = 0; cell < pieces_count(); ++cell)
        missing += pieces_face_seen(cell, pieces_place(cell)) ? 0 : 1;
    return missing;
}

std::vector<int> pieces_lookalikes(int cell) {
    std::vector<int> alike;
    for (int other = 0; other < pieces_count(); ++other)
        if (picture_same(pieces_label(other), pieces_label(cell)))
            alike.push_back(other);
    return alike;
}

// Where along an edge this feature is seen best; its corner is at `from` for place 0.
static int best_place(sprite_edge along, const picture &feature, point from) {
    const bool upright = along == EDGE_LEFT || along == EDGE_RIGHT;
    int best = FIRST_PLACE;
    double most = -1;
    for (int place = FIRST_PLACE; place <= (upright ? LAST_UPRIGHT : LAST_LEVEL); ++place) {
        const double match = eyes_match(feature, from + (upright ? point{0, place} : point{place, 0}));
        if (match > most) {
            most = match;
            best = place;
        }
    }
    return best;
}

void pieces_read_cells() {
    const puzzle_layout &layout = table.kind->layout();
    const picture &top = *table.notch[EDGE_TOP], &left = *table.notch[EDGE_LEFT];
    const picture &bottom = *table.bump[EDGE_TOP], &right = *table.bump[EDGE_LEFT];
    const picture &body = table.cells[0];
    table.shapes.assign(static_cast<std::size_t>(pieces_count()), {});
    for (int cell = pieces_count() - 1; cell >= 0; --cell) {
        const auto i = static_cast<std::size_t>(cell);
        const point at = cell_corner(cell);
        piece_shape &shape = table.shapes[i];
        shape[EDGE_TOP] = best_place(EDGE_TOP, top, at + point{0, 1 - top.height});
        shape[EDGE_LEFT] = best_place(EDGE_LEFT, left, at + point{1 - left.width, 0});
        shape[EDGE_BOTTOM] = cell / layout.cols < layout.rows - 1
                                 ? table.shapes[i + static_cast<std::size_t>(layout.cols)][EDGE_TOP]
                                 : best_place(EDGE_BOTTOM, bottom, at + point{0, body.height - bottom.height});
        shape[EDGE_RIGHT] = (cell + 1) % layout.cols != 0
                                ? table.shapes[i + 1][EDGE_LEFT]
                                : best_place(EDGE_RIGHT, right, at + point{body.width - right.width, 0});
    }
}

static piece_shape read_piece(point at) {
    const auto &edges = table.loose;
    const point size = pieces_size();
    return {best_place(EDGE_TOP, *edges[EDGE_TOP], at + point{-1, 1 - edges[EDGE_TOP]->height}),
            best_place(EDGE_RIGHT, *edges[EDGE_RIGHT], at + point{size.x - edges[EDGE_RIGHT]->width, -1}),
            best_place(EDGE_BOTTOM, *edges[EDGE_BOTTOM], at + point{-1, size.y - edges[EDGE_BOTTOM]->height}),
            best_place(EDGE_LEFT, *edges[EDGE_LEFT], at + point{-edges[EDGE_LEFT]->width, 0})};
}

// The cell among those with the same label whose shape fits a loose piece at this place.
static int recognise(int lookalike, point at) {
    const piece_shape shape = read_piece(at);
    const auto misfit = [&](int cell) {
        int sum = 0;
        for (std::size_t i = 0; i < EDGE_COUNT; ++i)
            sum += std::abs(table.shapes[static_cast<std::size_t>(cell)][i] - shape[i]);
        return sum;
    };
    const std::vector<int> candidates = pieces_lookalikes(lookalike);
    const int cell =
        *std::min_element(candidates.begin(), candidates.end(), [&](int a, int b) { return misfit(a) < misfit(b); });
    robot_expect(misfit(cell) == 0, "the piece \"" + pieces_label(cell).name + "\" at " + eyes_place(at) +
                                        " has the shape of a cell; it is off by " + std::to_string(misfit(cell)) +
                                        " pixels");
    return cell;
}

std::vector<loose_piece> pieces_find_loose() {
    std::vector<loose_piece> found;
    for (int cell = 0; cell < pieces_count(); ++cell) {
        if (pieces_lookalikes(cell)[0] != cell)
            continue;
        for (const point at : eyes_find(table.faces[static_cast<std::size_t>(cell)]))
            found.push_back({at, recognise(cell, at)});
    }
    return found;
}
