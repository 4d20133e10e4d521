// Failing allocations, failing system calls, a damaged archive: sweep allocations|calls|archive [--short|--long [N]].
//
// The short form tries each distinct way through the program once, and of the archive a few places. Each of some
// workers goes the whole way and tries its share. Says what broke and ends with 1. With a number, only that failure is
// tried again.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app/app.h"
#include "resources/archive_format.h"
#include "support/stored_files.h"
#include "support/video_depth.h"
#include "support/whole_program/whole_program.h"
#include "sweep/sweep.h"

#include <execinfo.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <set>
#include <string_view>
#include <thread>

namespace fs = std::filesystem;

namespace {

constexpr unsigned HANGS_AFTER = 240;              // seconds, on a busy machine
constexpr rlim_t MOST_CPU = 15, LONGEST_START = 2; // seconds
constexpr int CUTS = 256, FLIPS = 2000;
constexpr int FRAMES_A_LIST = 4; // drawing takes most of the time, and nobody looks

fs::path game;
failing cause = {};
bool ready = false;  // sweeping has begun
failure first, last; // of the failures that are tried
bool short_form = false;
std::set<i64> cuts, flips;          // places in the archive
int met = 0, tried = 0, broken = 0; // failures on the way, and those tried by this worker
int only = 0;                       // this one; 0 for all
int worker = 0, workers = 1;

// --- What is tried -------------------------------------------------------------------------------

// Whether this way to the failing call has not been gone yet. The long form goes every way every time.
bool is_new_way() {
    if (!short_form)
        return true;
    static std::set<std::vector<void *>> gone;
    constexpr int DEPTH = 10;
    std::vector<void *> callers(DEPTH);
    callers.resize(static_cast<std::size_t>(backtrace(callers.data(), DEPTH)));
    return gone.insert(callers).second;
}

bool is_tried(failure what, i64 place) {
    if (!ready || what < first || what > last)
        return false;
    if (what == ARCHIVE_CUT)
        return cuts.erase(place) > 0;
    if (what == ARCHIVE_FLIPPED)
        return flips.erase(place) > 0;
    return is_new_way();
}

void choose_places() {
    const file_bytes bytes = read_file(game / "data/data.dar");
    const auto size = static_cast<i64>(bytes.size());
    const int fraction = short_form ? 32 : 1;
    for (i64 i = 0; i < CUTS; i += fraction)
        cuts.insert(i * size / CUTS + i % 5);
    std::mt19937_64 dice(1);
    for (int i = 0; i < FLIPS; i += fraction)
        flips.insert(static_cast<i64>(dice() % static_cast<u64>(size)));
    // One byte of every field of the directory.
    i64 at = ARCHIVE_HEADER_BYTES;
    for (int n = 0; at < big_endian_i32(bytes.data()); ++n) {
        const i64 name = big_endian_i32(bytes.data() + at), behind = at + ARCHIVE_INT_BYTES + name;
        const i64 k = n / fraction % ARCHIVE_INT_BYTES; // each time another one
        if (n % fraction == 0)
            flips.insert({at + k, at + ARCHIVE_INT_BYTES + n % name, behind + k, behind + ARCHIVE_INT_BYTES + k});
        at = behind + 2 * ARCHIVE_INT_BYTES;
    }
    for (i64 i = 0; i < ARCHIVE_HEADER_BYTES; ++i)
        flips.insert(i);
}

// --- The child -----------------------------------------------------------------------------------

fs::path child_game() {
    return game / "child";
}

// Its own copy of the files, and of the descriptors with their positions.
void move_into_own_folder() {
    for (const char *folder : {"bin", "data"})
        fs::create_directories(child_game() / folder);
    fs::copy(game / "data", child_game() / "data", fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    fs::current_path(child_game() / "bin");
    for (int descriptor = STDERR_FILENO + 1; descriptor < 32; ++descriptor) {
        std::error_code closed;
        std::string path = fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor), closed).string();
        if (closed || !fs::is_regular_file(path))
            continue;
        path = own_path(path.c_str());
        const int own = openat(AT_FDCWD, path.c_str(), fcntl(descriptor, F_GETFL) & O_ACCMODE);
        lseek(own, lseek(descriptor, 0, SEEK_CUR), SEEK_SET);
        dup2(own, descriptor);
        close(own);
    }
    const int said = open((child_game() / "said").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    dup2(said, STDOUT_FILENO);
    dup2(said, STDERR_FILENO);
    close(said);
}

void judge_child(pid_t child, const failing &tried_now) {
    int status = 0;
    waitpid(child, &status, 0);
    const std::string fault = fault_of(status, child_game(), tried_now);
    if (!fault.empty()) {
        ++broken;
        std::printf("BROKEN: failure %d%s (number %d, place %ld): %s\n", tried_now.what,
                    tried_now.later ? " from then on" : "", met, static_cast<long>(tried_now.place), fault.c_str());
        void *callers[12];
        std::fflush(stdout);
        backtrace_symbols_fd(callers, backtrace(callers, 12), STDOUT_FILENO);
    }
    fs::remove_all(child_game());
}

bool in_child(const failing &what) {
    ready = false; // what the sweep itself does does not fail
    std::fflush(nullptr);
    constexpr int together = 2; // the same failure once and from then on: the latter is sooner over
    ++met;
    if (only != 0 ? met != only : met / together % workers != worker) {
        ready = true;
        return false;
    }
    if (++tried % 1000 == 0)
        std::fprintf(stderr, "worker %d: %d failures tried, %d broke the program\n", worker, tried, broken);
    const pid_t child = fork();
    if (child == 0) {
        const rlim_t most = first == ARCHIVE_CUT ? LONGEST_START : MOST_CPU;
        const rlimit cpu = {most, most + 1};
        setrlimit(RLIMIT_CPU, &cpu);
        alarm(HANGS_AFTER);
        move_into_own_folder();
        cause = what;
    } else {
        judge_child(child, what);
    }
    ready = true;
    return child == 0;
}

// The program has come to its end without a failure of its own.
void finish() {
    if (cause.what != NO_FAILURE)
        return;
    const std::string fault = fault_of(0, game, cause);
    broken += fault.empty() ? 0 : 1;
    std::printf("%s", fault.c_str());
    fs::current_path("/");
    fs::remove_all(game);
    std::printf("worker %d: of %d failures %d tried, %d of them broke the program\n", worker, met, tried, broken);
    std::fflush(nullptr);
    _exit(broken > 0 || tried == 0 ? 1 : 0);
}

// Forks the workers, in which it returns, and waits for them.
void share_out() {
    workers = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    for (; worker < workers; ++worker)
        if (fork() == 0)
            return;
    int status = 0, failed = 0;
    while (wait(&status) > 0)
        failed += status == 0 ? 0 : 1;
    _exit(failed > 0 ? 1 : 0);
}

} // namespace

