// fuzz.cpp: the table of fuzzers, and what they share.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "core/base/log.h"
#include "graphics/blit.h"
#include "graphics/frame_buffers.h"
#include "graphics/glyphs.h"
#include "graphics/prim.h"
#include "resources/pixel.h"

#include <SDL.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace {

constexpr struct {
    std::string_view name;
    void (*try_input)(fuzz_input input);
    void (*repair)(std::span<u8> input) = nullptr; // after a change
} FUZZERS[] = {
    {"archive", fuzz_archive},
    {"prefs", fuzz_prefs},
    {"scores", fuzz_scores},
    {"xpm", fuzz_xpm},
    {"text", fuzz_text},
    {"commands", fuzz_commands},
    {"sound", fuzz_sound, fuzz_repair_sound},
};
const auto *fuzzer = std::begin(FUZZERS);

constexpr int EXTRA_PIXELS = 16; // by which the screen's rows are longer than the window
constexpr std::pair<i32, i32> PICTURE_SIZES[] = {{1, 1}, {7, 3}, {64, 64}, {40, 8}, {800, 600}, {900, 700}, {5, 5}};
constexpr std::size_t PICTURES = std::size(PICTURE_SIZES);

struct screen {
    frame_buffers buffers;
    screen_format format;
    std::array<glyph, GLYPH_SLOTS> letters;
    std::array<image *, PICTURES> pictures;
};
std::array<screen, 2> screens;
screen *in_use = nullptr;

// Runs of ink and of the colour key; a seed of 0 gives a picture without ink.
image *patterned(i32 width, i32 height, u32 seed) {
    image *picture = image_create(width, height);
    for (i32 i = 0; i < width * height; ++i) {
        const bool ink = (static_cast<u32>(i) * seed >> 4) % 3 != 0;
        const rgb colour = ink ? rgb{static_cast<u8>(i), static_cast<u8>(i >> 3), 1} : colour_key;
        if (video_format.depth == pixel16::BITS)
            reinterpret_cast<u16 *>(picture->pixels)[i] = pixel16::from_rgb(colour);
        else
            reinterpret_cast<u32 *>(picture->pixels)[i] = pixel32::from_rgb(colour);
    }
    must(image_build_runs(picture));
    return picture;
}

void make_letters(screen *made) {
    for (u8 c = ' '; c <= '~'; ++c) {
        const i32 width = 3 + c % 14, height = 5 + c % 13;
        made->letters[c] = {patterned(width, height, c), patterned(width, height, c), width, height, c % 5, -1, -1, -1};
    }
}

void make_screen(screen *made, i32 bits) {
    in_use = made;
    video_format = made->format = {bits, bits / 8, bits == pixel16::BITS ? pixel16::SHIFT : pixel32::SHIFT};
    must(prim_init() == 1 && blit_init() == 1);
    SDL_Surface *surface =
        SDL_CreateRGBSurface(SDL_SWSURFACE, SCREEN_WIDTH + EXTRA_PIXELS, SCREEN_HEIGHT, bits, 0, 0, 0, 0);
    surface->w = SCREEN_WIDTH;
    must(frame_buffers_create(surface));
    made->buffers = frames;
    make_letters(made);
    u32 seed = 0;
    std::ranges::transform(PICTURE_SIZES, made->pictures.begin(),
                           [&](auto size) { return patterned(size.first, size.second, seed++); });
    std::free(std::exchange(made->pictures.back()->runs, nullptr));
    made->pictures.back()->run_count = 0;
}

} // namespace

extern "C" {
int LLVMFuzzerInitialize(int *, char ***);
int LLVMFuzzerTestOneInput(const u8 *data, std::size_t size);
std::size_t LLVMFuzzerMutate(u8 *data, std::size_t size, std::size_t max_size);
std::size_t LLVMFuzzerCustomMutator(u8 *data, std::size_t size, std::size_t max_size, unsigned seed);

int LLVMFuzzerInitialize(int *, char ***) {
    const char *wanted = std::getenv("FUZZER");
    fuzzer = std::ranges::find_if(FUZZERS, [&](auto &row) { return wanted != nullptr && row.name == wanted; });
    must(fuzzer != std::end(FUZZERS));
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    must(SDL_Init(SDL_INIT_VIDEO) == 0 && SDL_SetVideoMode(SCREEN_WIDTH, SCREEN_HEIGHT, 32, 0) != nullptr);
    log_set_mode(0);
    fuzz_folder();
    make_screen(&screens[0], pixel32::BITS);
    make_screen(&screens[1], pixel16::BITS);
    std::ranges::copy(in_use->letters, glyphs);
    return 0;
}

int LLVMFuzzerTestOneInput(const u8 *data, std::size_t size) {
    fuzzer->try_input({data, size});
    return 0;
}

std::size_t LLVMFuzzerCustomMutator(u8 *data, std::size_t size, std::size_t max_size, unsigned) {
    const std::size_t mutated = LLVMFuzzerMutate(data, size, max_size);
    if (fuzzer->repair != nullptr)
        fuzzer->repair({data, mutated});
    return mutated;
}
}

const temp_game &fuzz_folder() {
    static const temp_game folder;
    return folder;
}

void fuzz_write(const char *name, fuzz_input bytes) {
    static const std::string root = fuzz_folder().data("").string();
    std::FILE *file = std::fopen((root + name).c_str(), "wb");
    must(file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() && std::fclose(file) == 0);
}

void fuzz_use_screen(bool narrow) {
    in_use->buffers = frames; // the save slots may have grown
    std::ranges::copy(glyphs, in_use->letters.begin());
    in_use = &screens[narrow ? 1 : 0];
    frames = in_use->buffers;
    std::ranges::copy(in_use->letters, glyphs);
    video_format = in_use->format;
    must(prim_init() == 1 && blit_init() == 1);
}

std::span<image *const> fuzz_pictures() {
    return in_use->pictures;
}
