// dirty_test.cpp: how changed rectangles are cut, dropped and merged.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/log.h"
#include "graphics/dirty.h"
#include "graphics/render.h"
#include "support/fake_sdl.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string text_of(const std::vector<rect> &rects) {
    std::string text;
    for (const auto &[x, y, w, h] : rects)
        for (const i32 n : {x, y, w, h})
            text += std::to_string(n) + ",";
    return text;
}

std::vector<rect> stored() {
    std::vector<rect> rects;
    for (const SDL_Rect &r : dirty_rects())
        rects.push_back({r.x, r.y, r.w, r.h});
    return rects;
}

TEST(dirty, rectangles_are_cut_and_merged) {
    const struct {
        const char *what;
        std::vector<rect> added, left;
    } ROWS[] = {
        {"off the right", {{800, 0, 5, 5}}, {}},
        {"off the bottom", {{0, 600, 5, 5}}, {}},
        {"off the left", {{-6, 0, 5, 5}}, {}},
        {"touching the left from outside", {{-5, 0, 5, 5}}, {}},
        {"without an area", {{10, 10, 0, 5}, {10, 10, 5, -3}}, {}},
        {"over the corners", {{-3, -4, 10, 10}, {795, 590, 50, 50}}, {{0, 0, 7, 6}, {795, 590, 5, 10}}},
        {"inside an earlier one", {{10, 10, 50, 50}, {20, 20, 5, 5}, {10, 10, 50, 50}}, {{10, 10, 50, 50}}},
        {"around earlier ones",
         {{10, 10, 5, 5}, {200, 200, 5, 5}, {20, 20, 5, 5}, {30, 30, 5, 5}, {5, 5, 90, 90}},
         {{200, 200, 5, 5}, {5, 5, 90, 90}}},
        {"off by 10", {{100, 100, 40, 40}, {110, 90, 50, 50}}, {{100, 90, 60, 50}}},
        {"off by 11 across", {{100, 100, 40, 40}, {111, 100, 40, 40}}, {{100, 100, 40, 40}, {111, 100, 40, 40}}},
        {"off by 11 in height", {{100, 100, 40, 40}, {101, 101, 40, 51}}, {{100, 100, 40, 40}, {101, 101, 40, 51}}},
        {"close but apart", {{100, 100, 5, 5}, {105, 100, 5, 5}}, {{100, 100, 5, 5}, {105, 100, 5, 5}}},
        {"one pixel of overlap", {{100, 100, 5, 5}, {104, 104, 5, 5}}, {{100, 100, 9, 9}}},
        {"a union swallows a later one",
         {{100, 100, 40, 40}, {130, 100, 11, 11}, {108, 100, 40, 40}},
         {{100, 100, 48, 40}}},
        {"a union merges on",
         {{111, 100, 40, 40}, {100, 100, 40, 40}, {105, 100, 40, 40}},
         {{105, 100, 46, 40}, {100, 100, 51, 40}}},
    };
    for (const auto &row : ROWS) {
        dirty_free();
        for (const auto &[x, y, w, h] : row.added)
            dirty_add(x, y, w, h);
        EXPECT_EQ(text_of(stored()), text_of(row.left)) << row.what;
    }
    dirty_free();
}

TEST(dirty, a_rectangle_without_memory_is_dropped) {
    const fake_scope fakes;
    log_set_mode(0);
    dirty_add(1, 1, 5, 5);
    fake_fail_allocation(1);
    dirty_add(100, 1, 5, 5);
    dirty_add(200, 1, 5, 5);
    EXPECT_EQ(text_of(stored()), text_of({{1, 1, 5, 5}, {200, 1, 5, 5}}));
    dirty_free();
    log_set_mode(LOG_STDERR);
}

} // namespace
