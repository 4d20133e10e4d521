// save.cpp: from coverage and levels to the game's pixels.
//
// The game stores 5-6-5 pixels on a 16-bit screen by cutting low bits off. Colours are therefore reduced
// here, with rounding or dithering, and written expanded, so that cutting gives the same value again and a
// 32-bit screen shows the same picture.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "save.h"

#include "fail.h"
#include "files.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace art {
namespace {

std::filesystem::path output_folder;

using colour3 = std::array<double, 3>;

// The channel value nearest to 0..255 level v.
int reduce(double v, int bits) {
    const int top = (1 << bits) - 1;
    int best = std::clamp(static_cast<int>(std::lround(v * top / 255)), 0, top);
    for (const int other : {best - 1, best + 1}) {
        if (other >= 0 && other <= top &&
            std::abs(picture_expand(other, bits) - v) < std::abs(picture_expand(best, bits) - v))
            best = other;
    }
    return best;
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
    std::vector<sample> samples;
    samples.reserve(static_cast<std::size_t>(picture.width * picture.height));
    for (int y = 0; y < picture.height; ++y) {
        const std::uint32_t *row = row_of(picture, y);
        for (int x = 0; x < picture.width; ++x)
            samples.push_back(resolve(row[x], how));
    }
    return samples;
}

// Reduces to 5-6-5. With dithering the error goes on to the next pixels of the row (in alternating
// directions) and the row below; a transparent pixel swallows what it is given.
raster reduce_picture(std::vector<sample> samples, int width, int height, bool dither) {
    raster result = {width, height, std::vector<u32>(samples.size())};
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
            u32 pixel = 0xFF;
            colour3 error = {};
            for (std::size_t c = 0; c < 3; ++c) {
                const int level = picture_expand(reduce(from.level[c], bits[c]), bits[c]);
                error[c] = from.level[c] - level;
                pixel = pixel << 8 | static_cast<u32>(level);
            }
            result.pixels[static_cast<std::size_t>(y * width + x)] = pixel;
            if (dither) { // Floyd and Steinberg, 1976
                spread(x + step, y, error, 7 / 16.0);
                spread(x - step, y + 1, error, 3 / 16.0);
                spread(x, y + 1, error, 5 / 16.0);
                spread(x + step, y + 1, error, 1 / 16.0);
            }
        }
    }
    return result;
}

} // namespace

raster finished(const canvas &picture, const finish &how) {
    return reduce_picture(samples_of(picture, how), picture.width, picture.height, how.dither);
}

void set_output(const std::filesystem::path &folder) {
    output_folder = folder;
}

std::filesystem::path written_path(const std::string &entry) {
    return output_folder / entry;
}

void save(const canvas &picture, const std::string &entry, const finish &how) {
    const raster result = finished(picture, how);
    if (const std::string accident = picture_accident(result, result); !accident.empty())
        fail(entry + ": " + accident + ", the colour of transparency");
    if (!picture_fits_xpm(result))
        fail(entry + " has more colours than an XPM can hold");
    const std::filesystem::path path = written_path(entry);
    std::filesystem::create_directories(path.parent_path());
    const std::string text = picture_to_xpm(result);
    file_write(path, {{text}});
}

} // namespace art
