// numbers.cpp: comparing digits with each other.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "numbers.h"
#include "library.h"
#include "robot.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

static constexpr int DARK = 24, PAPER = 60; // steps of the screen's green

struct digit_shape {
    char digit; // as it should be
    int cell;
    std::vector<std::vector<int>> columns; // of brightness
};

bool numbers_known(const puzzle_kind &kind) {
    return kind.first_factor > 0;
}

static int brightness(const picture &p, std::size_t at) {
    return p.pixels[at] >> 5 & 0x3F;
}

// The pixels that hang together with this one; takes them out of `left`.
static std::vector<point> take_blob(const picture &label, std::vector<bool> &left, point from) {
    std::vector<point> blob = {from};
    const auto take = [&](point p) {
        if (!area{0, 0, label.width, label.height}.holds(p))
            return;
        const auto at = static_cast<std::size_t>(p.y * label.width + p.x);
        if (left[at])
            blob.push_back(p);
        left[at] = false;
    };
    left[static_cast<std::size_t>(from.y * label.width + from.x)] = false;
    for (std::size_t next = 0; next < blob.size(); ++next)
        for (int i = 0; i < 9; ++i)
            take({blob[next].x + i % 3 - 1, blob[next].y + i / 3 - 1});
    return blob;
}

// The columns of the blob, with a margin.
static digit_shape shape_of(const picture &label, const std::vector<point> &blob, int cell) {
    const auto [first, last] =
        std::minmax_element(blob.begin(), blob.end(), [](point a, point b) { return a.x < b.x; });
    digit_shape shape = {.digit = 0, .cell = cell, .columns = {}};
    for (int x = std::max(first->x - 1, 0); x <= std::min(last->x + 1, label.width - 1); ++x) {
        shape.columns.emplace_back();
        for (int y = 0; y < label.height; ++y) {
            const auto at = static_cast<std::size_t>(y * label.width + x);
            shape.columns.back().push_back(label.opaque[at] ? brightness(label, at) : PAPER);
        }
    }
    return shape;
}

// From left to right.
static std::vector<digit_shape> take_apart(const picture &label, int cell) {
    std::vector<digit_shape> shapes;
    std::vector<bool> left = label.opaque; // of the dark pixels: the soft rims of two digits may touch
    for (std::size_t i = 0; i < left.size(); ++i)
        left[i] = left[i] && brightness(label, i) < DARK;
    for (int x = 0; x < label.width; ++x)
        for (int y = 0; y < label.height; ++y)
            if (left[static_cast<std::size_t>(y * label.width + x)])
                shapes.push_back(shape_of(label, take_blob(label, left, {x, y}), cell));
    return shapes;
}

static int unlike_columns(const std::vector<int> *a, const std::vector<int> *b) {
    const std::vector<int> &one = a != nullptr ? *a : *b;
    int sum = 0;
    for (std::size_t y = 0; y < one.size(); ++y)
        sum += std::abs(one[y] - (a != nullptr && b != nullptr ? (*b)[y] : PAPER));
    return sum;
}

static int unlike_shifted(const digit_shape &a, const digit_shape &b, int shift) {
    const auto column = [](const digit_shape &shape, int x) {
        const bool inside = x >= 0 && x < static_cast<int>(shape.columns.size());
        return inside ? &shape.columns[static_cast<std::size_t>(x)] : nullptr;
    };
    int sum = 0;
    for (int x = -1; x <= static_cast<int>(std::max(a.columns.size(), b.columns.size())); ++x)
        if (column(a, x) != nullptr || column(b, x + shift) != nullptr)
            sum += unlike_columns(column(a, x), column(b, x + shift));
    return sum;
}

static int unlike(const digit_shape &a, const digit_shape &b) {
    return std::min({unlike_shifted(a, b, -1), unlike_shifted(a, b, 0), unlike_shifted(a, b, 1)});
}

void numbers_check_labels(const puzzle_kind &kind) {
    const auto labels = library_series(std::string(kind.folder) + "piece/symbols/", kind.columns * kind.rows);
    std::vector<digit_shape> all;
    for (int cell = 0; cell < kind.columns * kind.rows; ++cell) {
        const std::string number =
            std::to_string((kind.first_factor + cell / kind.columns) * (1 + cell % kind.columns));
        std::vector<digit_shape> shapes = take_apart(*labels[static_cast<std::size_t>(cell)], cell);
        robot_expect(shapes.size() == number.size(), "the label of cell " + std::to_string(cell) + " shows " + number);
        for (std::size_t i = 0; i < shapes.size(); ++i) {
            shapes[i].digit = number[i];
            all.push_back(shapes[i]);
        }
    }
    for (const digit_shape &shape : all) {
        const digit_shape *nearest = nullptr;
        int least = std::numeric_limits<int>::max();
        for (const digit_shape &other : all)
            if (other.cell != shape.cell && unlike(shape, other) < least) {
                least = unlike(shape, other);
                nearest = &other;
            }
        robot_expect(nearest != nullptr && nearest->digit == shape.digit,
                     "the label of cell " + std::to_string(shape.cell) + " shows the digit " + shape.digit);
    }
}
