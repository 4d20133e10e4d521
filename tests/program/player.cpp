// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "program/player.h"

#include "core/app/app.h"
#include "core/base/settings.h"
#include "core/ui/help.h"
#include "core/ui/screen.h"
#include "graphics/render.h"
#include "input/input.h"
#include "puzzles/board.h"
#include "puzzles/placement.h"
#include "puzzles/puzzle_layout.h"
#include "screens/splash.h"
#include "sprites/sprite.h"
#include "support/recording.h"
#include "support/video_depth.h"

#include <SDL.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <semaphore>
#include <thread>

namespace fs = std::filesystem;

namespace {

constexpr int USUAL_DEPTH = 16; // the mode that start-up asks for first
constexpr int SCRIPT_FAILED = 99;
constexpr int GO_ON = -1;

// Whose turn it is. Where the game polls its input, the script has its turn.
bool script_runs = false;
std::binary_semaphore game_turn{0}, script_turn{0};
int exit_with = GO_ON; // the main thread's exit code in its next turn

void run_script(const script &player) {
    script_turn.acquire();
    player();
    script_runs = false;
    game_turn.release();
}

[[noreturn]] void fail_script(const std::string &why) {
    std::fprintf(stderr, "script: %s (screen %d)\n", why.c_str(), static_cast<int>(screen_current()));
    std::fflush(nullptr);
    _exit(SCRIPT_FAILED);
}

void say_what_became_of_memory() {
    std::fputs(app == nullptr ? "released\n" : "kept\n", stderr);
}

void play(int depth, const script &player, const std::string &errors) {
    if (std::freopen(errors.c_str(), "w", stderr) == nullptr)
        _exit(SCRIPT_FAILED);
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    for (const int ending :
         {SIGHUP, SIGINT, SIGTERM}) // which whoever runs the tests in the background may have switched off
        std::signal(ending, SIG_DFL);
    virtual_time_start();
    if (depth != USUAL_DEPTH)
        fake_video.refuse = [](int bits, u32) { return bits == USUAL_DEPTH; };
    std::atexit(say_what_became_of_memory); // after the program's own handler, which comes later
    script_runs = true;
    std::thread(run_script, player).detach();
    app_run();
}

} // namespace

void take_turns() {
    if (script_runs) {
        script_turn.release();
        game_turn.acquire();
    }
    if (exit_with != GO_ON)
        std::exit(exit_with);
}

std::string game_folder::text(const std::string &name) const {
    const file_bytes bytes = read_file(file(name));
    return {bytes.begin(), bytes.end()};
}

void game_folder::write(const std::string &name, const std::string &text) const {
    fs::remove(file(name));
    write_file(file(name), to_bytes(text));
}

game_result play_game(const game_folder &folder, int depth, const script &player, const harness_calls &calls) {
    harness = calls;
    const int code = run_in_child([&] { play(depth, player, folder.file("said").string()); });
    return {code, folder.text("said"), folder.text("bin/errorlog.log")};
}

// --- For scripts ---------------------------------------------------------------------------------

void wait_frames(int count) {
    for (int i = 0; i < count; ++i) {
        game_turn.release();
        script_turn.acquire();
    }
}

void until(const char *what, const std::function<bool()> &holds, int limit) {
    for (int i = 0; !holds(); ++i) {
        if (i == limit)
            fail_script(std::string("waited in vain until ") + what);
        wait_frames(1);
    }
}

void until_screen(screen_id id) {
    until("the next screen shows", [id] { return screen_current() == id; });
}

void check(bool holds, const std::string &what) {
    if (!holds)
        fail_script("expected: " + what);
}

void exit_main_loop(int code) {
    exit_with = code;
    wait_frames(1);
}

void move_mouse(int x, int y) {
    fake_mouse_move(x, y);
    wait_frames(1);
}

void mouse_down_at(int x, int y) {
    move_mouse(x, y);
    fake_mouse_button(SDL_BUTTON_LEFT, true);
    wait_frames(1);
}

void mouse_up() {
    fake_mouse_button(SDL_BUTTON_LEFT, false);
    wait_frames(1);
}

void click(int x, int y) {
    mouse_down_at(x, y);
    mouse_up();
}

void drag(int from_x, int from_y, int to_x, int to_y) {
    mouse_down_at(from_x, from_y);
    move_mouse((from_x + to_x) / 2, (from_y + to_y) / 2);
    move_mouse(to_x, to_y);
    mouse_up();
}

void hold_key(int key, bool down) {
    fake_key(key, down);
    wait_frames(1);
}

void press(int key) {
    hold_key(key, true);
    hold_key(key, false);
}

void type_text(const std::string &letters) {
    for (const char c : letters)
        press(c);
}

