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

#include <memory>

namespace {

constexpr double FIVE_TIMES = 5, MEGABYTE = 1e6, MEGABYTES_A_SECOND = 300;
constexpr i32 SET_SIZE = 200; // more than any set has

using texts = std::vector<std::string>;

void decode_ours(const texts &set) {
    for (const std::string &text : set) {
        xpm source;
        if (xpm_open(&source, {text.data(), text.size()})) {
            image *picture = image_create(source.width, source.height);
            if (xpm_read_pixels(&source, picture->pixels))
                image_build_runs(picture);
            image_free(picture);
        }
        xpm_close(&source);
    }
}

void decode_sdl(const texts &set) {
    for (const std::string &text : set)
        SDL_FreeSurface(IMG_LoadXPM_RW(SDL_RWFromConstMem(text.data(), static_cast<int>(text.size()))));
}

void decode_xpm(const texts &set) {
    for (const std::string &text : set) {
        XpmImage picture = {};
        XpmInfo info = {};
        if (XpmCreateXpmImageFromBuffer(const_cast<char *>(text.c_str()), &picture, &info) == XpmSuccess) {
            XpmFreeXpmImage(&picture);
            XpmFreeXpmInfo(&info);
        }
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
                     {"libXpm", {[=] { decode_xpm(*set); }}, FIVE_TIMES}},
                    LONG_MEASUREMENTS);
            measure(
                figure + ", rate", "MB/s", set_up, ours, [=](double s) { return bytes / s / MEGABYTE; },
                {true, MEGABYTES_A_SECOND}, LONG_MEASUREMENTS);
        }
}
