// picture.cpp: decoding, laying over each other.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "picture.h"
#include "resources/xpm_format.h"
#include "robot.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <numeric>
#include <sstream>

static constexpr colour565 KEY = pixel16::from_rgb(pixel32::to_rgb(XPM_KEY));
static constexpr int CLOSE = 8;                       // levels of 256: a step of red or blue, two of green
static constexpr std::uint64_t SCATTER = 2654435761U; // spreads the probes; odd and far from any row length

bool colour_close(colour565 a, colour565 b) {
    const rgb one = pixel16::to_rgb(a), other = pixel16::to_rgb(b);
    return std::abs(one.r - other.r) <= CLOSE && std::abs(one.g - other.g) <= CLOSE &&
           std::abs(one.b - other.b) <= CLOSE;
}

static void order_probes(picture &p) {
    p.probes.clear();
    const std::size_t count = p.pixels.size();
    std::size_t step = SCATTER % count | 1U;
    while (count > 1 && std::gcd(step, count) != 1)
        step += 2;
    for (std::size_t i = 0, at = count / 2; i < count; ++i, at = (at + step) % count)
        if (p.opaque[at])
            p.probes.push_back(static_cast<int>(at));
}

// The quoted strings of an XPM text: its values, its colours, its rows.
static std::vector<std::string> quoted(const std::string &text) {
    std::vector<std::string> found;
    std::istringstream rest(text);
    for (std::string between, inside; std::getline(rest, between, '"') && std::getline(rest, inside, '"');)
        found.push_back(inside);
    return found;
}

static colour565 parse_colour(const std::string &entry, std::size_t from) {
    const std::size_t hash = entry.find('#', from);
    const long value = hash == std::string::npos ? 0 : std::strtol(entry.c_str() + hash + 1, nullptr, 16);
    return pixel16::from_rgb(pixel32::to_rgb(static_cast<u32>(value)));
}

picture picture_decode(const std::string &name, const std::string &xpm) {
    const std::vector<std::string> lines = quoted(xpm);
    std::size_t colours = 0, symbol = 0;
    picture p;
    p.name = name;
    if (lines.empty() || !(std::istringstream(lines[0]) >> p.width >> p.height >> colours >> symbol) ||
        lines.size() < 1 + colours + static_cast<std::size_t>(p.height))
        robot_give_up("the picture " + name + " in the archive can be decoded");
    std::map<std::string, colour565> palette;
    for (std::size_t i = 1; i <= colours; ++i)
        palette[lines[i].substr(0, symbol)] = parse_colour(lines[i], symbol);
    for (std::size_t row = 0; row < static_cast<std::size_t>(p.height); ++row)
        for (std::size_t x = 0; x < static_cast<std::size_t>(p.width); ++x)
            p.pixels.push_back(palette[lines[1 + colours + row].substr(x * symbol, symbol)]);
    for (const colour565 c : p.pixels)
        p.opaque.push_back(c != KEY);
    order_probes(p);
    return p;
}

bool picture_same(const picture &a, const picture &b) {
    return a.width == b.width && a.height == b.height && a.pixels == b.pixels;
}

bool picture_covers(const picture &p, point at) {
    return rect_holds({0, 0, p.width, p.height}, at) && p.opaque[static_cast<std::size_t>(at.y * p.width + at.x)];
}

point picture_middle(const picture &p) {
    return {p.width >> 1, p.height >> 1};
}

point picture_inside(const picture &outer, const picture &inner) {
    return picture_middle(outer) - picture_middle(inner);
}

picture picture_empty(int width, int height) {
    const auto count = static_cast<std::size_t>(width * height);
    return {"", width, height, std::vector<colour565>(count), std::vector<bool>(count), {}};
}

picture picture_collage(picture lowest, const std::vector<picture_layer> &layers) {
    const rect kept = {0, 0, lowest.width, lowest.height};
    for (const auto &[above, corner] : layers)
        for (int i = 0; i < above->width * above->height; ++i) {
            const point at = corner + point{i % above->width, i / above->width};
            const auto from = static_cast<std::size_t>(i), to = static_cast<std::size_t>(at.y * lowest.width + at.x);
            if (!rect_holds(kept, at) || !above->opaque[from])
                continue;
            lowest.pixels[to] = above->pixels[from];
            lowest.opaque[to] = true;
        }
    order_probes(lowest);
    return lowest;
}

picture picture_where(const picture &whole, const std::function<bool(point)> &kept) {
    picture result = whole;
    for (int at = 0; at < whole.width * whole.height; ++at)
        if (!kept({at % whole.width, at / whole.width}))
            result.opaque[static_cast<std::size_t>(at)] = false;
    order_probes(result);
    return result;
}

picture picture_part(const picture &whole, const rect &kept) {
    return picture_where(whole, [&](point at) { return rect_holds(kept, at); });
}
