// growth_bench.cpp: whether twice and four times the work takes no more than twice and four times as long.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "benches.h"

#include "core/hash.h"
#include "graphics/dirty.h"
#include "graphics/draw_ops.h"
#include "graphics/draw_play.h"
#include "graphics/render.h"
#include "pairs.h"
#include "pictures.h"
#include "timing.h"

#include <memory>

namespace {

constexpr double SLACK = 1.15; // of noise
constexpr i32 COMMANDS = 200, PICTURES = 20;

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

// One row: the time of `factor` times the work over that of the work, as a part of the factor.
void add(const std::string &figure, const way &set_up, const std::function<void(i32)> &work) {
    for (const i32 factor : {2, 4}) {
        const auto once = std::make_shared<double>(0);
        measure(
            figure + ", " + std::to_string(factor) + " times", "of proportional", set_up,
            [=] {
                *once = seconds_of([&] { work(1); });
                work(factor);
            },
            [=](double s) { return (s - *once) / *once / factor; }, {false, SLACK}, LONG_MEASUREMENTS * 3);
    }
}

} // namespace

void add_growth_benches() {
    const auto picture = std::make_shared<image *>(nullptr);
    const way set_up = [=] {
        use_depth(DEPTHS[0]);
        *picture = picture_of("puzzle/factor/piece/base.xpm");
    };
    add("growth: loading pictures", set_up, [](i32 factor) {
        for (i32 i = 0; i < PICTURES * factor; ++i)
            image_free(image_load("puzzle/factor/deck/base.xpm"));
    });
    add("growth: playing and showing commands", set_up, [=](i32 factor) {
        const std::vector<u8> list = list_of(COMMANDS * factor, *picture);
        {
            const screen_access access;
            draw_list_play(list);
        }
        dirty_flush();
    });
}
