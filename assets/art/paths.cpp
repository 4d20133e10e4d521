// paths.cpp: reads outlines written as texts and draws them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "paths.h"

#include "fail.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace art {

namespace {

constexpr std::size_t MAX_NUMBERS = 6;
using numbers = std::array<double, MAX_NUMBERS>;

struct command {
    char letter;
    std::size_t count; // of numbers in a group
    void (*apply)(cairo_t *cr, const numbers &n);
};

constexpr command COMMANDS[] = {
    {'M', 2, [](cairo_t *cr, const numbers &n) { cairo_move_to(cr, n[0], n[1]); }},
    {'L', 2, [](cairo_t *cr, const numbers &n) { cairo_line_to(cr, n[0], n[1]); }},
    {'C', 6, [](cairo_t *cr, const numbers &n) { cairo_curve_to(cr, n[0], n[1], n[2], n[3], n[4], n[5]); }},
    {'Z', 0, [](cairo_t *cr, const numbers &) { cairo_close_path(cr); }},
    {'O', 3, [](cairo_t *cr, const numbers &n) { circle(cr, n[0], n[1], n[2]); }},
    {'R', 5, [](cairo_t *cr, const numbers &n) { rounded_rect(cr, n[0], n[1], n[2], n[3], n[4]); }},
};

void skip_spaces(std::string_view &rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
}

bool take_number(std::string_view &rest, double &value) {
    skip_spaces(rest);
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    if (error != std::errc{})
        return false;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    return true;
}

[[noreturn]] void refuse(std::string_view outline) {
    fail("cannot read the outline '" + std::string(outline) + "'");
}

} // namespace

void trace(cairo_t *cr, std::string_view outline) {
    std::string_view rest = outline;
    for (skip_spaces(rest); !rest.empty(); skip_spaces(rest)) {
        const auto *found = std::ranges::find(COMMANDS, rest[0], &command::letter);
        if (found == std::end(COMMANDS))
            refuse(outline);
        rest.remove_prefix(1);
        numbers group = {};
        std::size_t have = 0;
        bool applied = found->count == 0;
        if (applied)
            found->apply(cr, group);
        while (found->count > 0 && take_number(rest, group[have])) {
            if (++have < found->count)
                continue;
            found->apply(cr, group);
            applied = true;
            have = 0;
        }
        if (!applied || have != 0)
            refuse(outline);
    }
}

void draw_parts(cairo_t *cr, std::span<const drawn_part> parts, rgb colour, double thinnest) {
    double one_pixel = 1, unused = 0;
    cairo_device_to_user_distance(cr, &one_pixel, &unused);
    cairo_save(cr);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
    for (const drawn_part &part : parts) {
        trace(cr, part.outline);
        if (part.line > 0)
            stroke(cr, colour, std::max(part.line, thinnest * one_pixel));
        else
            fill(cr, colour);
    }
    cairo_restore(cr);
}

} // namespace art
