// tavimo-saves: what stands on the disk when the program is killed while it saves, and how often it saves.
//
// The program runs until its last frame; there it is copied (fork), again and again, each time into a folder of its
// own. Each copy goes on to save and exit, and is killed before or after the next one of its system calls: between them
// nothing on the disk changes. A copy writes in small pieces, so that it is also killed within what it writes.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/app_state.h"
#include "core/ui/screen.h"
#include "monkey/monkey.h"
#include "persist/best_times.h"
#include "persist/best_times_file.h"
#include "persist/prefs.h"
#include "platform/platform.h"

#include <SDL.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t PIECE = 256, LONGER_BY = 4096; // bytes
constexpr int UNHARMED = 0;
constexpr long FRAMES_BEFORE = 20;

bool is_copy = false;
int kills = 0;
fs::path game_root;

// What stands before the save: nothing, or files of the same length as the new ones, or longer ones.
enum before : int { NOTHING, SAME_LENGTH, LONGER, BEFORE_KINDS };
file_bytes old_files[BEFORE_KINDS][2], new_files[BEFORE_KINDS][2];

fs::path make_folder(int kind) {
    const fs::path root = game_root / "copy";
    fs::create_directories(root / "bin");
    fs::create_directories(root / "data");
    for (int i = 0; i < 2 && kind != NOTHING; ++i)
        write_file(root / "data" / SAVED_FILES[i], old_files[kind][i]);
    return root;
}

// Kills the copy at the nth of the stops before and after its system calls. False when it came to its end.
bool kill_copy(pid_t pid, int stop) {
    int status = 0;
    waitpid(pid, &status, 0);
    for (int i = 1; i != stop && WIFSTOPPED(status); ++i) {
        ptrace(PTRACE_SYSCALL, pid, nullptr, nullptr);
        waitpid(pid, &status, 0);
    }
    if (!WIFSTOPPED(status)) {
        if (status != 0)
            monkey_fail("the program does not end by itself");
        return false;
    }
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    ++kills;
    return true;
}

// The next start in that folder, and its exit, which also clears away what was in the making.
bool start_again(const fs::path &root) {
    return run_in_child([&] {
               fs::current_path(root / "bin");
               static_cast<void>(platform_claim_folder("..\\data"));
               prefs_load();
               best_times_load();
               _exit(prefs_save() == 1 && best_times_save() == 1 ? 0 : 1);
           }) == 0;
}

// Returns in the copy, too, which goes on to save and exit. Otherwise that is dead, and what it left is the old or the
// new file, or one that the next start knows to be damaged and keeps. True when it was killed.
bool copy_and_kill(int kind, int stop) {
    const fs::path root = make_folder(kind);
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
        fs::current_path(root / "bin");
        is_copy = true;
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
        return false;
    }
    const bool killed = kill_copy(pid, stop);
    file_bytes found[2];
    for (int i = 0; i < 2; ++i)
        found[i] = read_file(root / "data" / SAVED_FILES[i]);
    if (stop == UNHARMED)
        std::copy(found, found + 2, new_files[kind]);
    if (new_files[kind][1].size() < 2 * PIECE)
        monkey_fail("the program does not save by itself");
    const bool saves_again = start_again(root);
    for (const auto &entry : fs::directory_iterator(root / "data"))
        if (entry.path().string().find(".new") != std::string::npos)
            monkey_fail("a killed save leaves " + entry.path().string());
    for (int i = 0; i < 2; ++i) {
        const bool whole = found[i] == old_files[kind][i] || found[i] == new_files[kind][i];
        const bool kept = read_file(root / "data" / (SAVED_FILES[i] + std::string(".bad"))) == found[i];
        if (!saves_again || (!whole && !kept))
            monkey_fail(std::string(SAVED_FILES[i]) + " is lost or mixed; killed at stop " + std::to_string(stop) +
                        ", before it case " + std::to_string(kind));
    }
    fs::remove_all(root);
    return killed;
}

// Returns in the copies.
void kill_copies() {
    for (int kind = 0; kind < BEFORE_KINDS; ++kind) {
        copy_and_kill(kind, UNHARMED);
        for (int stop = 1; !is_copy && copy_and_kill(kind, stop); ++stop)
            continue;
        if (is_copy)
            return;
    }
    std::printf("%d killed at system calls\n", kills);
    std::fflush(nullptr);
    _exit(0);
}

// Puts other names and times of the same length into every table.
void fill_tables(const char *name, int seconds) {
    app_state_set_name(app, name);
    for (i32 i = 0; i < PUZZLE_COUNT * LOG_LENGTH; ++i)
        best_times_record(i % PUZZLE_COUNT, name, seconds + i);
}

void prepare_files() {
    fill_tables("The old one", 1000);
    if (prefs_save() != 1 || best_times_save() != 1)
        monkey_fail("the old files cannot be written");
    for (int i = 0; i < 2; ++i) {
        old_files[SAME_LENGTH][i] = old_files[LONGER][i] = read_file(game_root / "data" / SAVED_FILES[i]);
        old_files[LONGER][i].insert(old_files[LONGER][i].end(), LONGER_BY, 'x');
    }
    fill_tables("The new one", 1500);
    app_request_quit();
    kill_copies();
}

// --- Ways out ------------------------------------------------------------------------------------

// Through the dialog, one press every other frame.
void leave_by_dialog() {
    if (!hands_rest())
        return;
    if (screen_current() == SCREEN_SPLASH)
        click(COLUMN_X, SPLASH_GO_Y);
    else
        press(screen_current() == SCREEN_TITLE ? SDLK_ESCAPE : SDLK_y);
}

constexpr struct way_out {
    const char *name;
    void (*leave)();
} WAYS[] = {
    {"SIGTERM", [] { raise(SIGTERM); }},
    {"SIGINT", [] { raise(SIGINT); }},
    {"the close button", [] { push_event(SDL_QUIT); }},
    {"the exit dialog", leave_by_dialog},
    {"all at once", [] { raise(SIGTERM), raise(SIGINT), push_event(SDL_QUIT), leave_by_dialog(); }},
    {"a library's exit", [] { std::exit(1); }}, // as when the display goes away
};
const way_out *way = nullptr;

void leave() {
    if (report->run_frames >= FRAMES_BEFORE)
        way->leave();
    hands_move();
}

bool leaves_each_way() {
    for (const way_out &row : WAYS) {
        way = &row;
        std::ranges::fill(report->saved, 0);
        const int exit_code = monkey_run({.move = leave});
        std::printf("%s: exit code %d, %ld and %ld saves\n", row.name, exit_code, report->saved[0], report->saved[1]);
        if (exit_code != 0 || std::ranges::count(report->saved, 1) != 2)
            return false;
    }
    return true;
}

} // namespace

extern "C" {
// No audio thread, which a copy of the process would wait for.
int __wrap_SDL_OpenAudio(SDL_AudioSpec *, SDL_AudioSpec *) {
    return -1;
}

ssize_t __real_write(int fd, const void *bytes, std::size_t count);
ssize_t __wrap_write(int fd, const void *bytes, std::size_t count) {
    return __real_write(fd, bytes, is_copy ? std::min(count, PIECE) : count);
}
}

int main() {
    const whole_game game;
    game_root = game.root;
    const bool well = leaves_each_way() && monkey_run({.move = prepare_files}) == 0;
    std::printf("%s\n", well ? "No fault found" : "A fault found");
    return well ? 0 : 1;
}
