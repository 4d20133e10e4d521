// image.cpp: picture records, their run tables, and loading them from the archive.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "resources/image.h"

#include "core/base/log.h"
#include "core/base/strings.h"
#include "resources/archive.h"
#include "resources/file_reader.h"
#include "resources/pixel.h"
#include "resources/xpm.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

static constexpr i32 RUN_STEP = 1024; // entries the run table grows by

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

// --- run table -----------------------------------------------------------------------------------

// A run table in the making.
struct run_table {
    i32 *entries; // owned
    i32 count;
    i32 capacity;
    i32 spans; // opaque runs among the entries
};

// Makes room for this many more entries; false when memory is short.
static bool reserve_runs(run_table *table, i32 more) {
    if (more <= table->capacity - table->count)
        return true;
    const i32 capacity = (table->count + more + RUN_STEP - 1) / RUN_STEP * RUN_STEP;
    void *entries = std::realloc(table->entries, static_cast<std::size_t>(capacity) * sizeof(i32));
    if (entries == nullptr)
        return false;
    table->entries = static_cast<i32 *>(entries);
    table->capacity = capacity;
    return true;
}

// Which of BLOCK pixels are transparent, one bit a pixel, the first the lowest. Through the bits that carry colour.
static constexpr i32 BLOCK = 16;
template <class P> static u32 transparent_block(const typename P::value *pixels, u32 key) {
#ifdef __SSE2__
    const bool narrow = P::BITS == pixel16::BITS;
    const __m128i keys = narrow ? _mm_set1_epi16(static_cast<i16>(key)) : _mm_set1_epi32(static_cast<i32>(key));
    const __m128i rgb_bits = _mm_set1_epi32(static_cast<i32>(P::RGB_MASK));
    const auto equal = [=](i32 lane) {
        const __m128i some = _mm_loadu_si128(reinterpret_cast<const __m128i *>(pixels) + lane);
        return narrow ? _mm_cmpeq_epi16(some, keys) : _mm_cmpeq_epi32(_mm_and_si128(some, rgb_bits), keys);
    };
    if (narrow)
        return static_cast<u32>(_mm_movemask_epi8(_mm_packs_epi16(equal(0), equal(1))));
    return static_cast<u32>(
        _mm_movemask_epi8(_mm_packs_epi16(_mm_packs_epi32(equal(0), equal(1)), _mm_packs_epi32(equal(2), equal(3)))));
#else
    u32 bits = 0;
    for (i32 i = 0; i < BLOCK; ++i)
        bits |= static_cast<u32>(((pixels[i] ^ key) & P::RGB_MASK) == 0) << i;
    return bits;
#endif
}

// The same of up to 64 pixels of a row from the x-th on. The last block reaches back over pixels before it.
template <class P> static u64 transparent_pixels(const typename P::value *row, i32 x, i32 count, u32 key) {
    u64 bits = 0;
    i32 i = 0;
    if (x + count < BLOCK) {
        for (; i < count; ++i)
            bits |= static_cast<u64>(((row[x + i] ^ key) & P::RGB_MASK) == 0) << i;
        return bits;
    }
    for (; i + BLOCK <= count; i += BLOCK)
        bits |= u64{transparent_block<P>(row + x + i, key)} << i;
    const u64 last = transparent_block<P>(row + x + count - BLOCK, key);
    return bits | (count < BLOCK ? last >> (BLOCK - count) : last << (count - BLOCK));
}

// Appends a row's runs, beginning with a transparent one. There must be room for width + 2 entries.
template <class P> static void add_row(run_table *table, const typename P::value *row, i32 width, u32 key) {
    constexpr i32 AT_ONCE = 64;
    const i32 first = table->count;
    u64 last = 1; // the pixel before: transparent
    i32 start = 0;
    for (i32 x = 0; x < width; x += AT_ONCE) {
        const i32 count = std::min(width - x, AT_ONCE);
        const u64 transparent = transparent_pixels<P>(row, x, count, key);
        u64 ends = (transparent ^ (transparent << 1 | last)) & (~u64{0} >> (AT_ONCE - count));
        for (; ends != 0; ends &= ends - 1) {
            const i32 end = x + std::countr_zero(ends);
            table->entries[table->count++] = (end - start) << P::SHIFT;
            start = end;
        }
        last = transparent >> (AT_ONCE - 1);
    }
    table->entries[table->count++] = (width - start) << P::SHIFT;
    table->spans += (table->count - first) / 2;
    table->entries[table->count++] = RUN_END_ROW;
}

