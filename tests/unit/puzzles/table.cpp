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

#include <SDL.h>

namespace {

constexpr u32 FRAME_MS = 20;

struct file_row {
    const char *name;
    int count; // 0: a single picture
    u32 needs; // any of these features; 0: always
    int w, h;  // pixels; 0: the cell's size, and so much more
    int extra;
};

std::vector<file_row> rows_of(const puzzle_layout &l) {
    const u32 deck = BOARD_HAS_DECK, keypad = BOARD_HAS_KEYPAD, text = BOARD_CARD_TEXT, box = BOARD_HAS_BOX;
    return {
        {"board/base", 0, 0, 300, 200, 0},
        {"piece/base", 0, 0, 0, 0, 0},
        {"begin", 0, 0, 40, 12, 0},
        {"study_help", 0, 0, 40, 12, 0},
        {"input/keys/", 6, deck | keypad, 40, 36, 0},
        {"deck/symbols/", 11, text, 6, 10, 0},
        {"deck/base", 0, deck, 0, 0, 8},
        {"deck/next", 0, deck, 4, 4, 0},
        {"deck/over", 0, deck, 0, 0, 8},
        {"box/base", 0, box, 40, 30, 0},
        {"input/base", 0, keypad, 128, 160, 0},
        {"input/symbols/keys/", 12, keypad, 10, 10, 0},
        {"input/symbols/entered/", 10, keypad, 20, 28, 0},
        {"piece/fragments/out/", 4, 0, 7, 9, 0},
        {"piece/fragments/in/", 4, 0, 6, 8, 0},
        {"board/fragments/negative/", 4, 0, 8, 5, 0},
        {"board/fragments/positive/", 4, 0, 10, 4, 0},
        {"board/symbols/", l.symbols, 0, 12, 14, 0},
        {"piece/symbols/", l.labels, 0, 20, 10, 0},
        {"board/pieces/", l.cell_pictures, 0, 0, 0, 2},
        {"console/", 6, 0, 65, 27, 0},
    };
}

std::string blank_xpm(int w, int h) {
    const std::vector<std::string> rows(static_cast<std::size_t>(h), std::string(static_cast<std::size_t>(w), 'a'));
    return make_xpm({"a c #808080"}, rows);
}

void for_each_file(const std::string &name, int count, const std::function<void(const std::string &)> &visit) {
    if (name.back() != '/')
        visit("xpm/" + name + ".xpm");
    for (int i = 1; i <= count; ++i) {
        char number[16];
        std::snprintf(number, sizeof number, "%.3i.xpm", i);
        visit("xpm/" + name + number);
    }
}

void for_each_picture(i32 type, const std::function<void(const std::string &, int w, int h)> &visit) {
    const puzzle_layout &l = PUZZLE_LAYOUTS[type];
    for (const file_row &row : rows_of(l)) {
        const int w = row.w > 0 ? row.w : l.cell_w + row.extra, h = row.h > 0 ? row.h : l.cell_h + row.extra;
        if (row.needs == 0 || (l.features & row.needs) != 0)
            for_each_file(std::string(l.dir) + "/" + row.name, row.count,
                          [&](const std::string &file) { visit(file, w, h); });
    }
    visit("xpm/bg/001.xpm", 80, 60);
}

} // namespace

// In place of the sound module's, which the test program then does without.
void sound_play(i32 number) {
    sounds_played.push_back(number);
}

std::vector<std::string> picture_files(i32 type) {
    std::vector<std::string> files;
    for_each_picture(type, [&](const std::string &file, int, int) { files.push_back(file); });
    return files;
}

archive_builder picture_archive(i32 type, const std::string &left_out) {
    archive_builder archive;
    for_each_picture(type, [&](const std::string &file, int w, int h) {
        if (file != left_out)
            archive.add(file, blank_xpm(w, h));
    });
    const struct {
        const char *name;
        int count, size;
    } EFFECTS[] = {{"field/flare/", 5, 8},
                   {"field/burn/small/", 18, 6},
                   {"field/burn/large/", 18, 10},
                   {"field/confetti/", 60, 2}};
    for (const auto &[name, count, size] : EFFECTS)
        for_each_file(name, count, [&](const std::string &file) { archive.add(file, blank_xpm(size, size)); });
    return archive;
}

empty_table::empty_table(const archive_builder &archive) {
    log_set_mode(0);
    fake_keys_up();
    fake_time_start(1000);
    video_format = {pixel32::BITS, sizeof(pixel32::value), pixel32::SHIFT};
    EXPECT_EQ(blit_init(), 1);
    EXPECT_EQ(input_init(), 1);
    EXPECT_EQ(help_init(), 1);
    board_reset_background();
    open(archive);
    EXPECT_EQ(effects_init(), 1);
    b = board_create();
    state.board = b;
    state.puzzle = -1;
    app = &state;
    sounds_played.clear();
}

empty_table::~empty_table() {
    board_destroy(b);
    board_free_background();
    effects_shutdown();
    help_shutdown();
    input_shutdown();
    draw_queue_free();
    data_archive_close();
    app = nullptr;
    settings = 0;
    video_format = {};
}

void empty_table::open(const archive_builder &archive) {
    data_archive_close();
    archive.write(game.data("data.dar"));
    EXPECT_EQ(data_archive_open(), 1);
}

void empty_table::frame(int count) {
    for (int i = 0; i < count; ++i) {
        fake_time_advance(FRAME_MS);
        input_poll();
        board_update(b);
    }
}

int empty_table::frames_while(u32 state_flag) {
    int count = 0;
    for (; board_is(b, state_flag) && count < 1000; ++count)
        frame();
    return count;
}

void empty_table::press_key(i32 key) {
    fake_key(key, true);
    frame();
    fake_key(key, false);
}

sprite *empty_table::piece(i32 label) const {
    for (sprite *candidate : each(b->pieces))
        if (candidate->label_index == label)
            return candidate;
    return nullptr;
}

void empty_table::put_on_cell(sprite *s, i32 dx, i32 dy) const {
    const puzzle_layout &l = PUZZLE_LAYOUTS[b->type];
    s->x = b->x + l.grid_x + s->target_col * (l.cell_w + 1) + 1 + dx;
    s->y = b->y + l.grid_y + s->target_row * (l.cell_h + l.row_gap) + 1 + dy;
}

button *empty_table::key_with(const image *label) const {
    for (button *key : each(b->buttons))
        if (key->label == label)
            return key;
    return nullptr;
}

puzzle_table::puzzle_table(i32 type) : empty_table(picture_archive(type)) {
    state.puzzle = type;
    EXPECT_EQ(board_prepare(&state), 1);
    EXPECT_EQ(board_start(b), 1);
}
