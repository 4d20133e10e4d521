// picture_png.cpp: PNG in and out, through libpng's one-call interface.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "picture_png.h"

#include "fail.h"

#include <bit>
#include <png.h>

static_assert(std::endian::native == std::endian::little, "bytes B, G, R, A are the number 0xAARRGGBB");

namespace {

// Releases what libpng holds, whatever the way out.
struct png_guard {
    png_image image = {};

    png_guard() { image.version = PNG_IMAGE_VERSION; }
    png_guard(const png_guard &) = delete;
    png_guard &operator=(const png_guard &) = delete;
    ~png_guard() { png_image_free(&image); }
};

} // namespace

raster picture_from_png(std::string_view bytes, const std::string &name) {
    png_guard png;
    if (png_image_begin_read_from_memory(&png.image, bytes.data(), bytes.size()) == 0)
        fail(name + ": not a PNG picture (" + png.image.message + ")");
    if (png.image.width > XPM_MAX_SIDE || png.image.height > XPM_MAX_SIDE)
        fail(name + ": the picture is larger than " + std::to_string(XPM_MAX_SIDE) + " pixels");
    png.image.format = PNG_FORMAT_BGRA;
    raster result = {static_cast<i32>(png.image.width), static_cast<i32>(png.image.height), {}};
    result.pixels.resize(std::size_t{png.image.width} * png.image.height);
    if (png_image_finish_read(&png.image, nullptr, result.pixels.data(), 0, nullptr) == 0)
        fail(name + ": the PNG picture is damaged (" + png.image.message + ")");
    return result;
}

std::string picture_to_png(const raster &source, const std::string &name) {
    png_guard png;
    png.image.width = static_cast<png_uint_32>(source.width);
    png.image.height = static_cast<png_uint_32>(source.height);
    png.image.format = PNG_FORMAT_BGRA;
    png_alloc_size_t size = 0;
    std::string bytes;
    if (png_image_write_to_memory(&png.image, nullptr, &size, 0, source.pixels.data(), 0, nullptr) != 0) {
        bytes.resize(size);
        if (png_image_write_to_memory(&png.image, bytes.data(), &size, 0, source.pixels.data(), 0, nullptr) != 0)
            return bytes;
    }
    fail(name + ": cannot be written as PNG (" + png.image.message + ")");
}
