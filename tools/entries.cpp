// entries.cpp: the table, and the list that is made from it once.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "entries.h"

#include "entry_names.h"
#include "graphics/glyph_names.h"
#include "input/cursor_shapes.h"
#include "resources/archive_format.h"
#include "screens/picture_sets.h"
#include "screens/study_text.h"
#include "sound/sound_bank.h"
#include "sprites/effect_pictures.h"

#include <algorithm>
#include <cstdio>

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

// Pictures of a set that have their size and role in common.
struct shared_row {
    const picture_set &set;
    set_part part;
    size_rule size;
    bool alike; // all as large as the row's first
    const char *role;
};

constexpr set_part all_of(const picture_set &set) {
    return {0, set.count};
}

// The four buttons of the title's column whose looks lie beside each other.
constexpr set_part column_of(button_look look) {
    return {TITLE_SCORES_BUTTON[look], TITLE_EXIT_BUTTON.first - TITLE_SCORES_BUTTON.first + 1};
}

// clang-format off
constexpr shared_row SHARED[] = {
    // set                                       pictures                        size                  alike  role
    {BACKGROUND_SET,                             {0},                            SCREEN,               false, "the background of play and study; dark text stands on it"},
    {CURSOR_SHAPES[CURSOR_ARROW].pictures,       {0},                            {8, 40, 8, 40},       false, "the arrow pointer; it points with its top left pixel"},
    {CURSOR_SHAPES[CURSOR_OPEN_HAND].pictures,   {0},                            {8, 40, 8, 40},       false, "the open hand; it points with the pixel (4, 2)"},
    {CURSOR_SHAPES[CURSOR_CLOSED_HAND].pictures, {0},                            {8, 40, 8, 40},       false, "the closed hand; it points with the pixel (4, 1)"},
    {CREDITS_SET,                                {CREDITS_UPPER_LINE, 2},        {1, 760, 1, 12},      false, "a line at the bottom of the credits"},
    {CREDITS_SET,                                CREDITS_PLATES,                 {20, 119, 12, 60},    false, "a plate in the row \"Developed using\""},
    {CREDITS_SET,                                {CREDITS_LOWEST_LINE},          {1, 760, 1, 12},      false, "the lowest line of the credits"},
    {DIALOG_SET,                                 all_of(DIALOG_SET),             {40, 150, 20, 45},    true,  "buttons yes, no and OK: normal, hover, pressed each"},
    {BURN_LARGE_SET,                             all_of(BURN_LARGE_SET),         up_to(120, 120),      false, "a large card burns up"},
    {BURN_SMALL_SET,                             all_of(BURN_SMALL_SET),         up_to(100, 100),      false, "a card burns up"},
    {CONFETTI_SET,                               all_of(CONFETTI_SET),           up_to(24, 24),        false, "a scrap of paper turns: 15 colours, 4 pictures each"},
    {FLARE_SET,                                  all_of(FLARE_SET),              up_to(96, 96),        false, "a star grows"},
    {SCORE_SET,                                  all_of(SCORE_SET),              {410, 800, 20, 64},   false, "the bar behind a line of the score log; 20 rows of it show"},
    {SPLASH_SET,                                 {SPLASH_FOOTER},                {1, 500, 1, 60},      false, "the line at the bottom of the first screen"},
    {SPLASH_SET,                                 SPLASH_WEB_BUTTON,              BUTTON,               false, "button web page: normal, hover, pressed"},
    {SPLASH_SET,                                 SPLASH_GO_BUTTON,               BUTTON,               false, "button continue: normal, hover, pressed"},
    {SPLASH_SET,                                 {SPLASH_SCENE},                 {100, 424, 100, 430}, false, "the picture of the first screen"},
    {SPLASH_SET,                                 SPLASH_QUIT_BUTTON,             BUTTON,               false, "button quit: normal, hover, pressed"},
    {SPLASH_SET,                                 SPLASH_SPARES[0],               UNUSED,               false, UNUSED_ROLE},
    {SPLASH_SET,                                 SPLASH_SPARES[1],               UNUSED,               false, UNUSED_ROLE},
    {STUDY_SET,                                  all_of(STUDY_SET),              {60, 107, 20, 36},    true,  "buttons back, help, clear, fill, play: normal, hover, pressed each"},
    {TITLE_SET,                                  {TITLE_BACKGROUND},             SCREEN,               false, "the night background; light text stands on it"},
    {TITLE_SET,                                  TITLE_ROWS,                     {100, 181, 20, 35},   false, "a puzzle's row in the list; its title is written from x 40 on"},
    {TITLE_SET,                                  TITLE_PUZZLES,                  {100, 355, 100, 330}, false, "a puzzle at a glance"},
    {TITLE_SET,                                  column_of(BUTTON_LOOK_NORMAL),  BUTTON,               false, "buttons scores, name, help, exit: normal"},
    {TITLE_SET,                                  column_of(BUTTON_LOOK_HOVER),   BUTTON,               false, "buttons scores, name, help, exit: hover"},
    {TITLE_SET,                                  column_of(BUTTON_LOOK_PRESSED), BUTTON,               false, "buttons scores, name, help, exit: pressed"},
    {TITLE_SET,                                  {TITLE_HEADING},                {100, 360, 20, 83},   false, "the heading with the game's name"},
    {TITLE_SET,                                  {TITLE_TABLE},                  SCREEN,               false, "the picture on the way from the title to study"},
    {TITLE_SET,                                  TITLE_CREDITS_BUTTON,           BUTTON,               false, "button credits: normal, hover, pressed"},
    {TITLE_SET,                                  {TITLE_MASTER_MARK},            {8, 24, 8, 28},       false, "the mark of a mastered puzzle"},
    {TITLE_SET,                                  TITLE_WEB_BUTTON,               BUTTON,               false, "button web page: normal, hover, pressed"},
    {TITLE_SET,                                  {TITLE_FOOTER},                 {1, 500, 1, 60},      false, "the line at the bottom of the title screen"},
    {TITLE_SET,                                  {TITLE_SUBHEADING},             {1, 360, 1, 23},      false, "the sub-heading"},
    {TITLE_SET,                                  TITLE_STUDY_BUTTON,             BUTTON,               false, "button study: normal, hover, pressed"},
    {TITLE_SET,                                  TITLE_SPARES[0],                UNUSED,               false, UNUSED_ROLE},
    {TITLE_SET,                                  TITLE_SPARES[1],                UNUSED,               false, UNUSED_ROLE},
    {TITLE_SET,                                  TITLE_SPARES[2],                UNUSED,               false, UNUSED_ROLE},
    {TITLE_SET,                                  TITLE_SPARES[3],                UNUSED,               false, UNUSED_ROLE},
};
// clang-format on

