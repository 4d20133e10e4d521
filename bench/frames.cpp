// frames.cpp: plays the program to its heaviest screens and prints what their frames cost.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/puzzle_info.h"
#include "core/ui/screen.h"
#include "frame_meter.h"
#include "program/player.h"
#include "puzzles/board.h"
#include "screens/dialog.h"
#include "sprites/effect.h"
#include "sprites/sprite.h"
#include "table.h"

#include <SDL.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr double MILLISECONDS = 1e3, FRAME_LIMIT = 2, KILOBYTE = 1e3;
constexpr int DEPTHS[] = {16, 32};
constexpr int WARM_UP = 60; // frames
constexpr int FACTORS = 8;  // the puzzle type
constexpr int SLIDES = 40, SLIDE_FRAMES = 10;
constexpr int CARD_LEAVES = 3;                     // frames that the mouse is held on a card
constexpr int DECK_FRAMES = 250, EFFECT_EVERY = 4; // frames
constexpr int CONFETTI = 40, CONFETTI_FRAMES = 200, CONFETTI_LIMIT = 3000;

void row(const std::string &figure, const std::string &other, const std::vector<frame_cost> &of, aim wanted,
         double (*value)(const frame_cost &)) {
    table_row printed = {figure, other, {}, wanted};
    for (const frame_cost &frame : of)
        printed.measured.push_back(value(frame));
    print_row(printed);
}

double whole_ms(const frame_cost &f) {
    return (f.recording + f.playing) * MILLISECONDS;
}

void report(const std::string &screen, int depth, const std::vector<frame_cost> &frames) {
    const std::string figure = "frame, " + screen + ", " + std::to_string(depth) + " bits";
    const aim at_most_limit = {false, FRAME_LIMIT}, none = {false, 0};
    row(figure, "ms, record and play", frames, at_most_limit, whole_ms);
    row(figure, "ms, record", frames, at_most_limit, [](const frame_cost &f) { return f.recording * MILLISECONDS; });
    const auto longest = std::ranges::max_element(frames, {}, whole_ms);
    row(figure, "ms, longest of " + std::to_string(frames.size()), {*longest}, at_most_limit, whole_ms);
    row(figure, "allocations", frames, none, [](const frame_cost &f) { return static_cast<double>(f.allocations); });
    row(figure, "pictures", frames, NO_AIM, [](const frame_cost &f) { return static_cast<double>(f.pictures); });
    row(figure, "kB written", frames, NO_AIM,
        [](const frame_cost &f) { return static_cast<double>(f.bytes) / KILOBYTE; });
    row(figure, "SDL's blits for the same list", frames, NO_AIM,
        [](const frame_cost &f) { return f.same_blits / f.playing; });
    row(figure, "SDL's blits, all anew", frames, NO_AIM, [](const frame_cost &f) { return f.whole_blits / f.playing; });
    std::fflush(stdout);
}

// --- The screens ---------------------------------------------------------------------------------

void slide_titles(int depth) {
    leave_splash();
    wait_frames(WARM_UP);
    frame_meter_begin(true);
    for (int i = 0; i < SLIDES; ++i) {
        click(LIST_X, list_y(i % PUZZLE_COUNT));
        wait_frames(SLIDE_FRAMES);
    }
    report("title sliding", depth, frame_meter_end());
}

// Something of every kind at once: the deck turns, flares and burns play, the mouse goes over the pieces.
void stir(int i) {
    board *b = the_board();
    move_mouse(b->x + i * 13 % b->width, b->y + i * 7 % b->height);
    if (i % EFFECT_EVERY == 0) {
        effect *made = effect_create(i / EFFECT_EVERY % 2 == 0 ? EFFECT_FLARE : EFFECT_BURN);
        board_add_effect(b, made, b->x + i * 31 % b->width, b->y + i * 17 % b->height);
    }
    if (!board_is(b, BOARD_DECK_MOVING))
        press(SDLK_SPACE);
}

std::vector<frame_cost> stirred_frames(bool with_sdl) {
    for (int i = 0; i < DECK_FRAMES + WARM_UP; ++i) {
        if (i == WARM_UP)
            frame_meter_begin(with_sdl);
        stir(i);
    }
    return frame_meter_end();
}

void place_top_card() {
    const board *b = the_board();
    until("the deck rests", [b] { return !board_is(b, BOARD_DECK_MOVING | BOARD_DECK_LOCK); });
    sprite *piece = b->deck.slot[0];
    mouse_down_at(b->deck.slot_at[0].x + b->pictures.card->width / 2,
                  b->deck.slot_at[0].y + b->pictures.card->height / 2);
    wait_frames(CARD_LEAVES);
    carry_to_cell(piece);
}

void play_factors(int depth) {
    const auto *place = std::ranges::find(PUZZLE_LIST_ORDER, FACTORS);
    select_puzzle(static_cast<int>(place - PUZZLE_LIST_ORDER));
    study_selected();
    close_help();
    start_playing("Ann");
    close_help();
    press(SDLK_SPACE);
    for (int i = the_board()->pieces->count / 2; i > 0; --i)
        place_top_card();
    report("Factors half filled", depth, stirred_frames(true));
}

// Spreads all pieces over the table, with so many copies that there are so many times as many.
void multiply_pieces(int times) {
    board *b = the_board();
    const i32 count = b->pieces->count;
    while (b->pieces->count < count * times) {
        auto *copy = static_cast<sprite *>(std::malloc(sizeof(sprite)));
        *copy = *b->pieces->items[b->pieces->count % count];
        check(ptr_array_append(b->pieces, copy) >= 0, "room for more pieces");
    }
    i32 n = 0;
    for (sprite *piece : each(b->pieces)) {
        piece->flags &= ~SPRITE_HIDDEN;
        piece->x = n * 29 % (SCREEN_WIDTH - piece->w);
        piece->y = n * 17 % (SCREEN_HEIGHT - piece->h);
        ++n;
    }
}

void grow_pieces(int depth) {
    double once = 0;
    int factor = 1;
    for (const int times : {1, 2, 2}) { // each time of what lies there
        factor *= times;
        multiply_pieces(times);
        std::vector<double> taken;
        for (const frame_cost &frame : stirred_frames(false))
            taken.push_back(whole_ms(frame));
        if (factor == 1) {
            once = median(taken);
            continue;
        }
        for (double &ms : taken)
            ms = ms / once / factor;
        print_row(
            {"growth: frame with " + std::to_string(factor) + " times the pieces, " + std::to_string(depth) + " bits",
             "of proportional", taken, NO_AIM});
    }
}

void celebrate(int depth) {
    dialog_completed(0, "You have completed the Factors puzzle.");
    screen_request(SCREEN_DIALOG);
    until_screen(SCREEN_DIALOG);
    until(
        "the confetti falls", [] { return frame_meter_last().pictures >= CONFETTI; }, CONFETTI_LIMIT);
    frame_meter_begin(true);
    wait_frames(CONFETTI_FRAMES);
    report("dialog with confetti", depth, frame_meter_end());
}

} // namespace

int main() {
    for (const int depth : DEPTHS) {
        const game_folder folder;
        const game_result result = play_game(
            folder, depth,
            [depth] {
                slide_titles(depth);
                play_factors(depth);
                if (depth == DEPTHS[0])
                    grow_pieces(depth);
                celebrate(depth);
                _exit(EXIT_SUCCESS);
            },
            METERED);
        if (result.exit_code != EXIT_SUCCESS) {
            std::fprintf(stderr, "benchmark: %s\n", result.said.c_str());
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
