// table.cpp: the plain pictures, and setting the table.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "unit/puzzles/table.h"

#include "core/help.h"
#include "core/log.h"
#include "core/settings.h"
#include "graphics/blit.h"
#include "graphics/draw_queue.h"
#include "graphics/pixel.h"
#include "input/input.h"
#include "puzzles/background.h"
#include "puzzles/puzzle_type.h"
#include "resources/archive.h"
#include "sound/sound.h"
#include "sprites/effect.h"

#include <cstdio>
#include <functional>

namespace {

constexpr u32 DECK = BOARD_HAS_DECK, KEYPAD = BOARD_HAS_KEYPAD, TEXT = BOARD_CARD_TEXT, BOX = BOARD_HAS_BOX;

struct file_row {
    std::string name; // a series ends in a slash
    int count;
    u32 needs; // any of these features; 0: always
    int w, h;  // pixels; w 0: the cell's size and h more
};

// Visits each entry with its size.
void for_each_picture(i32 type, const std::function<void(const std::string &, int w, int h)> &visit) {
    const puzzle_layout &l = PUZZLE_LAYOUTS[type];
    const std::string dir = std::string(l.dir) + "/";
    const file_row ROWS[] = {
        {dir + "board/base", 1, 0, 300, 200},
        {dir + "piece/base", 1, 0, 0, 0},
        {dir + "begin", 1, 0, 40, 12},
        {dir + "study_help", 1, 0, 40, 12},
        {dir + "input/keys/", 6, DECK | KEYPAD, 40, 36},
        {dir + "deck/symbols/", 11, TEXT, 6, 10},
        {dir + "deck/base", 1, DECK, 0, 8},
        {dir + "deck/next", 1, DECK, 4, 4},
        {dir + "deck/over", 1, DECK, 0, 8},
        {dir + "box/base", 1, BOX, 40, 30},
        {dir + "input/base", 1, KEYPAD, 128, 160},
        {dir + "input/symbols/keys/", 12, KEYPAD, 10, 10},
        {dir + "input/symbols/entered/", 10, KEYPAD, 20, 28},
        {dir + "piece/fragments/out/", 4, 0, 7, 9},
        {dir + "piece/fragments/in/", 4, 0, 6, 8},
        {dir + "board/fragments/negative/", 4, 0, 8, 5},
        {dir + "board/fragments/positive/", 4, 0, 10, 4},
        {dir + "board/symbols/", l.symbols, 0, 12, 14},
        {dir + "piece/symbols/", l.labels, 0, 20, 10},
        {dir + "board/pieces/", l.cell_pictures, 0, 0, 2},
        {dir + "console/", 6, 0, 65, 27},
        {"bg/001", 1, 0, 80, 60},
        {"field/flare/", 5, 0, 8, 8},
        {"field/burn/small/", 18, 0, 6, 6},
        {"field/burn/large/", 18, 0, 10, 10},
        {"field/confetti/", 60, 0, 2, 2},
    };
    for (const auto &[name, count, needs, w, h] : ROWS) {
        if (needs != 0 && (l.features & needs) == 0)
            continue;
        for (int i = 1; i <= count; ++i) {
            char number[16] = "";
            if (name.back() == '/')
                std::snprintf(number, sizeof number, "%.3i", i);
            visit("xpm/" + name + number + ".xpm", w > 0 ? w : l.cell_w + h, w > 0 ? h : l.cell_h + h);
        }
    }
}

} // namespace

// In place of the sound module's, which the test program then does without.
void sound_play(i32 number) {
    sounds_played.push_back(number);
}

std::vector<std::string> picture_files(i32 type) {
    std::vector<std::string> files;
    for_each_picture(type, [&](const std::string &file, int, int) {
        if (file.find("field/") == file.npos)
            files.push_back(file);
    });
    return files;
}

archive_builder picture_archive(i32 type, const std::string &left_out) {
    archive_builder archive;
    for_each_picture(type, [&](const std::string &file, int w, int h) {
        const std::vector<std::string> rows(static_cast<std::size_t>(h), std::string(static_cast<std::size_t>(w), 'a'));
        if (file != left_out)
            archive.add(file, make_xpm({"a c #808080"}, rows));
    });
    return archive;
}

puzzle_table::puzzle_table(i32 type) {
    log_set_mode(0);
    fake_keys_up();
    fake_time_start(1000);
    video_format = {pixel32::BITS, sizeof(pixel32::value), pixel32::SHIFT};
    board_reset_background();
    open(picture_archive(type));
    EXPECT_TRUE(blit_init() == 1 && input_init() == 1 && help_init() == 1 && effects_init() == 1);
    state.board = b = board_create();
    state.puzzle = type;
    app = &state;
    EXPECT_EQ(board_prepare(&state), 1);
    EXPECT_EQ(board_start(b), 1);
    sounds_played.clear();
}

puzzle_table::~puzzle_table() {
    board_destroy(b);
    board_free_background();
    effects_shutdown();
    help_shutdown();
    input_shutdown();
    draw_queue_free();
    data_archive_close();
    log_set_mode(LOG_STDERR);
    app = nullptr;
    settings = 0;
    video_format = {};
}

void puzzle_table::open(const archive_builder &archive) const {
    data_archive_close();
    archive.write(game.data("data.dar"));
    EXPECT_EQ(data_archive_open(), 1);
}

void puzzle_table::frame(int count) const {
    for (; count > 0; --count) {
        fake_time_advance(20);
        input_poll();
        board_update(b);
    }
}

int puzzle_table::frames_while(u32 state_flag) const {
    int count = 0;
    for (; board_is(b, state_flag) && count < 1000; ++count)
        frame();
    return count;
}

void puzzle_table::press_key(i32 key) const {
    fake_key(key, true);
    frame();
    fake_key(key, false);
}

void puzzle_table::type_keys(const std::vector<i32> &values) const {
    for (const i32 value : values)
        for (button *key : each(b->buttons))
            if (key->label == b->key_symbols[value]) {
                button_press(key);
                button_release(key);
            }
}

sprite *puzzle_table::piece(i32 label) const {
    for (sprite *candidate : each(b->pieces))
        if (candidate->label_index == label)
            return candidate;
    return nullptr;
}

void puzzle_table::put_on_cell(sprite *s, i32 dx, i32 dy) const {
    const puzzle_layout &l = PUZZLE_LAYOUTS[b->type];
    s->x = b->x + l.grid_x + s->target_col * (l.cell_w + 1) + 1 + dx;
    s->y = b->y + l.grid_y + s->target_row * (l.cell_h + l.row_gap) + 1 + dy;
}