// The bubbles, buttons and pictures are recorded once more, aside.
std::vector<std::string> drawn_by(void (*draw)()) {
    while (!render_begin_frame()) { // the render thread rests soon, in real time
        render_end_frame();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    draw_queue_state &q = draw_queue;
    const bool pending = q.pending;
    const i32 lengths[] = {q.lists[0].length, q.lists[1].length};
    draw();
    const draw_block &list = q.lists[q.recording];
    const i32 before = lengths[q.recording];
    draw_block added = {list.bytes + before, list.length - before, 0};
    const lines all = recording_detail::take(&added, {});
    for (const int i : {0, 1})
        q.lists[i].length = lengths[i];
    q.pending = pending;
    render_end_frame();
    return all;
}

// --- The usual road ------------------------------------------------------------------------------

namespace {

void check_bubbles() {
    std::vector<rect> frames;
    for (const std::string &line : drawn_by(help_draw)) {
        rect r = {};
        if (std::sscanf(line.c_str(), "frame %d %d %d %d", &r.x, &r.y, &r.w, &r.h) == 4)
            frames.push_back(r);
        else if (std::sscanf(line.c_str(), "line %d %d %d %d", &r.x, &r.y, &r.w, &r.h) == 4)
            check(inside({r.x, r.y, 1, 1}, WHOLE_SCREEN) && inside({r.w, r.h, 1, 1}, WHOLE_SCREEN),
                  "lines on the screen");
    }
    check(!frames.empty(), "help bubbles");
    for (const rect &frame : frames) {
        check(inside(frame, WHOLE_SCREEN), "bubbles on the screen");
        for (const rect &other : frames)
            check(&other == &frame || !overlap(frame, other), "bubbles that do not cover each other");
    }
}

} // namespace

board *the_board() {
    return app->board;
}

void leave_splash() {
    until_screen(SCREEN_SPLASH);
    wait_frames(SPLASH_REVEAL);
    click(COLUMN_X, SPLASH_GO_Y);
    until_screen(SCREEN_TITLE);
    check(drawn_by(splash_draw).empty(), "the wiped window stays black");
    wait_frames(2);
}

void press_column(int n) {
    mouse_down_at(COLUMN_X, column_y(n));
}

void click_column(int n) {
    press_column(n);
    mouse_up();
}

void select_puzzle(int list_position) {
    click(LIST_X, list_y(list_position));
    wait_frames(PICTURE_SLIDE);
}

void visit_credits() {
    click_column(TITLE_CREDITS);
    until_screen(SCREEN_CREDITS);
    wait_frames(10);
    press(SDLK_SPACE); // shows all at once
    press(SDLK_SPACE);
    until_screen(SCREEN_TITLE);
    wait_frames(2);
}

void leave_run() {
    press(SDLK_ESCAPE);
    until_screen(SCREEN_DIALOG);
    wait_frames(DIALOG_ENTRANCE);
    press(SDLK_y);
    until_screen(SCREEN_TITLE);
    wait_frames(2);
}

void close_help() {
    for (int clicks = 0; settings_help_showing(); ++clicks) {
        check(clicks < 10, "clicks to close the help bubbles");
        wait_frames(BUBBLES_DEAF);
        check_bubbles();
        click(COLUMN_X, SCREEN_HEIGHT / 2);
    }
}

void study_selected() {
    click_column(TITLE_STUDY);
    until_screen(SCREEN_STUDY);
    wait_frames(2);
}

void start_playing(const char *name) {
    click_column(STUDY_PLAY);
    until_screen(SCREEN_DIALOG);
    wait_frames(DIALOG_ENTRANCE);
    if (name != nullptr)
        type_text(name);
    press(SDLK_RETURN);
    until_screen(SCREEN_PLAY);
    wait_frames(2);
}

sprite *loose_piece(int skip) {
    for (sprite *piece : each(the_board()->pieces))
        if ((piece->flags & SPRITE_FIXED) == 0 && skip-- == 0)
            return piece;
    return nullptr;
}

// The pictures of the labels are numbered like the cells that ask for them.
void carry_to_cell(sprite *piece) {
    const board *b = the_board();
    const auto cell = static_cast<i32>(
        std::find(b->pictures.labels, b->pictures.labels + b->layout->labels, piece->label) - b->pictures.labels);
    const int x = b->x + b->layout->grid_x + cell % b->layout->cols * (b->layout->cell_w + COLUMN_GAP) + 1;
    const int y = b->y + b->layout->grid_y + cell / b->layout->cols * puzzle_row_pitch(b->type) + 1;
    move_mouse(mouse_x + x - piece->x, mouse_y + y - piece->y);
    mouse_up();
    check((piece->flags & SPRITE_FIXED) != 0, "the piece that the cell asks for snaps in");
    check(piece->x == x && piece->y == y, "the piece lies in its cell");
    check(answers_its_cell(*b, *piece), "what the piece shows is what the cell asks");
}

void place_piece(sprite *piece) {
    const int x = piece->x + piece->w / 2, y = piece->y + piece->h / 2;
    check(board_piece_at(the_board(), x, y) == piece, "the piece can be taken where it lies");
    mouse_down_at(x, y);
    carry_to_cell(piece);
}

void until_deck_rests() {
    const board *b = the_board();
    until("the deck rests", [b] { return !board_is(b, BOARD_DECK_MOVING); });
    for (int i = 0; i < DECK_CARDS && b->deck.slot[i] != nullptr; ++i)
        check(b->deck.slot_at[i].x == b->places->deck.x - 2 * i && b->deck.slot_at[i].y == b->places->deck.y + 2 * i,
              "the cards where they began");
}

void press_keypad(int place) {
    const button *key = the_board()->buttons->items[place];
    click(key->x + key->width / 2, key->y + key->height / 2);
}

void type_on_keypad(int number) {
    for (const char digit : std::to_string(number))
        press_keypad(keypad_digit(digit));
}

void finish_dialog_and_score_log() {
    until_screen(SCREEN_DIALOG);
    wait_frames(DIALOG_ENTRANCE);
    press(SDLK_RETURN);
    until_screen(SCREEN_SCORE_LOG);
    constexpr int SHOW = 700; // frames, more than the whole show takes
    wait_frames(SHOW);
    click(COLUMN_X, SCREEN_HEIGHT / 2);
    until_screen(SCREEN_TITLE);
    wait_frames(2);
}

void leave_program() {
    click_column(TITLE_EXIT);
    until_screen(SCREEN_DIALOG);
    wait_frames(DIALOG_ENTRANCE);
    press(SDLK_y);
    until_screen(SCREEN_SPLASH);
    wait_frames(SPLASH_REVEAL);
    click(COLUMN_X, SPLASH_GO_Y);
    wait_frames(1000);
    check(false, "the program ends");
}
