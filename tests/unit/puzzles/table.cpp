// table.cpp: the plain pictures, and setting the table.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "unit/puzzles/table.h"

#include "core/help.h"
#include "core/log.h"
#include "core/settings.h"
#include "graphics/blit.h"
#include "input/input.h"
#include "puzzles/background.h"
#include "puzzles/board_pictures.h"
#include "puzzles/puzzle_type.h"
#include "resources/archive.h"
#include "resources/pixel.h"
#include "sound/sound.h"
#include "sprites/effect.h"

#include <cstdio>

namespace {

struct picture_size {
    const char *part; // of the file's name
    int w, h;         // pixels; w 0: the cell's size and h more
};
constexpr picture_size SIZES[] = {
    {"deck/symbols", 6, 10},   {"deck/", 0, 8},          {"piece/base", 0, 0},   {"board/pieces", 0, 2},
    {"board/base", 300, 200},  {"input/base", 128, 160}, {"input/keys", 40, 36}, {"study_help", 40, 12},
    {"piece/symbols", 20, 10}, {"out/", 7, 9},           {"in/", 6, 8},          {"negative", 8, 5},
    {"positive", 10, 4},       {"burn/large", 10, 10},   {"", 12, 14},
};
constexpr std::pair<const char *, int> SHARED[] = {
    {"bg/", 1}, {"field/flare/", 5}, {"field/burn/small/", 18}, {"field/burn/large/", 18}, {"field/confetti/", 60}};

std::string numbered(const std::string &series, int number) {
    char text[16];
    std::snprintf(text, sizeof text, "%.3i.xpm", number);
    return "xpm/" + series + text;
}

std::string plain_picture(i32 type, const std::string &file) {
    const puzzle_layout &l = PUZZLE_LAYOUTS[type];
    const auto fits = [&](const picture_size &size) { return file.find(size.part) != file.npos; };
    const picture_size size = *std::find_if(std::begin(SIZES), std::end(SIZES), fits);
    const int w = size.w > 0 ? size.w : l.cell_w + size.h, h = size.w > 0 ? size.h : l.cell_h + size.h;
    return make_xpm({"a c #808080"}, lines(static_cast<std::size_t>(h), std::string(static_cast<std::size_t>(w), 'a')));
}

} // namespace

// In place of the sound module's, which the test program then does without.
void sound_play(i32 number) {
    sounds_played.push_back(number);
}

lines puzzle_table::picture_files(i32 type) const {
    lines files = {"xpm/bg/001.xpm"};
    EXPECT_EQ(puzzle_type_init(b, type), 1);
    for (const picture_row &row : board_picture_rows()) {
        const std::string name = std::string(PUZZLE_LAYOUTS[type].dir) + "/" + row.name;
        if (picture_row_applies(row, b) && row.slots(b).count > 0)
            files.push_back(name.back() == '/' ? numbered(name, row.slots(b).count) : "xpm/" + name);
    }
    return files;
}

void puzzle_table::open(i32 type, const std::string &left_out) const {
    data_archive_close();
    archive_builder archive;
    const auto add = [&](const std::string &file) {
        if (file != left_out)
            archive.add(file, plain_picture(type, file));
    };
    for (const auto &[series, count] : SHARED)
        for (int i = 1; i <= count; ++i)
            add(numbered(series, i));
    for (const std::string &file : picture_files(type)) {
        const std::string series = file.substr(4, file.rfind('/') - 3);
        const int last = file.size() == series.size() + 11 ? std::atoi(file.c_str() + file.size() - 7) : 0;
        for (int i = 1; i < last && series != "bg/"; ++i)
            add(numbered(series, i));
        if (series != "bg/")
            add(file);
    }
    archive.write(game.data("data.dar"));
    EXPECT_EQ(data_archive_open(), 1);
}

puzzle_table::puzzle_table(i32 type) {
    log_set_mode(0);
    fake_keys_up();
    fake_time_start(1000);
    video_format = {pixel32::BITS, sizeof(pixel32::value), pixel32::SHIFT};
    board_reset_background();
    state.board = b = board_create();
    open(type);
    EXPECT_TRUE(blit_init() == 1 && input_init() == 1 && help_init() == 1 && effects_init() == 1);
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