constexpr bool every_picture_has_a_row() {
    for (const shared_row &row : SHARED) {
        i32 pictures = 0;
        for (const shared_row &other : SHARED)
            if (std::string_view(other.set.prefix) == row.set.prefix)
                pictures += other.part.count;
        if (pictures != row.set.count)
            return false;
    }
    return true;
}
static_assert(every_picture_has_a_row());

constexpr size_rule GLYPH_SIZE = {1, 17, 1, 19};
constexpr char GLYPH_ROLE[] = "a letter of the font; rows without ink above it push it below the line";

// --- A puzzle's pictures -------------------------------------------------------------------------

// What limits the sizes in one puzzle type, in pixels.
struct puzzle_limits {
    i32 board_w, board_h;   // at most
    i32 column_w, column_h; // a column's heading, at most
    i32 row_w, row_h;       // a row's heading, at most
    i32 label_h;            // a piece's label, at most
    i32 begin_w, begin_h;   // at most
    i32 column_count;       // headings over columns; the others stand beside rows
};

// clang-format off
constexpr puzzle_limits LIMITS[PUZZLE_COUNT] = {
    // board       column    row       label  begin       headings
    {640, 289,     44, 22,   28, 34,   34,    340, 28,    10},
    {640, 290,     44, 18,   28, 34,   34,    340, 28,    10},
    {640, 289,     44, 22,   28, 34,   34,    340, 28,    10},
    {640, 290,     44, 20,   28, 34,   34,    340, 28,    10},
    {640, 300,     44, 16,   28, 34,   34,    340, 28,    10},
    {640, 300,     44, 18,   28, 34,   34,    340, 28,    10},
    {576, 486,     46, 46,   46, 46,   60,    340, 28,     6},
    {640, 290,      0,  0,    0,  0,   50,    340, 28,     0},
    {576, 470,     28, 16,   28, 16,   34,    340, 28,    10},
    {576, 480,     46, 46,   46, 46,   50,    340, 133,    6}, // up from the window's bottom to the board
    {576, 465,      0,  0,    0,  0,   60,    340, 28,     0},
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
    return {layout, LIMITS[type], layout.cell_w, puzzle_piece_height(type), *edges};
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

// What a puzzle's pictures must be.
struct puzzle_row {
    puzzle_picture id;
    size_rule (*size)(const puzzle_shape &s, i32 i); // of the i-th, from 0
    puzzle_picture alike;                            // whose size it shares; itself for none
    const char *role;
};

// clang-format off
constexpr puzzle_row IN_PUZZLE[] = {
    // picture               size                       as large as             role
    {PICTURE_BOARD,          board_size,                PICTURE_BOARD,          "the board: a frame around the grid, with room for the headings"},
    {PICTURE_PIECE,          piece_size,                PICTURE_PIECE,          "a piece's body"},
    {PICTURE_BEGIN,          begin_size,                PICTURE_BEGIN,          "the strip at the bottom that says how to start"},
    {PICTURE_STUDY_HELP,     fixed<1, 340, 1, 24>,      PICTURE_STUDY_HELP,     "the strip under the board in study mode"},
    {PICTURE_KEYS,           key_size,                  PICTURE_KEYS,           "a key, then the button of the next card: normal, hover, pressed each"},
    {PICTURE_CARD_SYMBOLS,   fixed<1, 10, 1, 20>,       PICTURE_CARD_SYMBOLS,   "the digits 0 to 9 and the sign on a card"},
    {PICTURE_CARD,           card_size,                 PICTURE_CARD,           "a card, back and ground of the face in one"},
    {PICTURE_NEXT,           card_size,                 PICTURE_CARD,           "loaded, never drawn; as large as a card"},
    {PICTURE_EMPTY_DECK,     card_size,                 PICTURE_CARD,           "the place of the used-up deck"},
    {PICTURE_BOX,            fixed<613, 613, 260, 260>, PICTURE_BOX,            "the box of pieces, 10 by 5 compartments"},
    {PICTURE_KEYPAD,         fixed<128, 128, 160, 160>, PICTURE_KEYPAD,         "the keypad under its keys"},
    {PICTURE_KEY_SYMBOLS,    fixed<1, 40, 1, 36>,       PICTURE_KEY_SYMBOLS,    "a key's sign: 0 to 9, delete, enter"},
    {PICTURE_ENTERED_DIGITS, fixed<6, 24, 8, 32>,       PICTURE_ENTERED_DIGITS, "a digit of the answer, 0 to 9"},
    {PICTURE_LOOSE_EDGES,    loose_size,                PICTURE_LOOSE_EDGES,    "an edge of a loose piece: top tab, right and bottom socket, left tab"},
    {PICTURE_PLACED_EDGES,   placed_size,               PICTURE_PLACED_EDGES,   "an edge of a placed piece: top tab, right and bottom socket, left tab"},
    {PICTURE_BOARD_DENTS,    board_edge_size,           PICTURE_BOARD_DENTS,    "a dent in an empty cell (001 top, 004 left; 002 and 003 are never drawn)"},
    {PICTURE_BOARD_BUMPS,    board_edge_size,           PICTURE_BOARD_BUMPS,    "the frame's bump into the last row (001) or column (004; 002 and 003 are never drawn)"},
    {PICTURE_HEADINGS,       heading_size,              PICTURE_HEADINGS,       "a heading over a column or beside a row"},
    {PICTURE_LABELS,         label_size,                PICTURE_LABELS,         "what is printed on a piece"},
    {PICTURE_CELLS,          cell_size,                 PICTURE_CELLS,          "an empty cell with the lines around it, by cell or by row"},
    {PICTURE_CONSOLE,        fixed<65, 65, 27, 27>,     PICTURE_CONSOLE,        "buttons help and return: both normal, both hover, both pressed"},
};
// clang-format on
static_assert(std::size(IN_PUZZLE) == PUZZLE_PICTURE_COUNT);

// --- The list ------------------------------------------------------------------------------------

void add_shared(std::vector<kit_entry> *list) {
    for (const shared_row &row : SHARED)
        for (i32 k = 0; k < row.part.count; ++k)
            list->push_back({entry_of(row.set, row.part[k]), ENTRY_PICTURE, row.size,
                             row.alike && k > 0 ? entry_of(row.set, row.part[0]) : "", row.set.count, NO_PUZZLE,
                             row.role});
}

void add_glyphs(std::vector<kit_entry> *list) {
    each_glyph([list](char, std::string_view name) {
        list->push_back({entry_of_glyph(name), ENTRY_PICTURE, GLYPH_SIZE, "", 1, NO_PUZZLE, GLYPH_ROLE});
    });
}

void add_puzzle(std::vector<kit_entry> *list, i32 type) {
    const puzzle_shape shape = shape_of(type);
    for (const puzzle_row &row : IN_PUZZLE) {
        const i32 count = puzzle_picture_count(shape.layout, row.id);
        for (i32 k = 0; k < count; ++k)
            list->push_back({entry_of_puzzle(type, row.id, k), ENTRY_PICTURE, row.size(shape, k),
                             row.alike != row.id ? entry_of_puzzle(type, row.alike) : "",
                             puzzle_picture_is_series(row.id) ? count : 1, type, row.role});
    }
}

void add_texts_and_sounds(std::vector<kit_entry> *list) {
    for (i32 type = 0; type < PUZZLE_COUNT; ++type)
        list->push_back({std::string(TEXT_FOLDER) + STUDY_TEXTS[type],
                         ENTRY_TEXT,
                         {},
                         "",
                         1,
                         type,
                         std::string("study text of ") + puzzle_title(type)});
    for (const sound_info &sound : SOUND_TABLE)
        list->push_back({std::string(SOUND_FOLDER) + sound.name, ENTRY_SOUND, {}, "", 1, NO_PUZZLE, "sound effect"});
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