std::string own_path(const char *path) {
    const std::string all = path, root = game.string(), child = child_game().string();
    return all.starts_with(root) && !all.starts_with(child) ? child + all.substr(root.size()) : all;
}

const failing &struck() {
    return cause;
}

bool strikes(failure what, i64 place) {
    if (cause.what != NO_FAILURE)
        return cause.later && what == cause.what;
    if (!is_tried(what, place))
        return false;
    const bool can_last = what != READ_INTERRUPTED && what != WRITE_INTERRUPTED && what < ARCHIVE_CUT;
    return in_child({what, false, place}) || (can_last && in_child({what, true, place}));
}

int main(int count, char **arguments) {
    const std::string_view which = count > 1 ? arguments[1] : "";
    short_form = count > 2 && std::string_view(arguments[2]) == "--short";
    only = count > 3 ? std::atoi(arguments[3]) : 0;
    if (which == "allocations")
        first = last = ALLOCATION;
    else if (which == "calls")
        first = OPEN_FAILS, last = DECODER_FAILS;
    else if (which == "archive")
        first = ARCHIVE_CUT, last = ARCHIVE_FLIPPED;
    else
        return std::fprintf(stderr, "usage: %s allocations|calls|archive [--short|--long [N]]\n", arguments[0]), 2;
    if (only == 0)
        share_out();
    const whole_game folder; // finish removes it, in this process only
    game = folder.root;
    write_file(game / "data/prefs", stored_prefs(KEEPER));
    write_file(game / "data/scores", stored_scores(KEEPER, 1));
    if (first == ARCHIVE_CUT)
        choose_places();
    virtual_time_start();
    harness.frame = scenario_step;
    harness.thread_fails = [] { return strikes(THREAD_FAILS); };
    fake_allocation_fails = [] { return strikes(ALLOCATION); };
    fake_video.refuse = [](int, u32) { return strikes(MODE_FAILS); };
    harness.render_turn = [](bool needed) {
        static int frame = 0;
        return needed || frame++ % FRAMES_A_LIST == 0;
    };
    std::atexit(finish);
    ready = true;
    app_run();
}
