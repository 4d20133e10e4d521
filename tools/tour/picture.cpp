// picture.cpp: decoding, laying over each other, saving.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "picture.h"
#include "robot.h"

#include <cairo.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <numeric>
#include <sstream>

static constexpr color565 KEY = to_565(0xEA, 0x00, 0x8A); // pictures are transparent where they have this colour
static constexpr int CLOSE_RB = 1, CLOSE_G = 2;           // steps of the screen's red and blue, and of its green
static constexpr std::uint64_t SCATTER = 2654435761U;     // spreads the probes; odd and far from any row length

bool color_close(color565 a, color565 b) {
    return a == b || (std::abs((a >> 11) - (b >> 11)) <= CLOSE_RB && std::abs((a & 0x1F) - (b & 0x1F)) <= CLOSE_RB &&
                      std::abs(((a >> 5) & 0x3F) - ((b >> 5) & 0x3F)) <= CLOSE_G);
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
    for (std::size_t open = text.find('"'); open != std::string::npos;) {
        const std::size_t close = text.find('"', open + 1);
        if (close == std::string::npos)
            break;
        found.push_back(text.substr(open + 1, close - open - 1));
        open = text.find('"', close + 1);
    }
    return found;
}

static color565 parse_color(const std::string &entry, std::size_t from) {
    const std::size_t hash = entry.find('#', from);
    if (hash == std::string::npos)
        return 0;
    const long value = std::strtol(entry.substr(hash + 1, 6).c_str(), nullptr, 16);
    return to_565(static_cast<int>(value >> 16 & 0xFF), static_cast<int>(value >> 8 & 0xFF),
                  static_cast<int>(value & 0xFF));
}

picture picture_decode(const std::string &name, const std::string &xpm) {
    const std::vector<std::string> lines = quoted(xpm);
    std::size_t colors = 0, symbol = 0;
    picture p;
    p.name = name;
    if (lines.empty() || !(std::istringstream(lines[0]) >> p.width >> p.height >> colors >> symbol) ||
        lines.size() < 1 + colors + static_cast<std::size_t>(p.height))
        robot_give_up("the picture " + name + " in the archive can be decoded");
    std::map<std::string, color565> palette;
    for (std::size_t i = 1; i <= colors; ++i)
        palette[lines[i].substr(0, symbol)] = parse_color(lines[i], symbol);
    for (std::size_t row = 0; row < static_cast<std::size_t>(p.height); ++row)
        for (std::size_t x = 0; x < static_cast<std::size_t>(p.width); ++x)
            p.pixels.push_back(palette[lines[1 + colors + row].substr(x * symbol, symbol)]);
    for (const color565 c : p.pixels)
        p.opaque.push_back(c != KEY);
    order_probes(p);
    return p;
}

bool picture_same(const picture &a, const picture &b) {
    return a.width == b.width && a.height == b.height && a.pixels == b.pixels;
}

bool picture_covers(const picture &p, point at) {
    return area{0, 0, p.width, p.height}.holds(at) && p.opaque[static_cast<std::size_t>(at.y * p.width + at.x)];
}

point picture_middle(const picture &p) {
    return {p.width >> 1, p.height >> 1};
}

point picture_inside(const picture &outer, const picture &inner) {
    return picture_middle(outer) - picture_middle(inner);
}

picture picture_over(const picture &lower, const picture &upper, point at) {
    picture result = lower;
    result.name = upper.name;
    for (int y = 0; y < lower.height; ++y)
        for (int x = 0; x < lower.width; ++x) {
            const point from = point{x, y} - at;
            if (!picture_covers(upper, from))
                continue;
            const auto to = static_cast<std::size_t>(y * lower.width + x);
            result.pixels[to] = upper.pixels[static_cast<std::size_t>(from.y * upper.width + from.x)];
            result.opaque[to] = true;
        }
    order_probes(result);
    return result;
}

picture picture_where(const picture &whole, const std::function<bool(point)> &kept) {
    picture result = whole;
    for (int at = 0; at < whole.width * whole.height; ++at)
        if (!kept({at % whole.width, at / whole.width}))
            result.opaque[static_cast<std::size_t>(at)] = false;
    order_probes(result);
    return result;
}

picture picture_part(const picture &whole, const area &kept) {
    return picture_where(whole, [&](point at) { return kept.holds(at); });
}

void picture_write_png(const std::string &path, const std::vector<std::uint32_t> &pixels, int width, int height) {
    cairo_surface_t *surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    unsigned char *data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    cairo_surface_flush(surface);
    for (int y = 0; y < height; ++y)
        std::copy_n(pixels.data() + y * width, width, reinterpret_cast<std::uint32_t *>(data + y * stride));
    cairo_surface_mark_dirty(surface);
    const cairo_status_t status = cairo_surface_write_to_png(surface, path.c_str());
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS)
        robot_give_up("the picture " + path + " can be written");
}
