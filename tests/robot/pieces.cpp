// pieces.cpp: matching pieces and cells by label and by shape.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "pieces.h"
#include "eyes.h"
#include "library.h"
#include "robot.h"

#include <algorithm>
#include <cstdlib>
#include <string>

static constexpr int FRAME = 6;                       // pixels of the board's border that headings and cells leave free
static constexpr int CELL_MARGIN = 3;                 // of a cell, where its neighbours' edges may lie
static constexpr int LABEL_TOP = 3;                   // of a label that does not stand in the middle
static constexpr int LONG_FIRST = 10, LONG_LAST = 30; // places of features along the top and bottom edges
static constexpr int SHORT_FIRST = 10, SHORT_LAST = 20; // and along the sides

// Order of the four pictures of a series of edges.
enum edge { TOP, RIGHT, BOTTOM, LEFT };

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
    picture hole = picture_inset(whole, FRAME, FRAME, FRAME, FRAME);
    picture frame = whole;
    for (std::size_t i = 0; i < frame.opaque.size(); ++i)
        frame.opaque[i] = frame.opaque[i] && !hole.opaque[i];
    return picture_inset(frame, 0, 0, 0, 0); // finds the probes again
}

// Leaves out what the sockets and a neighbour's tabs may cover.
static picture without_edges(const picture &whole) {
    return picture_inset(whole, 1, 1, table.loose[RIGHT]->width, table.loose[BOTTOM]->height);
}

static point label_place(const picture &body, const picture &label) {
    return {(body.width >> 1) - (label.width >> 1),
            table.kind->label_on_top ? LABEL_TOP : (body.height >> 1) - (label.height >> 1)};
}

static picture make_face(const picture &label) {
    const picture &base = library_picture(std::string(table.kind->folder) + "piece/base.xpm");
    const point at = label_place(base, label);
    return without_edges(picture_over(base, label, at.x, at.y));
}

// The body as far as no label covers it.
static picture make_body() {
    picture body = without_edges(library_picture(std::string(table.kind->folder) + "piece/base.xpm"));
    for (const picture *label : table.labels) {
        const point at = label_place(body, *label);
        for (int i = 0; i < body.width * body.height; ++i) {
            const point on_label = {i % body.width - at.x, i / body.width - at.y};
            if (area{0, 0, label->width, label->height}.holds(on_label) &&
                label->opaque[static_cast<std::size_t>(on_label.y * label->width + on_label.x)])
                body.opaque[static_cast<std::size_t>(i)] = false;
        }
    }
    body = picture_inset(body, 0, 0, 0, 0);
    robot_expect(!body.probes.empty(), "the labels leave something of the pieces to be seen");
    return body;
}

void pieces_open(const puzzle_kind &kind, bool study) {
    const std::string folder = kind.folder;
    table = {};
    table.kind = &kind;
    const picture &board = library_picture(folder + "board/base.xpm");
    table.corner = {(WINDOW_WIDTH - board.width) >> 1, study ? kind.study_top : kind.top};
    table.frame = border_only(board);
    table.loose = library_series(folder + "piece/fragments/out/", 4);
    table.notch = library_series(folder + "board/fragments/negative/", 4);
    table.bump = library_series(folder + "board/fragments/positive/", 4);
    table.labels = library_series(folder + "piece/symbols/", pieces_count());
    for (const picture *label : table.labels)
        table.faces.push_back(make_face(*label));
    for (const picture *cell : library_series(folder + "board/pieces/", kind.cell_each ? pieces_count() : kind.rows))
        table.cells.push_back(picture_inset(*cell, CELL_MARGIN, CELL_MARGIN, table.notch[LEFT]->width + CELL_MARGIN,
                                            table.notch[TOP]->height + CELL_MARGIN));
    table.body = make_body();
}

int pieces_count() {
    return table.kind->columns * table.kind->rows;
}

point pieces_size() {
    return {table.body.width, table.body.height};
}

const picture &pieces_label(int cell) {
    return *table.labels[static_cast<std::size_t>(cell)];
}

void pieces_until_board() {
    eyes_until_seen(table.frame, table.corner.x, table.corner.y);
}

static point cell_corner(int cell) {
    const puzzle_kind &k = *table.kind;
    return {table.corner.x + k.grid.x + cell % k.columns * (k.cell.x + 1),
            table.corner.y + k.grid.y + cell / k.columns * k.pitch_y};
}

