// image.cpp: picture records, their opaque runs, and loading them from the archive.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "resources/image.h"

#include "core/base/log.h"
#include "core/base/strings.h"
#include "platform/platform.h"
#include "resources/archive.h"
#include "resources/pixel.h"
#include "resources/xpm.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>

static std::atomic<u32> changes{0};

u32 image_changes() {
    return changes.load();
}

// --- records -------------------------------------------------------------------------------------

image *image_create(i32 width, i32 height) {
    const bool possible = width >= 0 && width <= XPM_MAX_SIDE && height >= 0 && height <= XPM_MAX_SIDE;
    const i32 size = possible ? width * height * video_format.bytes_per_pixel : 0;
    auto *picture = possible ? static_cast<image *>(std::calloc(1, sizeof(image))) : nullptr;
    auto *pixels = static_cast<u8 *>(std::malloc(static_cast<std::size_t>(std::max(size, 1))));
    if (picture == nullptr || pixels == nullptr) {
        log_out_of_memory();
        std::free(picture);
        std::free(pixels);
        return nullptr;
    }
    picture->pixels = pixels;
    picture->size = size;
    picture->width = width;
    picture->height = height;
    return picture;
}

void image_free(image *picture) {
    if (picture == nullptr)
        return;
    ++changes;
    std::free(picture->pixels);
    std::free(picture->runs);
    std::free(picture);
}

// --- runs ----------------------------------------------------------------------------------------

// Gives the table this many entries, keeping what is in it; false when memory is short.
static bool resize_runs(image *picture, i32 entries) {
    auto *runs =
        static_cast<image_run *>(std::realloc(picture->runs, static_cast<std::size_t>(entries) * sizeof(image_run)));
    if (runs != nullptr)
        picture->runs = runs;
    return runs != nullptr;
}

template <class Pixel> static bool list_runs(image *picture) {
    const auto shows = [key = Pixel::from_rgb(colour_key)](auto pixel) {
        return ((pixel ^ key) & Pixel::RGB_MASK) != 0;
    };
    const i32 row_limit = picture->width / 2 + 1; // runs in a row, at most
    i32 capacity = 0;
    const auto *row = reinterpret_cast<const typename Pixel::value *>(picture->pixels);
    for (i32 y = 0; y < picture->height; ++y, row += picture->width) {
        if (picture->run_count + row_limit > capacity) {
            capacity = 2 * capacity + std::max(row_limit, picture->height);
            if (!resize_runs(picture, capacity))
                return false;
        }
        const auto *const end = row + picture->width;
        for (const auto *at = std::find_if(row, end, shows); at != end; at = std::find_if(at, end, shows)) {
            const auto *const first = at;
            at = std::find_if_not(at, end, shows);
            picture->runs[picture->run_count++] = {static_cast<u16>(first - row), static_cast<u16>(y),
                                                   static_cast<i32>(at - first)};
        }
    }
    return resize_runs(picture, std::max(picture->run_count, 1));
}

bool image_build_runs(image *picture) {
    ++changes;
    picture->run_count = 0;
    const bool listed = video_format.depth == pixel16::BITS ? list_runs<pixel16>(picture) : list_runs<pixel32>(picture);
    if (!listed) {
        log_out_of_memory();
        picture->run_count = 0;
    }
    return listed;
}

// --- loading -------------------------------------------------------------------------------------

// An entry's bytes, whole.
struct entry_text {
    char *bytes; // owned
    i32 size;
};

// Reads the entry "xpm/NAME". False, with nothing owned, when it is missing, cut or memory is short.
static bool read_entry_text(entry_text *text, const char *name) {
    char *path = nullptr;
    if (string_printf(&path, "%s/%s", "xpm", name) < 0)
        return false;
    const int descriptor = data_archive_open_entry(path);
    std::free(path);
    if (descriptor < 0)
        return false;
    text->size = data_archive_current_size();
    text->bytes = static_cast<char *>(std::malloc(static_cast<std::size_t>(std::max(text->size, 1))));
    if (text->bytes == nullptr) {
        std::fprintf(stderr, "Warning: could not allocate memory for xpm buffer\n");
        return false;
    }
    const bool whole = platform_read(descriptor, text->bytes, static_cast<std::size_t>(text->size)) == text->size;
    if (!whole)
        std::free(text->bytes);
    return whole;
}

// The picture of an opened text. Null, with *damaged set, when its rows are not as announced; null alone when
// memory is short.
static image *decode_picture(xpm *source, bool *damaged) {
    image *picture = image_create(source->width, source->height);
    *damaged = false;
    if (picture == nullptr)
        return nullptr;
    *damaged = !xpm_read_pixels(source, picture->pixels);
    if (!*damaged && image_build_runs(picture))
        return picture;
    image_free(picture);
    return nullptr;
}

image *image_load(const char *name) {
    entry_text text = {};
    image *picture = nullptr;
    bool damaged = true;
    if (read_entry_text(&text, name)) {
        xpm source;
        if (xpm_open(&source, {text.bytes, static_cast<std::size_t>(text.size)}))
            picture = decode_picture(&source, &damaged);
        xpm_close(&source);
        std::free(text.bytes);
    }
    if (picture == nullptr && damaged)
        log_error("Error loading xpm file %s\n", name);
    return picture;
}

i32 image_load_sequence(image **array, i32 count, const char *prefix) {
    char *name = nullptr;
    bool loaded = true;
    for (i32 i = 0; i < count && loaded; ++i) {
        loaded = string_printf(&name, "%s%.3i.xpm", prefix, i + 1) >= 0;
        if (loaded) {
            array[i] = image_load(name);
            loaded = array[i] != nullptr;
        }
    }
    std::free(name);
    return loaded ? 1 : -1;
}

void image_free_array(image **array, i32 count) {
    for (i32 i = 0; i < count; ++i) {
        image_free(array[i]);
        array[i] = nullptr;
    }
}
