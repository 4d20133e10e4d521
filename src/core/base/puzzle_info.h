// puzzle_info.h: titles and master times of the eleven puzzle types.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <algorithm>

inline constexpr i32 PUZZLE_COUNT = 11;
inline constexpr i32 MASTER_TIME_COUNT = 4; // three Master places and the limit of a master's score

struct puzzle_info {
    const char *title;
    i32 master_times[MASTER_TIME_COUNT]; // seconds, rising
};

inline constexpr puzzle_info PUZZLE_INFOS[PUZZLE_COUNT] = {
    {"Counting by 1's - 5's", {150, 240, 330, 360}},
    {"Multiplication 1 - 5", {165, 270, 375, 390}},
    {"Counting by 6's - 10's", {150, 240, 330, 360}},
    {"Multiplication 6 - 10", {165, 270, 375, 390}},
    {"Division by 1 - 5", {150, 225, 320, 360}},
    {"Division by 6 - 10", {150, 225, 320, 360}},
    {"Consumer Math", {165, 260, 410, 470}},
    {"Simplifying Fractions", {190, 260, 345, 405}},
    {"Factors", {420, 585, 750, 810}},
    {"Adding Money", {150, 240, 330, 390}},
    {"Time", {225, 270, 330, 360}},
};

constexpr bool puzzle_times_rise(const puzzle_info &info) {
    return std::ranges::is_sorted(info.master_times);
}
static_assert(std::ranges::all_of(PUZZLE_INFOS, puzzle_times_rise));

// Of type 0..10; k 0..3.
constexpr const char *puzzle_title(i32 type) {
    return PUZZLE_INFOS[type].title;
}
constexpr i32 puzzle_master_time(i32 type, i32 k) {
    return PUZZLE_INFOS[type].master_times[k];
}
// Who needs no longer than the longest of them has mastered the puzzle.
constexpr i32 puzzle_mastered_time(i32 type) {
    return puzzle_master_time(type, MASTER_TIME_COUNT - 1);
}

// The order in which the title and splash screens list the types.
inline constexpr i32 PUZZLE_LIST_ORDER[PUZZLE_COUNT] = {0, 10, 2, 9, 1, 3, 4, 5, 6, 7, 8};

// Whether each type is listed.
constexpr bool puzzle_list_is_complete() {
    u32 listed = 0;
    for (const i32 type : PUZZLE_LIST_ORDER)
        listed |= 1u << type;
    return listed == (1u << PUZZLE_COUNT) - 1;
}
static_assert(puzzle_list_is_complete());
