// xpm_bench.cpp: decoding sets of XPM texts beside SDL_image and libXpm.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "benches.h"

#include "pairs.h"
#include "pictures.h"
#include "resources/xpm.h"

#include <SDL_image.h>
#include <X11/xpm.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr double FIVE_TIMES = 5, NOT_SLOWER = 1, MEGABYTE = 1e6;
constexpr i32 SET_SIZE = 200; // more than any set has

using texts = std::vector<std::string>;

// A decoder that gives up early would look fast.
void require(bool decoded, const char *who) {
    if (decoded)
        return;
    std::fprintf(stderr, "benchmark: %s cannot decode a picture\n", who);
    std::exit(EXIT_FAILURE);
}

void decode_ours(const texts &set) {
    for (const std::string &text : set) {
        xpm source;
        require(xpm_open(&source, {text.data(), text.size()}), "this program");
        image *picture = image_create(source.width, source.height);
        require(xpm_read_pixels(&source, picture->pixels) && image_build_runs(picture), "this program");
        image_free(picture);
        xpm_close(&source);
    }
}

void decode_sdl(const texts &set) {
    for (const std::string &text : set) {
        SDL_Surface *picture = IMG_LoadXPM_RW(SDL_RWFromConstMem(text.data(), static_cast<int>(text.size())));
        require(picture != nullptr, "SDL_image");
        SDL_FreeSurface(picture);
    }
}

void decode_xpm(const texts &set) {
    for (const std::string &text : set) {
        XpmImage picture = {};
        XpmInfo info = {};
        require(XpmCreateXpmImageFromBuffer(const_cast<char *>(text.c_str()), &picture, &info) == XpmSuccess, "libXpm");
        XpmFreeXpmImage(&picture);
        XpmFreeXpmInfo(&info);
    }
}

texts puzzle_texts() {
    texts all;
    const std::string folder = "puzzle/factor/";
    for (const char *part : {"board/symbols/", "piece/symbols/", "board/fragments/negative/", "piece/fragments/in/",
                             "deck/symbols/", "console/", "input/keys/"})
        for (std::string &text : texts_of(folder + part, SET_SIZE))
            all.push_back(std::move(text));
    for (const char *part : {"board/base.xpm", "piece/base.xpm", "begin.xpm", "study_help.xpm"})
        all.push_back(text_of(folder + part));
    return all;
}

} // namespace

void add_xpm_benches() {
    for (const i32 depth : DEPTHS)
        for (const bool title : {true, false}) {
            const auto set = std::make_shared<texts>(title ? texts_of("title/", SET_SIZE) : puzzle_texts());
            double bytes = 0;
            for (const std::string &text : *set)
                bytes += static_cast<double>(text.size());
            const std::string figure = std::string("XPM decoding, ") + (title ? "title" : "puzzle") + " set, " +
                                       std::to_string(depth) + " bits";
            const way set_up = [=] { use_depth(depth); };
            const way ours = [=] { decode_ours(*set); };
            compare(figure, set_up, ours,
                    {{"SDL_image", {[=] { decode_sdl(*set); }}, FIVE_TIMES},
                     {"libXpm", {[=] { decode_xpm(*set); }}, NOT_SLOWER}},
                    LONG_MEASUREMENTS);
            measure(
                figure + ", rate", "MB/s", set_up, ours, [=](double s) { return bytes / s / MEGABYTE; }, NO_AIM,
                LONG_MEASUREMENTS);
        }
}