bool pieces_cell_empty(int cell) {
    const point at = cell_corner(cell);
    const int picture_index = table.kind->cell_each ? cell : cell / table.kind->columns;
    return eyes_see(table.cells[static_cast<std::size_t>(picture_index)], at.x, at.y);
}

point pieces_place(int cell) {
    const point at = cell_corner(cell);
    return {at.x + 1, at.y + 1};
}

bool pieces_face_seen(int cell, point at) {
    return eyes_see(table.faces[static_cast<std::size_t>(cell)], at.x, at.y);
}

bool pieces_body_seen(point at) {
    return eyes_see(table.body, at.x, at.y);
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

// Where along an edge this feature is seen best: its corner is at `from` for place 0, a place further for each step.
static int best_place(const picture &feature, point from, point step, int first, int last) {
    int best = first;
    double most = -1;
    for (int place = first; place <= last; ++place) {
        const double match = eyes_match(feature, from.x + place * step.x, from.y + place * step.y);
        if (match > most) {
            most = match;
            best = place;
        }
    }
    return best;
}

static int along_row(const picture &feature, int x, int y) {
    return best_place(feature, {x, y}, {1, 0}, LONG_FIRST, LONG_LAST);
}

static int along_column(const picture &feature, int x, int y) {
    return best_place(feature, {x, y}, {0, 1}, SHORT_FIRST, SHORT_LAST);
}

void pieces_read_cells() {
    const puzzle_kind &k = *table.kind;
    const picture &top = *table.notch[TOP], &left = *table.notch[LEFT];
    const picture &bottom = *table.bump[TOP], &right = *table.bump[LEFT];
    const picture &body = table.cells[0];
    table.shapes.assign(static_cast<std::size_t>(pieces_count()), {});
    for (int cell = pieces_count() - 1; cell >= 0; --cell) {
        const auto i = static_cast<std::size_t>(cell);
        const point at = cell_corner(cell);
        piece_shape &shape = table.shapes[i];
        shape.top = along_row(top, at.x, at.y - top.height + 1);
        shape.left = along_column(left, at.x - left.width + 1, at.y);
        shape.bottom = cell / k.columns < k.rows - 1 ? table.shapes[i + static_cast<std::size_t>(k.columns)].top
                                                     : along_row(bottom, at.x, at.y + body.height - bottom.height);
        shape.right = (cell + 1) % k.columns != 0 ? table.shapes[i + 1].left
                                                  : along_column(right, at.x + body.width - right.width, at.y);
    }
}

static piece_shape read_piece(point at) {
    const auto &edges = table.loose;
    const point size = pieces_size();
    return {.top = along_row(*edges[TOP], at.x - 1, at.y - edges[TOP]->height + 1),
            .right = along_column(*edges[RIGHT], at.x + size.x - edges[RIGHT]->width, at.y - 1),
            .bottom = along_row(*edges[BOTTOM], at.x - 1, at.y + size.y - edges[BOTTOM]->height),
            .left = along_column(*edges[LEFT], at.x - edges[LEFT]->width, at.y)};
}

static int difference(const piece_shape &a, const piece_shape &b) {
    return std::abs(a.top - b.top) + std::abs(a.right - b.right) + std::abs(a.bottom - b.bottom) +
           std::abs(a.left - b.left);
}

int pieces_recognise(int lookalike, point at) {
    const piece_shape shape = read_piece(at);
    const std::vector<int> candidates = pieces_lookalikes(lookalike);
    const auto fit = [&](int cell) { return difference(table.shapes[static_cast<std::size_t>(cell)], shape); };
    const int cell =
        *std::min_element(candidates.begin(), candidates.end(), [&](int a, int b) { return fit(a) < fit(b); });
    robot_expect(fit(cell) == 0, "the piece \"" + pieces_label(cell).name + "\" at (" + std::to_string(at.x) + ", " +
                                     std::to_string(at.y) + ") has the shape of a cell; it is off by " +
                                     std::to_string(fit(cell)) + " pixels");
    return cell;
}

std::vector<loose_piece> pieces_find_loose() {
    std::vector<loose_piece> found;
    for (int cell = 0; cell < pieces_count(); ++cell) {
        if (pieces_lookalikes(cell)[0] != cell)
            continue;
        for (const point at : eyes_find_all(table.faces[static_cast<std::size_t>(cell)], WHOLE_WINDOW))
            found.push_back({at, pieces_recognise(cell, at)});
    }
    return found;
}
