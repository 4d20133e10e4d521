// growth_bench.cpp: whether twice and four times the work takes no more than twice and four times as long.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "benches.h"

#include "graphics/dirty.h"
#include "graphics/draw_ops.h"
#include "graphics/draw_play.h"
#include "graphics/render.h"
#include "pairs.h"
#include "pictures.h"
#include "puzzles/board.h"
#include "resources/archive.h"
#include "support/archive_builder.h"
#include "timing.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>

namespace {

constexpr double SLACK = 1.15; // of noise
constexpr i32 COMMANDS = 200;
constexpr i32 PICTURES = 200; // more than there are
constexpr i32 FACTORS = 8;    // the puzzle type with the most pieces

// Commands of pieces in rows, as a screen full of them is recorded.
std::vector<u8> list_of(i32 commands, const image *picture) {
    std::vector<u8> list;
    for (i32 i = 0; i < commands; ++i) {
        const image_operands op = {picture, i * 29 % 750, i * 17 % 560};
        const auto *bytes = reinterpret_cast<const u8 *>(&op);
        list.push_back(DRAW_IMAGE);
        list.insert(list.end(), bytes, bytes + operands_size<image_operands>());
    }
    return list;
}

// A game folder whose archive holds the label pictures of a puzzle so many times.
struct picture_folder {
    temp_game folder;
    i32 pictures = 0;
    explicit picture_folder(i32 times) {
        archive_builder archive;
        for (i32 i = 0; i < times; ++i)
            for (const std::string &text : texts_of("puzzle/factor/piece/symbols/", PICTURES))
                archive.add("xpm/" + std::to_string(pictures++), text);
        archive.write(folder.data("data.dar"));
    }
};

struct picture_folders {
    const std::filesystem::path home = std::filesystem::current_path();
    std::map<i32, picture_folder> of;
    picture_folders() {
        for (const i32 times : {1, 2, 4})
            of.try_emplace(times, times);
        std::filesystem::current_path(home);
    }
};

void open_archive() {
    if (data_archive_open() < 0)
        std::exit(EXIT_FAILURE);
}

// What start-up does with the archive. The program's own one is open again afterwards.
void start_with(const picture_folders &folders, i32 times) {
    const picture_folder &from = folders.of.at(times);
    std::filesystem::current_path(from.folder.root / "bin");
    data_archive_close();
    open_archive();
    std::vector<image *> loaded;
    for (i32 i = 0; i < from.pictures; ++i)
        loaded.push_back(picture_of(std::to_string(i)));
    for (image *picture : loaded)
        image_free(picture);
    data_archive_close();
    std::filesystem::current_path(folders.home);
    open_archive();
}

void load_boards(i32 count) {
    std::vector<board *> boards;
    for (i32 i = 0; i < count; ++i) {
        boards.push_back(board_create());
        if (board_load(boards.back(), FACTORS) < 0)
            std::exit(EXIT_FAILURE);
    }
    for (board *b : boards)
        board_destroy(b);
}

// One row: the time of `factor` times the work over that of the work, as a part of the factor.
void add(const std::string &figure, const way &set_up, aim wanted, const std::function<void(i32)> &work) {
    for (const i32 factor : {2, 4}) {
        const auto once = std::make_shared<double>(0);
        measure(
            figure + ", " + std::to_string(factor) + " times", "of proportional", set_up,
            [=] {
                *once = seconds_of([&] { work(1); });
                work(factor);
            },
            [=](double s) { return (s - *once) / *once / factor; }, wanted, LONG_MEASUREMENTS * 3);
    }
}

} // namespace

void add_growth_benches() {
    constexpr aim in_proportion = {false, SLACK};
    const auto picture = std::make_shared<image *>(nullptr);
    const way set_up = [=] {
        use_depth(DEPTHS[0]);
        *picture = picture_of("puzzle/factor/piece/base.xpm");
    };
    const auto folders = std::make_shared<std::unique_ptr<picture_folders>>();
    const way with_folders = [=] {
        set_up();
        *folders = std::make_unique<picture_folders>();
    };
    add("growth: opening an archive, loading its pictures", with_folders, in_proportion,
        [=](i32 times) { start_with(**folders, times); });
    add("growth: loading boards", set_up, in_proportion, load_boards);
    // Each changed rectangle is compared with all others; no screen of the game has so many.
    add("growth: playing and showing commands", set_up, NO_AIM, [=](i32 factor) {
        const std::vector<u8> list = list_of(COMMANDS * factor, *picture);
        {
            const screen_access access;
            draw_list_play(list);
        }
        dirty_flush();
    });
}
