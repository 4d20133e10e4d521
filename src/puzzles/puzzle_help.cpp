// puzzle_help.cpp: the tables of the types' help bubbles.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/puzzle_help.h"

#include "core/base/puzzle_info.h"

#include <algorithm>
#include <array>

namespace {

constexpr i32 RIGHT_ALIGNED = HELP_RIGHT_ALIGNED;

constexpr char NEXT_PIECE[] = "Click the button to show the next piece.";
constexpr char DRAG[] = "Drag the piece to its position on the board.";
constexpr char MANY_NUMBERS[] = "Many pieces have numbers that could answer more than one problem.";
constexpr char SOME_NUMBERS[] = "Some pieces have numbers that could answer more than one problem.";
constexpr char SOME_PICTURES[] = "Some pieces have pictures that could answer more than one problem.";
constexpr char SHAPES[] = "You can use the pieces' shapes to determine their correct positions.";

// clang-format off
constexpr std::array<help_row, 4> counting_help(const char *add, const char *drag) {
    return {{
        // text           x    y  start lines
        {add,            14, 318,   0, 1, {{ 68, 323, 100, 354}}},
        {drag,          487, 280,  75, 1, {{559, 264, 498, 228}}},
        {MANY_NUMBERS, RIGHT_ALIGNED, 473, 150, 0, {}},
        {SHAPES,       RIGHT_ALIGNED, 498, 150, 0, {}},
    }};
}

constexpr auto COUNTING_LOW = counting_help("Complete the puzzle by adding 1-5 to itself 10 times.",
                                            "Drag each piece to its position on the board.");
constexpr auto COUNTING_HIGH = counting_help("Complete the puzzle by adding 6-10 to itself 10 times.",
                                             "Drag each piece to its place on the board.");

constexpr help_row MULTIPLICATION[] = {
    {"Click the button to show the next problem.",               28, 340,   0, 1, {{256, 345, 274, 362}}},
    {"Enter your answer on the keypad.",                        489, 468,  75, 1, {{487, 465, 460, 475}}},
    {"A correct answer reveals the piece.",                     389, 363, 150, 1, {{387, 355, 350, 373}}},
    {DRAG,                                                      491, 323, 225, 1, {{507, 307, 496, 283}}},
    {"Remember the problem to help find the piece's position.",  25,  65, 300, 2, {{165,  72, 216, 104},
                                                                                    {165,  72, 174, 139}}},
};

constexpr help_row DIVISION[] = {
    {NEXT_PIECE,                                                 82, 409,   0, 1, {{302, 415, 334, 438}}},
    {"Solve the problem shown on the piece.",                   446, 463,  75, 1, {{444, 455, 406, 441}}},
    {"Find the quotient of the problem and place it in line with its divisor.",
                                                                 63, 135, 150, 2, {{164, 141, 214, 160},
                                                                                    {164, 141, 172, 198}}},
    {DRAG,                                                      479, 398, 225, 1, {{526, 384, 485, 352}}},
    {"Correctly placed pieces disappear after a short time.",   380, 163, 300, 1, {{469, 169, 453, 190}}},
};

constexpr help_row CONSUMER[] = {
    {NEXT_PIECE,                                                 29, 497,   0, 1, {{272, 502, 306, 534}}},
    {"Find the three coins adding up to the value shown on the piece.",
                                                                111,  56,  75, 3, {{382,  62, 373,  90},
                                                                                    {382,  62, 171, 122},
                                                                                    {382,  62, 626, 124}}},
    {DRAG,                                                      481, 328, 150, 1, {{520, 334, 530, 355}}},
    {SOME_NUMBERS,                                    RIGHT_ALIGNED, 539, 225, 0, {}},
    {SHAPES,                                          RIGHT_ALIGNED, 564, 225, 0, {}},
};

constexpr help_row FRACTIONS[] = {
    {NEXT_PIECE,                                                 64, 452,   0, 1, {{300, 436, 317, 418}}},
    {"Determine what fraction of the shape is colored and simplify if necessary.",
                                                                290, 390,  75, 1, {{445, 395, 410, 411}}},
    {"Find the space containing the resulting fraction.",        63, 135, 150, 1, {{126, 141, 139, 163}}},
    {DRAG,                                                      468, 225, 225, 1, {{519, 230, 559, 256}}},
    {SOME_PICTURES,                                   RIGHT_ALIGNED, 539, 300, 0, {}},
    {SHAPES,                                          RIGHT_ALIGNED, 564, 300, 0, {}},
};

constexpr help_row FACTORS[] = {
    {NEXT_PIECE,                                                 88, 474,   0, 1, {{313, 480, 332, 503}}},
    {"Find the two factors of the product on the piece.",        25,  36,  75, 2, {{171,  42, 170,  98},
                                                                                    {171,  42, 216,  63}}},
    {DRAG,                                                      491, 323, 150, 1, {{507, 307, 496, 283}}},
    {MANY_NUMBERS,                                    RIGHT_ALIGNED, 539, 225, 0, {}},
    {SHAPES,                                          RIGHT_ALIGNED, 564, 225, 0, {}},
};

constexpr help_row MONEY[] = {
    {"Add the four coins in line with an item and find the piece showing the total.",
                                                                 27,  42,   0, 2, {{205,  47, 201, 112},
                                                                                    {205,  47, 271,  71}}},
    {DRAG,                                                      441, 269,  75, 1, {{496, 275, 505, 313}}},
    {SOME_NUMBERS,                                    RIGHT_ALIGNED, 539, 150, 0, {}},
    {SHAPES,                                          RIGHT_ALIGNED, 564, 150, 0, {}},
};

constexpr help_row TIME[] = {
    {NEXT_PIECE,                                                 64, 468,   0, 1, {{301, 474, 332, 509}}},
    {"Find the space containing the time shown on the piece.",   63, 135,  75, 1, {{126, 141, 139, 163}}},
    {DRAG,                                                      468, 250, 150, 1, {{519, 255, 480, 281}}},
};

constexpr std::span<const help_row> HELP[PUZZLE_COUNT] = {
    COUNTING_LOW, MULTIPLICATION, COUNTING_HIGH, MULTIPLICATION, DIVISION, DIVISION,
    CONSUMER, FRACTIONS, FACTORS, MONEY, TIME,
};
// clang-format on
static_assert(std::ranges::all_of(HELP, [](auto rows) { return rows.size() <= HELP_BUBBLES; }));

} // namespace

std::span<const help_row> puzzle_help(i32 type) {
    return HELP[type];
}
