// numbers.cpp: comparing digits with each other.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "numbers.h"
#include "player/library.h"
#include "player/robot.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

static constexpr int DARK = 24, PAPER = 60; // steps of the screen's green

struct digit_shape {
    const picture *label;
    int first, last; // columns that hold dark pixels
    int cell;
    char digit; // as it should be
};

static int green(colour565 colour) {
    return colour >> 5 & 0x3F;
}

// How bright the label is there.
static int brightness(const picture &label, point at) {
    return picture_covers(label, at) ? green(label.pixels[static_cast<std::size_t>(at.y * label.width + at.x)]) : PAPER;
}

static bool dark_column(const picture &label, int x) {
    for (int y = 0; y < label.height; ++y)
        if (brightness(label, {x, y}) < DARK)
            return true;
    return false;
}

// The digits of a label, from left to right: what columns without a dark pixel part. Their soft rims may touch.
static std::vector<digit_shape> take_apart(const picture &label, int cell, const std::string &number) {
    std::vector<digit_shape> shapes;
    for (int x = 0; x < label.width; ++x) {
        if (!dark_column(label, x))
            continue;
        if (shapes.empty() || shapes.back().last < x - 1)
            shapes.push_back({&label, x, x, cell, 0});
        shapes.back().last = x;
    }
    robot_expect(shapes.size() == number.size(), "the label of cell " + std::to_string(cell) + " shows " + number);
    for (std::size_t i = 0; i < shapes.size(); ++i)
        shapes[i].digit = number[i];
    return shapes;
}

// Counted from the shape's first column; it reaches into a margin of one on each side.
static int shade(const digit_shape &shape, point at) {
    const int x = shape.first + at.x;
    return x >= shape.first - 1 && x <= shape.last + 1 ? brightness(*shape.label, {x, at.y}) : PAPER;
}

static int unlike_shifted(const digit_shape &a, const digit_shape &b, int shift) {
    const int width = std::max(a.last - a.first, b.last - b.first) + 1;
    int sum = 0;
    for (int y = 0; y < std::max(a.label->height, b.label->height); ++y)
        for (int x = -2; x <= width + 1; ++x)
            sum += std::abs(shade(a, {x, y}) - shade(b, {x + shift, y}));
    return sum;
}

static int unlike(const digit_shape &a, const digit_shape &b) {
    return std::min({unlike_shifted(a, b, -1), unlike_shifted(a, b, 0), unlike_shifted(a, b, 1)});
}

void numbers_check_labels(const puzzle_kind &kind) {
    if (kind.first_factor == 0)
        return;
    const auto labels = library_puzzle_series(kind.type, PICTURE_LABELS);
    std::vector<digit_shape> all;
    for (int cell = 0; cell < kind.layout().labels; ++cell) {
        const int product = (kind.first_factor + cell / kind.layout().cols) * (1 + cell % kind.layout().cols);
        const auto shapes = take_apart(*labels[static_cast<std::size_t>(cell)], cell, std::to_string(product));
        all.insert(all.end(), shapes.begin(), shapes.end());
    }
    for (const digit_shape &shape : all) {
        const digit_shape *nearest = nullptr;
        int least = std::numeric_limits<int>::max();
        for (const digit_shape &other : all) {
            const int difference = other.cell == shape.cell ? least : unlike(shape, other);
            if (difference < least) {
                least = difference;
                nearest = &other;
            }
        }
        robot_expect(nearest != nullptr && nearest->digit == shape.digit,
                     "the label of cell " + std::to_string(shape.cell) + " shows the digit " + shape.digit);
    }
}
