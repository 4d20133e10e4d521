// xpm.cpp: writing a canvas as the game's XPM, and reading such a picture back.
//
// The game stores 5-6-5 pixels on a 16-bit screen by cutting low bits off. Colours are therefore reduced
// here, with rounding or dithering, and written expanded, so that cutting gives the same value again and a
// 32-bit screen shows the same picture.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "canvas.h"
#include "fail.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <vector>

namespace art {
namespace {

constexpr std::string_view ALPHABET =
    " .+@#$%&*=-;>,')!~{]^/(_:<[}|1234567890abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ`";
static_assert(ALPHABET.size() == 92);

constexpr std::uint32_t KEY = 0xEA008A;
constexpr std::uint16_t KEY_565 = ((KEY >> 19) << 11) | (((KEY >> 10) & 0x3F) << 5) | ((KEY & 0xFF) >> 3);
constexpr int TRANSPARENT = -1; // in a reduced picture; other values are 5-6-5 pixels

std::string output_directory;

using colour3 = std::array<double, 3>;

// The 0..255 value that the game shows for a 5- or 6-bit channel.
int expand(int value, int bits) {
    return bits == 5 ? (value << 3) | (value >> 2) : (value << 2) | (value >> 4);
}

// The channel value nearest to 0..255 level v.
int reduce(double v, int bits) {
    const int top = (1 << bits) - 1;
    int best = std::clamp(static_cast<int>(std::lround(v * top / 255)), 0, top);
    for (const int other : {best - 1, best + 1}) {
        if (other >= 0 && other <= top && std::abs(expand(other, bits) - v) < std::abs(expand(best, bits) - v))
            best = other;
    }
    return best;
}

std::uint32_t expand_pixel(int pixel) {
    return static_cast<std::uint32_t>(expand(pixel >> 11, 5) << 16 | expand((pixel >> 5) & 0x3F, 6) << 8 |
                                      expand(pixel & 0x1F, 5));
}

// A pixel before reduction: its sRGB levels 0..255 and whether it is opaque.
struct sample {
    colour3 level = {};
    bool opaque = false;
};

// Resolves coverage: an edge pixel becomes opaque or the key, alone or blended onto the known ground.
sample resolve(std::uint32_t argb, const finish &how) {
    const double alpha = (argb >> 24) / 255.0;
    if (alpha <= 0 || alpha < how.threshold)
        return {};
    sample s = {.opaque = true};
    const colour3 premultiplied = {static_cast<double>((argb >> 16) & 0xFF), static_cast<double>((argb >> 8) & 0xFF),
                                   static_cast<double>(argb & 0xFF)};
    for (std::size_t c = 0; c < 3; ++c) {
        if (how.ground) {
            const colour3 ground = {how.ground->r, how.ground->g, how.ground->b};
            s.level[c] = premultiplied[c] + (1 - alpha) * ground[c] * 255;
        } else {
            s.level[c] = std::min(255.0, premultiplied[c] / alpha);
        }
    }
    return s;
}

std::vector<sample> samples_of(const canvas &picture, const finish &how) {
    cairo_surface_flush(picture.surface.get());
    const unsigned char *data = cairo_image_surface_get_data(picture.surface.get());
    const int stride = cairo_image_surface_get_stride(picture.surface.get());
    std::vector<sample> samples;
    samples.reserve(static_cast<std::size_t>(picture.width * picture.height));
    for (int y = 0; y < picture.height; ++y) {
        const auto *row = reinterpret_cast<const std::uint32_t *>(data + y * stride);
        for (int x = 0; x < picture.width; ++x)
            samples.push_back(resolve(row[x], how));
    }
    return samples;
}

// Reduces to 5-6-5. With dithering the error goes on to the next pixels of the row (in alternating
// directions) and the row below; a transparent pixel swallows what it is given.
std::vector<int> reduce_picture(std::vector<sample> samples, int width, int height, bool dither) {
    std::vector<int> pixels(samples.size(), TRANSPARENT);
    const auto spread = [&](int x, int y, const colour3 &error, double share) {
        if (x < 0 || x >= width || y >= height)
            return;
        sample &to = samples[static_cast<std::size_t>(y * width + x)];
        for (std::size_t c = 0; c < 3; ++c)
            to.level[c] += error[c] * share;
    };
    constexpr std::array<int, 3> bits = {5, 6, 5};
    for (int y = 0; y < height; ++y) {
        const int step = y % 2 == 0 ? 1 : -1;
        for (int n = 0, x = step > 0 ? 0 : width - 1; n < width; ++n, x += step) {
            const sample &from = samples[static_cast<std::size_t>(y * width + x)];
            if (!from.opaque)
                continue;
            int pixel = 0;
            colour3 error = {};
            for (std::size_t c = 0; c < 3; ++c) {
                const int value = reduce(from.level[c], bits[c]);
                error[c] = from.level[c] - expand(value, bits[c]);
                pixel = (pixel << bits[c]) | value;
            }
            pixels[static_cast<std::size_t>(y * width + x)] = pixel;
            if (dither) { // Floyd and Steinberg, 1976
                spread(x + step, y, error, 7 / 16.0);
                spread(x - step, y + 1, error, 3 / 16.0);
                spread(x, y + 1, error, 5 / 16.0);
                spread(x + step, y + 1, error, 1 / 16.0);
            }
        }
    }
    return pixels;
}

// Colours in the order of their first pixel, so that the same picture always gives the same file.
std::map<int, std::size_t> number_colours(const std::vector<int> &pixels, std::vector<int> &order) {
    std::map<int, std::size_t> numbers;
    for (const int pixel : pixels) {
        if (numbers.emplace(pixel, order.size()).second)
            order.push_back(pixel);
    }
    return numbers;
}

std::string symbol(std::size_t number, int chars) {
    std::string s;
    if (chars == 2)
        s += ALPHABET[number / ALPHABET.size()];
    return s + ALPHABET[number % ALPHABET.size()];
}

std::string format_xpm(const std::vector<int> &pixels, int width, int height, const std::string &name) {
    std::vector<int> order;
    const std::map<int, std::size_t> numbers = number_colours(pixels, order);
    if (order.size() > ALPHABET.size() * ALPHABET.size())
        fail(name + " has " + std::to_string(order.size()) + " colours, more than an XPM can hold");
    const int chars = order.size() <= ALPHABET.size() ? 1 : 2;

    std::string out = "/* XPM */\nstatic char *picture[] = {\n";
    out += '"' + std::to_string(width) + ' ' + std::to_string(height) + ' ' + std::to_string(order.size()) + ' ' +
           std::to_string(chars) + "\",\n";
    for (std::size_t i = 0; i < order.size(); ++i) {
        std::array<char, 16> colour = {};
        std::snprintf(colour.data(), colour.size(), " c #%06X\",\n",
                      order[i] == TRANSPARENT ? KEY : expand_pixel(order[i]));
        out += '"' + symbol(i, chars) + colour.data();
    }
    for (int y = 0; y < height; ++y) {
        out += '"';
        for (int x = 0; x < width; ++x)
            out += symbol(numbers.at(pixels[static_cast<std::size_t>(y * width + x)]), chars);
        out += y + 1 < height ? "\",\n" : "\"};\n";
    }
    return out;
}

std::filesystem::path path_of(const std::string &name) {
    return std::filesystem::path(output_directory) / "xpm" / (name + ".xpm");
}

// The text between the next pair of double quotes.
std::string next_string(const std::string &content, std::size_t &at, const std::string &name) {
    const std::size_t open = content.find('"', at);
    const std::size_t close = open == std::string::npos ? open : content.find('"', open + 1);
    if (close == std::string::npos)
        fail(name + ": the picture ends too early");
    at = close + 1;
    return content.substr(open + 1, close - open - 1);
}

} // namespace

void set_output(const std::string &directory) {
    output_directory = directory;
}

std::string numbered(std::string_view prefix, int k) {
    std::array<char, 16> digits = {};
    std::snprintf(digits.data(), digits.size(), "%.3d", k);
    return std::string(prefix) + digits.data();
}

void save(const canvas &picture, const std::string &name, const finish &how) {
    const std::vector<int> pixels = reduce_picture(samples_of(picture, how), picture.width, picture.height, how.dither);
    if (const auto bad = std::find(pixels.begin(), pixels.end(), KEY_565); bad != pixels.end()) {
        const auto at = static_cast<int>(bad - pixels.begin());
        fail(name + ": the opaque pixel at (" + std::to_string(at % picture.width) + ", " +
             std::to_string(at / picture.width) + ") has the colour of transparency");
    }
    const std::filesystem::path path = path_of(name);
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << format_xpm(pixels, picture.width, picture.height, name);
    if (!file.flush())
        fail("cannot write " + path.string());
}

canvas load(const std::string &name) {
    std::ifstream file(path_of(name), std::ios::binary);
    if (!file)
        fail("cannot read " + path_of(name).string());
    std::stringstream buffer;
    buffer << file.rdbuf();
    const std::string content = buffer.str();

    std::size_t at = 0;
    int width = 0, height = 0, colours = 0, chars = 0;
    std::istringstream values(next_string(content, at, name));
    if (!(values >> width >> height >> colours >> chars) || chars < 1)
        fail(name + " has no proper head");
    const auto count = static_cast<std::size_t>(chars);
    std::map<std::string, std::uint32_t> palette;
    for (int i = 0; i < colours; ++i) {
        const std::string line = next_string(content, at, name);
        const auto value =
            static_cast<std::uint32_t>(std::strtoul(line.substr(line.find('#', count) + 1).c_str(), nullptr, 16));
        palette[line.substr(0, count)] = value == KEY ? 0 : 0xFF000000 | value;
    }
    canvas picture(width, height);
    unsigned char *data = cairo_image_surface_get_data(picture.surface.get());
    const int stride = cairo_image_surface_get_stride(picture.surface.get());
    for (int y = 0; y < height; ++y) {
        const std::string line = next_string(content, at, name);
        if (line.size() != static_cast<std::size_t>(width) * count)
            fail(name + ": row " + std::to_string(y) + " has a wrong length");
        auto *row = reinterpret_cast<std::uint32_t *>(data + y * stride);
        for (int x = 0; x < width; ++x)
            row[x] = palette[line.substr(static_cast<std::size_t>(x) * count, count)];
    }
    cairo_surface_mark_dirty(picture.surface.get());
    return picture;
}

} // namespace art
