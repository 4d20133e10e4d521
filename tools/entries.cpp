// entries.cpp: the table, and the list that is made from it once.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "entries.h"

#include "puzzles/puzzle_type.h"
#include "sound/sound_bank.h"

#include <algorithm>
#include <cstdio>
#include <span>

namespace {

constexpr size_rule exactly(i32 w, i32 h) {
    return {w, w, h, h};
}
constexpr size_rule up_to(i32 w, i32 h) {
    return {1, w, 1, h};
}
constexpr size_rule UNUSED = {1, 64, 1, 64}; // of pictures that are loaded, not drawn
constexpr char UNUSED_ROLE[] = "loaded, never drawn; keep it small";
constexpr size_rule SCREEN = exactly(SCREEN_WIDTH, SCREEN_HEIGHT), BUTTON = exactly(136, 31);

// --- The program's own pictures ------------------------------------------------------------------

// A picture, or `count` of them from number `first` on where the name ends in a slash.
struct picture_row {
    const char *name;
    i32 first, count;
    size_rule size;
    bool alike; // all as large as the row's first
    const char *role;
};

// clang-format off
constexpr picture_row SHARED[] = {
    // name               first count  size                 alike  role
    {"bg/",                   1,  1, SCREEN,               false, "the background of play and study; dark text stands on it"},
    {"control/mouse/001/",    1,  1, {8, 40, 8, 40},       false, "the arrow pointer; it points with its top left pixel"},
    {"control/mouse/002/",    1,  1, {8, 40, 8, 40},       false, "the open hand; it points with the pixel (4, 2)"},
    {"control/mouse/003/",    1,  1, {8, 40, 8, 40},       false, "the closed hand; it points with the pixel (4, 1)"},
    {"credits/",              1,  2, {1, 760, 1, 12},      false, "a line at the bottom of the credits"},
    {"credits/",              3,  4, {20, 119, 12, 60},    false, "a plate in the row \"Developed using\""},
    {"credits/",              7,  1, {1, 760, 1, 12},      false, "the lowest line of the credits"},
    {"dialog/",               1,  9, {40, 150, 20, 45},    true,  "buttons yes, no and OK: normal, hover, pressed each"},
    {"field/burn/large/",     1, 18, up_to(120, 120),      false, "a large card burns up"},
    {"field/burn/small/",     1, 18, up_to(100, 100),      false, "a card burns up"},
    {"field/confetti/",       1, 60, up_to(24, 24),        false, "a scrap of paper turns: 15 colours, 4 pictures each"},
    {"field/flare/",          1,  5, up_to(96, 96),        false, "a star grows"},
    {"score/",                1,  1, {410, 800, 20, 64},   false, "the bar behind a line of the score log; 20 rows of it show"},
    {"splash/",               1,  1, UNUSED,               false, UNUSED_ROLE},
    {"splash/",               2,  1, {1, 500, 1, 60},      false, "the line at the bottom of the first screen"},
    {"splash/",               3,  1, UNUSED,               false, UNUSED_ROLE},
    {"splash/",               4,  3, BUTTON,               false, "button web page: normal, hover, pressed"},
    {"splash/",               7,  3, BUTTON,               false, "button continue: normal, hover, pressed"},
    {"splash/",              10,  1, {100, 424, 100, 430}, false, "the picture of the first screen"},
    {"splash/",              11,  3, BUTTON,               false, "button quit: normal, hover, pressed"},
    {"study/",                1, 15, {60, 107, 20, 36},    true,  "buttons back, help, clear, fill, play: normal, hover, pressed each"},
    {"title/",                1,  1, SCREEN,               false, "the night background; light text stands on it"},
    {"title/",                2, 11, {100, 181, 20, 35},   false, "a puzzle's row in the list; its title is written from x 40 on"},
    {"title/",               13, 11, {100, 355, 100, 330}, false, "a puzzle at a glance"},
    {"title/",               24,  2, UNUSED,               false, UNUSED_ROLE},
    {"title/",               26,  4, BUTTON,               false, "buttons scores, name, help, exit: normal"},
    {"title/",               30,  2, UNUSED,               false, UNUSED_ROLE},
    {"title/",               32,  4, BUTTON,               false, "buttons scores, name, help, exit: hover"},
    {"title/",               36,  2, UNUSED,               false, UNUSED_ROLE},
    {"title/",               38,  4, BUTTON,               false, "buttons scores, name, help, exit: pressed"},
    {"title/",               42,  1, {100, 360, 20, 83},   false, "the heading with the game's name"},
    {"title/",               43,  1, SCREEN,               false, "the picture on the way from the title to study"},
    {"title/",               44,  3, BUTTON,               false, "button credits: normal, hover, pressed"},
    {"title/",               47,  1, {8, 24, 8, 28},       false, "the mark of a mastered puzzle"},
    {"title/",               48,  3, BUTTON,               false, "button web page: normal, hover, pressed"},
    {"title/",               51,  1, {1, 500, 1, 60},      false, "the line at the bottom of the title screen"},
    {"title/",               52,  3, UNUSED,               false, UNUSED_ROLE},
    {"title/",               55,  1, {1, 360, 1, 23},      false, "the sub-heading"},
    {"title/",               56,  3, BUTTON,               false, "button study: normal, hover, pressed"},
};

constexpr size_rule GLYPH_SIZE = {1, 17, 1, 19};
constexpr char GLYPH_ROLE[] = "a letter of the font; rows without ink above it push it below the line";
constexpr char GLYPHS_BY_CHARACTER[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr const char *GLYPHS_BY_NAME[] = {
    "apostrophe", "asterisk", "backslash", "colon", "comma", "copy", "dash", "dollarsign", "exclamation",
    "greaterthan", "lbracket", "lessthan", "lparen", "percent", "period", "plus", "question", "quote", "rbracket",
    "rparen", "semicolon", "slash", "space", "tavimo", "underscore",
};
// clang-format on

// --- A puzzle's pictures -------------------------------------------------------------------------

// What limits the sizes in one puzzle type, in pixels.
struct puzzle_limits {
    i32 board_w, board_h;        // at most
    i32 column_w, column_h;      // a column's heading, at most
    i32 row_w, row_h;            // a row's heading, at most
    i32 label_h;                 // a piece's label, at most
    i32 begin_w, begin_h;        // at most
    i32 column_count, row_count; // headings, in this order
};

// clang-format off
constexpr puzzle_limits LIMITS[PUZZLE_COUNT] = {
    // board       column    row       label  begin       headings
    {640, 289,     44, 22,   28, 34,   34,    340, 28,    10, 5},
    {640, 290,     44, 18,   28, 34,   34,    340, 28,    10, 5},
    {640, 289,     44, 22,   28, 34,   34,    340, 28,    10, 5},
    {640, 290,     44, 20,   28, 34,   34,    340, 28,    10, 5},
    {640, 300,     44, 16,   28, 34,   34,    340, 28,    10, 5},
    {640, 300,     44, 18,   28, 34,   34,    340, 28,    10, 5},
    {576, 486,     46, 46,   46, 46,   60,    340, 28,     6, 0},
    {640, 290,      0,  0,    0,  0,   50,    340, 28,     0, 0},
    {576, 470,     28, 16,   28, 16,   34,    340, 28,    10, 0},
    {576, 480,     46, 46,   46, 46,   50,    340, 133,    6, 0}, // up from the window's bottom to the board
    {576, 465,      0,  0,    0,  0,   60,    340, 28,     0, 0},
};
// clang-format on

// The four pictures of an edge, top, right, bottom, left: of a loose piece, a placed piece, and on the board, where
// only the first and the last are drawn.
struct joint {
    i32 piece_w;
    struct {
        i32 w, h;
    } loose[EDGE_COUNT], placed[EDGE_COUNT], board_top, board_left;
};
// clang-format off
constexpr joint JOINTS[] = {
    // piece  loose                                   placed                                  board
    {44,      {{11,  9}, { 7, 12}, {11,  7}, { 8, 11}}, {{11,  8}, { 7, 12}, {11,  7}, { 7, 11}}, {11,  8}, { 8, 12}},
    {55,      {{15, 10}, { 8, 16}, {15,  8}, { 9, 15}}, {{15,  9}, { 8, 16}, {15,  8}, { 8, 15}}, {15,  9}, { 9, 16}},
    {67,      {{17, 12}, {10, 18}, {17, 10}, {11, 17}}, {{17, 11}, {10, 18}, {17, 10}, {10, 17}}, {17, 11}, {11, 18}},
};
// clang-format on

struct puzzle_shape {
    const puzzle_layout &layout;
    const puzzle_limits &limits;
    i32 piece_w, piece_h; // of a piece's body
    const joint &edges;
};

puzzle_shape shape_of(i32 type) {
    const puzzle_layout &layout = PUZZLE_LAYOUTS[type];
    const auto edges =
        std::find_if(std::begin(JOINTS), std::end(JOINTS), [&](const joint &j) { return j.piece_w == layout.cell_w; });
    return {layout, LIMITS[type], layout.cell_w, puzzle_row_pitch(type) - 1, *edges};
}

// The widest and highest that a card may be larger than its piece.
constexpr i32 CARD_RIM = 10;

size_rule board_size(const puzzle_shape &s, i32) {
    const i32 grid_w = s.layout.grid_x + s.layout.cols * (s.piece_w + COLUMN_GAP);
    const i32 grid_h = s.layout.grid_y + s.layout.rows * (s.piece_h + 1);
    return {grid_w + 1, s.limits.board_w, grid_h + 1, s.limits.board_h};
}
size_rule piece_size(const puzzle_shape &s, i32) {
    return exactly(s.piece_w, s.piece_h);
}
size_rule cell_size(const puzzle_shape &s, i32) {
    return exactly(s.piece_w + 2, s.piece_h + 2);
}
size_rule card_size(const puzzle_shape &s, i32) {
    return {s.piece_w, s.piece_w + CARD_RIM, s.piece_h, s.piece_h + CARD_RIM};
}
size_rule label_size(const puzzle_shape &s, i32) {
    return up_to(s.piece_w, s.limits.label_h);
}
size_rule heading_size(const puzzle_shape &s, i32 i) {
    return i < s.limits.column_count ? up_to(s.limits.column_w, s.limits.column_h)
                                     : up_to(s.limits.row_w, s.limits.row_h);
}
size_rule begin_size(const puzzle_shape &s, i32) {
    return up_to(s.limits.begin_w, s.limits.begin_h);
}
size_rule loose_size(const puzzle_shape &s, i32 i) {
    return exactly(s.edges.loose[i].w, s.edges.loose[i].h);
}
size_rule placed_size(const puzzle_shape &s, i32 i) {
    return exactly(s.edges.placed[i].w, s.edges.placed[i].h);
}
size_rule board_edge_size(const puzzle_shape &s, i32 i) {
    if (i != EDGE_TOP && i != EDGE_LEFT)
        return UNUSED;
    const auto &edge = i == EDGE_TOP ? s.edges.board_top : s.edges.board_left;
    return exactly(edge.w, edge.h);
}
size_rule key_size(const puzzle_shape &, i32 i) {
    constexpr size_rule key = exactly(40, 36), next = {20, 55, 20, 60};
    return i < KEY_PICTURES / 2 ? key : next;
}
template <i32 MIN_W, i32 MAX_W, i32 MIN_H, i32 MAX_H> size_rule fixed(const puzzle_shape &, i32) {
    return {MIN_W, MAX_W, MIN_H, MAX_H};
}

i32 one(const puzzle_shape &) {
    return 1;
}
template <i32 N> i32 always(const puzzle_shape &) {
    return N;
}
template <i32 puzzle_layout::*COUNT> i32 laid_out(const puzzle_shape &s) {
    return s.layout.*COUNT;
}

// A picture in each puzzle's folder, or a numbered series where the name ends in a slash.
struct puzzle_row {
    const char *name;
    i32 (*count)(const puzzle_shape &s);
    u32 needs_any, needs_all;                        // features: one of these, all of these
    size_rule (*size)(const puzzle_shape &s, i32 i); // of the i-th, from 0
    const char *alike;                               // picture in the folder whose size it shares; null for none
    const char *role;
};

constexpr u32 DECK = BOARD_HAS_DECK, KEYPAD = BOARD_HAS_KEYPAD, BOX = BOARD_HAS_BOX, TEXT = BOARD_CARD_TEXT;

// clang-format off
constexpr puzzle_row IN_PUZZLE[] = {
    // name                       count                                    any            all          size                    alike
    {"begin.xpm",                 one,                                     0,             0,           begin_size,             nullptr,
     "the strip at the bottom that says how to start"},
    {"board/base.xpm",            one,                                     0,             0,           board_size,             nullptr,
     "the board: a frame around the grid, with room for the headings"},
    {"board/fragments/negative/", always<EDGE_COUNT>,                      0,             0,           board_edge_size,        nullptr,
     "a dent in an empty cell (001 top, 004 left; 002 and 003 are never drawn)"},
    {"board/fragments/positive/", always<EDGE_COUNT>,                      0,             0,           board_edge_size,        nullptr,
     "the frame's bump into the last row (001) or column (004; 002 and 003 are never drawn)"},
    {"board/pieces/",             laid_out<&puzzle_layout::cell_pictures>, 0,             0,           cell_size,              nullptr,
     "an empty cell with the lines around it, by cell or by row"},
    {"board/symbols/",            laid_out<&puzzle_layout::symbols>,       0,             0,           heading_size,           nullptr,
     "a heading over a column or beside a row"},
    {"box/base.xpm",              one,                                     0,             BOX,         fixed<613, 613, 260, 260>, nullptr,
     "the box of pieces, 10 by 5 compartments"},
    {"console/",                  always<CONSOLE_PICTURES>,                0,             0,           fixed<65, 65, 27, 27>,  nullptr,
     "buttons help and return: both normal, both hover, both pressed"},
    {"deck/base.xpm",             one,                                     0,             DECK,        card_size,              nullptr,
     "a card, back and ground of the face in one"},
    {"deck/next.xpm",             one,                                     0,             DECK,        card_size,              "deck/base.xpm",
     "loaded, never drawn; as large as a card"},
    {"deck/over.xpm",             one,                                     0,             DECK,        card_size,              "deck/base.xpm",
     "the place of the used-up deck"},
    {"deck/symbols/",             always<11>,                              0,             DECK | TEXT, fixed<1, 10, 1, 20>,    nullptr,
     "the digits 0 to 9 and the sign on a card"},
    {"input/base.xpm",            one,                                     0,             KEYPAD,      fixed<128, 128, 160, 160>, nullptr,
     "the keypad under its keys"},
    {"input/keys/",               always<KEY_PICTURES>,                    DECK | KEYPAD, 0,           key_size,               nullptr,
     "a key, then the button of the next card: normal, hover, pressed each"},
    {"input/symbols/entered/",    always<ENTRY_DIGITS>,                    0,             KEYPAD,      fixed<6, 24, 8, 32>,    nullptr,
     "a digit of the answer, 0 to 9"},
    {"input/symbols/keys/",       always<KEY_SYMBOLS>,                     0,             KEYPAD,      fixed<1, 40, 1, 36>,    nullptr,
     "a key's sign: 0 to 9, delete, enter"},
    {"piece/base.xpm",            one,                                     0,             0,           piece_size,             nullptr,
     "a piece's body"},
    {"piece/fragments/in/",       always<EDGE_COUNT>,                      0,             0,           placed_size,            nullptr,
     "an edge of a placed piece: top tab, right and bottom socket, left tab"},
    {"piece/fragments/out/",      always<EDGE_COUNT>,                      0,             0,           loose_size,             nullptr,
     "an edge of a loose piece: top tab, right and bottom socket, left tab"},
    {"piece/symbols/",            laid_out<&puzzle_layout::labels>,        0,             0,           label_size,             nullptr,
     "what is printed on a piece"},
    {"study_help.xpm",            one,                                     0,             0,           fixed<1, 340, 1, 24>,   nullptr,
     "the strip under the board in study mode"},
};
// clang-format on

// --- The list ------------------------------------------------------------------------------------

constexpr i32 NAME_SIZE = 96; // bytes

bool is_series(std::string_view name) {
    return name.back() == '/';
}

std::string picture_name(const std::string &folder, const char *name, i32 number) {
    char text[NAME_SIZE];
    if (is_series(name))
        std::snprintf(text, sizeof text, "xpm/%s%s%.3i.xpm", folder.c_str(), name, number);
    else
        std::snprintf(text, sizeof text, "xpm/%s%s", folder.c_str(), name);
    return text;
}

void add_shared(std::vector<kit_entry> *list) {
    for (const picture_row &row : SHARED) {
        i32 series = 0; // rows of one folder are one series
        for (const picture_row &other : SHARED)
            if (std::string_view(other.name) == row.name)
                series = std::max(series, other.first + other.count - 1);
        for (i32 i = 0; i < row.count; ++i)
            list->push_back({picture_name("", row.name, row.first + i), ENTRY_PICTURE, row.size,
                             row.alike && i > 0 ? picture_name("", row.name, row.first) : "", series, NO_PUZZLE,
                             row.role});
    }
}

void add_glyphs(std::vector<kit_entry> *list) {
    const auto add = [list](const std::string &name) {
        list->push_back({"xpm/font/normal/" + name + ".xpm", ENTRY_PICTURE, GLYPH_SIZE, "", 1, NO_PUZZLE, GLYPH_ROLE});
    };
    for (const char c : std::string_view(GLYPHS_BY_CHARACTER))
        add(std::string(1, c));
    for (const char *name : GLYPHS_BY_NAME)
        add(name);
}

void add_puzzle(std::vector<kit_entry> *list, i32 type) {
    const puzzle_shape shape = shape_of(type);
    const std::string folder = std::string(shape.layout.dir) + "/";
    for (const puzzle_row &row : IN_PUZZLE) {
        const u32 features = shape.layout.features;
        if ((row.needs_any != 0 && (features & row.needs_any) == 0) || (features & row.needs_all) != row.needs_all)
            continue;
        const i32 count = row.count(shape);
        for (i32 i = 0; i < count; ++i)
            list->push_back({picture_name(folder, row.name, i + 1), ENTRY_PICTURE, row.size(shape, i),
                             row.alike != nullptr ? picture_name(folder, row.alike, 0) : "",
                             is_series(row.name) ? count : 1, type, row.role});
    }
}

void add_texts_and_sounds(std::vector<kit_entry> *list) {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type)
        list->push_back({"txt/study" + std::to_string(type) + ".txt",
                         ENTRY_TEXT,
                         {},
                         "",
                         1,
                         type,
                         std::string("study text of ") + puzzle_title(type)});
    for (const sound_info &sound : SOUND_TABLE)
        list->push_back({std::string("ogg/") + sound.name, ENTRY_SOUND, {}, "", 1, NO_PUZZLE, "sound effect"});
}

std::vector<kit_entry> make_list() {
    std::vector<kit_entry> list;
    add_shared(&list);
    add_glyphs(&list);
    for (i32 type = 0; type < PUZZLE_COUNT; ++type)
        add_puzzle(&list, type);
    add_texts_and_sounds(&list);
    std::sort(list.begin(), list.end(), [](const kit_entry &a, const kit_entry &b) { return a.name < b.name; });
    return list;
}

std::string range_text(i32 low, i32 high, const char *word) {
    if (low == high)
        return std::to_string(low) + " " + word;
    if (low <= 1)
        return "at most " + std::to_string(high) + " " + word;
    return std::to_string(low) + " to " + std::to_string(high) + " " + word;
}

} // namespace

const std::vector<kit_entry> &kit_entries() {
    static const std::vector<kit_entry> list = make_list();
    return list;
}

const kit_entry *kit_find(std::string_view name) {
    const std::vector<kit_entry> &list = kit_entries();
    const auto found = std::lower_bound(list.begin(), list.end(), name,
                                        [](const kit_entry &entry, std::string_view n) { return entry.name < n; });
    return found != list.end() && found->name == name ? &*found : nullptr;
}

bool size_fits(const size_rule &rule, i32 width, i32 height) {
    return rule.min_w <= width && width <= rule.max_w && rule.min_h <= height && height <= rule.max_h;
}

std::string size_rule_text(const size_rule &rule) {
    if (rule.min_w == rule.max_w && rule.min_h == rule.max_h)
        return std::to_string(rule.max_w) + "x" + std::to_string(rule.max_h);
    return range_text(rule.min_w, rule.max_w, "wide") + " and " + range_text(rule.min_h, rule.max_h, "high");
}

i32 kit_study_top(i32 puzzle) {
    return PUZZLE_LAYOUTS[puzzle].study_top;
}

std::string kit_puzzle_folder(i32 puzzle) {
    return PUZZLE_LAYOUTS[puzzle].dir;
}