// Appends once more the row that begins at the entry `first`, which holds so many opaque runs.
static void repeat_row(run_table *table, i32 first, i32 spans) {
    const i32 length = table->count - first;
    std::copy_n(table->entries + first, length, table->entries + table->count);
    table->count += length;
    table->spans += spans;
}

// Many rows are like the one above, as in frames and plain boards, and so are their runs.
template <class P> static bool build_table(run_table *table, const image *picture) {
    constexpr i32 row_extra = 2; // a leading run of nothing, the end of the row
    const u32 key_pixel = P::from_rgb(color_key);
    const std::size_t row_bytes = static_cast<std::size_t>(picture->width) << P::SHIFT;
    const auto *row = reinterpret_cast<const typename P::value *>(picture->pixels);
    i32 first = 0, spans = 0; // of the row above
    for (i32 y = 0; y < picture->height; ++y, row += picture->width) {
        if (!reserve_runs(table, picture->width + row_extra))
            return false;
        const i32 begin = table->count, spans_before = table->spans;
        if (y > 0 && std::memcmp(row, row - picture->width, row_bytes) == 0)
            repeat_row(table, first, spans);
        else
            add_row<P>(table, row, picture->width, key_pixel);
        first = begin;
        spans = table->spans - spans_before;
    }
    if (!reserve_runs(table, 1))
        return false;
    table->entries[table->count++] = RUN_END_PICTURE;
    return true;
}

// Writes the opaque runs down one after the other, for drawing a picture that shows whole.
static void list_spans(image *picture, image_span *spans) {
    const i32 shift = video_format.shift;
    i32 count = 0;
    const i32 *entry = picture->runs;
    for (u16 y = 0; *entry != RUN_END_PICTURE; ++y, ++entry) {
        for (i32 x = 0, opaque = 0; *entry >= 0; ++entry, opaque ^= 1) {
            const i32 length = *entry >> shift;
            if (opaque != 0)
                spans[count++] = {static_cast<u16>(x), y, length};
            x += length;
        }
    }
    picture->spans = spans;
    picture->span_count = count;
}

bool image_build_runs(image *picture) {
    ++changes;
    std::free(picture->runs);
    picture->runs = nullptr;
    picture->run_count = 0;
    picture->spans = nullptr;
    picture->span_count = 0;
    run_table table = {};
    const bool narrow = video_format.depth == pixel16::BITS;
    void *exact = nullptr;
    if (narrow ? build_table<pixel16>(&table, picture) : build_table<pixel32>(&table, picture)) {
        const auto runs = static_cast<std::size_t>(table.count), spans = static_cast<std::size_t>(table.spans);
        exact = std::realloc(table.entries, runs * sizeof(i32) + spans * sizeof(image_span));
    }
    if (exact == nullptr) {
        log_out_of_memory();
        std::free(table.entries);
        return false;
    }
    picture->runs = static_cast<i32 *>(exact);
    picture->run_count = table.count;
    list_spans(picture, reinterpret_cast<image_span *>(picture->runs + table.count));
    return true;
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
    file_reader *reader = file_reader_create_bounded(descriptor, text->size);
    if (text->bytes == nullptr)
        std::fprintf(stderr, "Warning: could not allocate memory for xpm buffer\n");
    bool whole = false;
    if (text->bytes != nullptr && reader != nullptr) {
        file_reader_read(reader, text->bytes, text->size);
        whole = !reader->cut;
    }
    file_reader_destroy(reader);
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
