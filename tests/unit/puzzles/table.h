// table.h: a puzzle on the table: a board that was loaded from an archive of plain pictures and started.
//
// No video, no sound device: sounds that are asked for are written down, keys are scripted, a frame takes 20 ms.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "puzzles/board.h"
#include "sprites/sprite.h"
#include "support/archive_builder.h"
#include "support/fake_sdl.h"
#include "support/recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

struct puzzle_table {
    fake_scope fakes;
    temp_game game;
    app_state state{};
    board *b;

    explicit puzzle_table(i32 type);
    ~puzzle_table();
    puzzle_table(const puzzle_table &) = delete;
    puzzle_table &operator=(const puzzle_table &) = delete;

    lines picture_files(i32 type) const;                         // what the type needs; of a numbered series the last
    void open(i32 type, const std::string &left_out = "") const; // an archive of these in place of the one before
    void frame(int count = 1) const;
    int frames_while(u32 state_flag) const;               // until it is clear, at most 1000
    void press_key(i32 key) const;                        // for one frame
    void type_keys(const std::vector<i32> &values) const; // on the keypad

    sprite *piece(i32 label) const;                            // the piece with this label
    void put_on_cell(sprite *s, i32 dx = 0, i32 dy = 0) const; // so far from the place in which it is fixed
};

inline constexpr i32 KEY_DELETE = 10, KEY_ANSWER = 11; // values of keypad keys

inline bool was_played(i32 number) {
    return std::count(sounds_played.begin(), sounds_played.end(), number) > 0;
}
inline bool has(const sprite *s, u32 flags) {
    return (s->flags & flags) == flags;
}
inline bool has_any(const sprite *s, u32 flags) {
    return (s->flags & flags) != 0;
}
